#include "ORLIXIPL/ORLIXIPLUtility/OutputInitializer/BuildInitializerUtils.h"

#include "ORLIXIPL/ORLIXIPLUtility/Logger/OutputInitializerLogMessages.h"
#include "ORLIXIPL/ORLIXIPLUtility/Rule/LockAttribute.h"

#include <boost/make_shared.hpp>

namespace orlix::imaproc::util {

namespace {

/// What both have in common: all but the sizes on z.
template <class TSizeAttribute>
class BuildOutputInitializer : public BaseFromImageCustomImageInfo
{
public:
    explicit BuildOutputInitializer(const boost::weak_ptr<const TSizeAttribute>& size) : m_size(size)
    {
        BaseCustomImageInfo::initBase();
    }

    image::eImageBufferType getImageBufferType() const override { return image::eImageBufferType::eBufferBinary; }
    std::vector<image::eImageBufferType> getImageBufferTypeVector() const override
    {
        return BaseCustomImageInfo::getImageBufferTypeVector();
    }
    unsigned long getSizeX() const override { return lockSize(ORLIX_HERE)->getDataItemNode().X; }
    unsigned long getSizeY() const override { return lockSize(ORLIX_HERE)->getDataItemNode().Y; }
    image::ColorGeometry getColorGeometry() const override
    {
        image::ColorGeometry geometry;
        geometry.initGrey();
        return geometry;
    }
    image::TemporalGeometry getTemporalGeometry() const override
    {
        image::TemporalGeometry geometry;
        geometry.initSingle();
        return geometry;
    }
    bool hasInputImage() const override { return false; }
    ImageConstPtr getInputImage() const override { return {}; }

protected:
    boost::shared_ptr<const TSizeAttribute> lockSize(const SourcePlace& place) const
    {
        return lockAttribute<eOutputInitializerMessage>(place, eOutputInitializerMessage::eInputAttributeNull, m_size);
    }

private:
    boost::weak_ptr<const TSizeAttribute> m_size;
};

class GetBuild2dOutputInitializer final : public BuildOutputInitializer<attr::InOutputImg2dSize>
{
public:
    using BuildOutputInitializer::BuildOutputInitializer;

    image::VolumeGeometry getVolumeGeometry() const override
    {
        static_cast<void>(lockSize(ORLIX_HERE));
        image::VolumeGeometry geometry;
        geometry.init2d();
        return geometry;
    }
};

class GetBuild3dOutputInitializer final : public BuildOutputInitializer<attr::InOutputImg3dSize>
{
public:
    using BuildOutputInitializer::BuildOutputInitializer;

    image::VolumeGeometry getVolumeGeometry() const override
    {
        image::VolumeGeometry geometry;
        geometry.init3d(lockSize(ORLIX_HERE)->getDataItemNode().Z);
        return geometry;
    }
};

} // namespace

boost::shared_ptr<BaseCustomImageInfo> outputBuild2d(const boost::weak_ptr<const attr::InOutputImg2dSize>& size)
{
    return boost::make_shared<GetBuild2dOutputInitializer>(size);
}

boost::shared_ptr<BaseCustomImageInfo> outputBuild3d(const boost::weak_ptr<const attr::InOutputImg3dSize>& size)
{
    return boost::make_shared<GetBuild3dOutputInitializer>(size);
}

} // namespace orlix::imaproc::util
