// Attributes that carry strips.
#pragma once

#include "ORLIXIPL/ORLIXImage/ImageYStrip2d.h"
#include "ORLIXIPL/ORLIXImageProcessing/ImageAttributes.h"

namespace orlix::imaproc {

class ORLIXIMAGEPROCESSING_API BaseStripAttribute : public BaseImageProcessingAttribute
{
public:
    eImageProcessingAttributeType getImageProcessingAttributeType() const override
    {
        return eImageProcessingAttributeType::eStripAttribute;
    }
    std::string getValueKind() const override;
    /// None where no strip is held.
    virtual image::eImageBufferType getImageBufferType() const = 0;
};

class ORLIXIMAGEPROCESSING_API BaseYStrip2dAttribute : public BaseStripAttribute
{
public:
    image::eImageBufferType getImageBufferType() const override
    {
        return m_baseStrip == nullptr ? image::eImageBufferType() : m_baseStrip->getImageBufferType();
    }
    /// For attributes that hold a strip.
    const image::BaseImageYStrip2d& getBaseImageYStrip2d() const { return *m_baseStrip; }

protected:
    void hold(const image::BaseImageYStrip2d* strip)
    {
        m_baseStrip = strip;
        markSet(strip == nullptr);
    }
    void letGo()
    {
        m_baseStrip = nullptr;
        markUnset();
    }

private:
    const image::BaseImageYStrip2d* m_baseStrip = nullptr; ///< the strip that the derived class keeps alive
};

/// What input and output strip attributes have in common.
template <class TStrip, bool bOutput>
class BaseTYStrip2dAttribute : public BaseYStrip2dAttribute
{
public:
    using StripType = TStrip;
    using StorageType = boost::shared_ptr<TStrip>;
    static constexpr bool g_bOutput = bOutput;

    bool isOutput() const override { return bOutput; }
    void clear() override { m_strip.reset(), letGo(); }

    void init(const StorageType& strip) { m_strip = strip, hold(m_strip.get()); }
    void init(StorageType&& strip) { m_strip = std::move(strip), hold(m_strip.get()); }
    const StorageType& getStorage() const { return m_strip; }

private:
    StorageType m_strip;
};

class ORLIXIMAGEPROCESSING_API BaseInputYStrip2dAttribute : public BaseTYStrip2dAttribute<image::InputImageYStrip2d, false>
{};

class ORLIXIMAGEPROCESSING_API BaseOutputYStrip2dAttribute
    : public BaseTYStrip2dAttribute<image::OutputImageYStrip2d, true>
{};

} // namespace orlix::imaproc
