#include "ORLIXIPL/ORLIXIPLUtility/OutputInitializer/BuildInitializerUtils.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXIPLUtility/Logger/OutputInitializerLogMessages.h"

#include <boost/make_shared.hpp>

namespace orlix::imaproc::util {

namespace {

/// What built images have in common, whatever their size.
template <class TSize, class TRecord>
class GetBuildOutputInitializer : public BaseFromImageCustomImageInfo
{
public:
    explicit GetBuildOutputInitializer(const boost::weak_ptr<const TSize>& size) : m_size(size)
    {
        BaseCustomImageInfo::initBase();
    }

    image::eImageBufferType getImageBufferType() const override { return image::eImageBufferType::eBufferBinary; }
    std::vector<image::eImageBufferType> getImageBufferTypeVector() const override
    {
        return BaseCustomImageInfo::getImageBufferTypeVector();
    }
    unsigned long getSizeX() const override { return getSize().X; }
    unsigned long getSizeY() const override { return getSize().Y; }
    image::ColorGeometry getColorGeometry() const override
    {
        image::ColorGeometry grey;
        grey.initGrey();
        return grey;
    }
    image::TemporalGeometry getTemporalGeometry() const override
    {
        image::TemporalGeometry single;
        single.initSingle();
        return single;
    }
    bool hasInputImage() const override { return false; }
    ImageConstPtr getInputImage() const override { return {}; }

protected:
    TRecord getSize() const
    {
        // The processor that owns the attribute may go at any time, so the attribute is held while it is read.
        const boost::shared_ptr<const TSize> size = m_size.lock();
        if (!size || !size->isHeld()) {
            raise<eOutputInitializerMessage>(ORLIX_HERE, eOutputInitializerMessage::eInputAttributeNull);
        }
        return size->getDataItemNode();
    }

private:
    boost::weak_ptr<const TSize> m_size;
};

class GetBuild2dOutputInitializer final
    : public GetBuildOutputInitializer<attr::InOutputImg2dSize, attr::Img2dSizeRecord>
{
public:
    using GetBuildOutputInitializer::GetBuildOutputInitializer;

    image::VolumeGeometry getVolumeGeometry() const override
    {
        image::VolumeGeometry plan;
        plan.init2d();
        return plan;
    }
};

class GetBuild3dOutputInitializer final
    : public GetBuildOutputInitializer<attr::InOutputImg3dSize, attr::Img3dSizeRecord>
{
public:
    using GetBuildOutputInitializer::GetBuildOutputInitializer;

    image::VolumeGeometry getVolumeGeometry() const override
    {
        image::VolumeGeometry volume;
        volume.init3d(getSize().Z);
        return volume;
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
