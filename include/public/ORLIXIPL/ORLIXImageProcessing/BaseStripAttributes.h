// Attributes that carry strips of plans.
#pragma once

#include "ORLIXIPL/ORLIXImage/ImageYStrip2d.h"
#include "ORLIXIPL/ORLIXImageProcessing/BaseImageAttributes.h"

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
    /// The one element type that strips of this attribute have; none where any type will do.
    virtual image::eImageBufferType getFixedBufferType() const;
};

/// What attributes of one kind of strip have in common.
template <class TBaseStrip>
class BaseHeldStripAttribute : public BaseStripAttribute
{
public:
    image::eImageBufferType getImageBufferType() const override
    {
        return m_baseStrip == nullptr ? image::eImageBufferType() : m_baseStrip->getImageBufferType();
    }

protected:
    const TBaseStrip& getBaseStrip() const { return *m_baseStrip; }
    void hold(const TBaseStrip* strip)
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
    const TBaseStrip* m_baseStrip = nullptr; ///< the strip that the derived class keeps alive
};

class ORLIXIMAGEPROCESSING_API BaseYStrip2dAttribute : public BaseHeldStripAttribute<image::BaseImageYStrip2d>
{
public:
    /// For attributes that hold a strip.
    const image::BaseImageYStrip2d& getBaseImageYStrip2d() const { return getBaseStrip(); }
};

/// What input and output attributes over `TBase` have in common.
template <class TBase, class TStrip, bool bOutput>
class BaseTStripAttribute : public TBase
{
public:
    using StripType = TStrip;
    using StorageType = boost::shared_ptr<TStrip>;
    static constexpr bool g_bOutput = bOutput;

    bool isOutput() const override { return bOutput; }
    void clear() override { m_owned.reset(), hold(nullptr), this->letGo(); }

    void init(const StorageType& strip) { m_owned = strip, hold(m_owned.get()); }
    void init(StorageType&& strip) { m_owned = std::move(strip), hold(m_owned.get()); }
    /// Holds a strip of the caller's, until `clear`.
    void borrow(TStrip* strip) { hold(strip); }
    /// Null for a borrowed strip.
    const StorageType& getStorage() const { return m_owned; }
    /// For attributes that hold a strip.
    TStrip& accessStrip() const { return *m_strip; }

private:
    void hold(TStrip* strip) { m_strip = strip, TBase::hold(strip); }

    StorageType m_owned;
    TStrip* m_strip = nullptr;
};

class ORLIXIMAGEPROCESSING_API BaseInputYStrip2dAttribute
    : public BaseTStripAttribute<BaseYStrip2dAttribute, image::InputImageYStrip2d, false>
{};

class ORLIXIMAGEPROCESSING_API BaseOutputYStrip2dAttribute
    : public BaseTStripAttribute<BaseYStrip2dAttribute, image::OutputImageYStrip2d, true>
{};

} // namespace orlix::imaproc
