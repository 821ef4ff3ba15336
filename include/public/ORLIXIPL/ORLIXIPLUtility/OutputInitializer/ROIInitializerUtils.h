// What the image looks like that a region is taken out into, where none is given.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/RegionAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Export.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImageProcessing/OutputInitializer/CustomOutput.h"

namespace orlix::imaproc::util {

// The image of a region has the size that an attribute tells, and else the geometry of the input: its element types,
// channels and time steps, in 2d also its plans. Each getter of a size holds the attribute while it reads it, and
// raises ORLIXIPLUtilityException "Input attribute should not be null" where it is null, gone, or holds nothing.

class ORLIXIPLUTILITY_API GetRoi2dOutputInitializer : public BaseFromImageCustomImageInfo
{
public:
    GetRoi2dOutputInitializer(const boost::weak_ptr<const BaseImageAttribute>& image,
                              const boost::weak_ptr<const attr::InOutputImg2dSize>& size);
    unsigned long getSizeX() const override;
    unsigned long getSizeY() const override;

private:
    boost::weak_ptr<const attr::InOutputImg2dSize> m_size;
};

/// Its output is a volume, also of a size of 1 along z.
class ORLIXIPLUTILITY_API GetRoi3dOutputInitializer : public BaseFromImageCustomImageInfo
{
public:
    GetRoi3dOutputInitializer(const boost::weak_ptr<const BaseImageAttribute>& image,
                              const boost::weak_ptr<const attr::InOutputImg3dSize>& size);
    unsigned long getSizeX() const override;
    unsigned long getSizeY() const override;
    image::VolumeGeometry getVolumeGeometry() const override;

private:
    boost::weak_ptr<const attr::InOutputImg3dSize> m_size;
};

/// For customOutput: the image of a region of `image`. Takes shared or weak pointers and keeps weak ones.
ORLIXIPLUTILITY_API boost::shared_ptr<BaseCustomImageInfo>
outputROI2d(const boost::weak_ptr<const BaseImageAttribute>& image,
            const boost::weak_ptr<const attr::InOutputImg2dSize>& size);
ORLIXIPLUTILITY_API boost::shared_ptr<BaseCustomImageInfo>
outputROI3d(const boost::weak_ptr<const BaseImageAttribute>& image,
            const boost::weak_ptr<const attr::InOutputImg3dSize>& size);

/// The same image at once.
ORLIXIPLUTILITY_API ImagePtr makeROI2d(const image::BaseImage& image, const attr::Img2dSize& size);
ORLIXIPLUTILITY_API ImagePtr makeROI3d(const image::BaseImage& image, const attr::Img3dSize& size);

/// As types for CustomOutput: the image of a region of `TInput` of the size that attribute `TSize` tells.
template <class TInput, class TSize>
struct OutputROI2d
{
    template <class TAttributes>
    static boost::shared_ptr<const BaseCustomImageInfo> make(const TAttributes& attributes)
    {
        return outputROI2d(processor::own<TInput>(attributes), processor::own<TSize>(attributes));
    }
    template <class TValues>
    static ImagePtr makeOutput(const TValues& values)
    {
        const image::BaseImage* const input = processor::pointerTo(values.template get<TInput>());
        const attr::Img2dSize* const size = processor::pointerTo(values.template get<TSize>());
        return input == nullptr || size == nullptr ? ImagePtr() : makeROI2d(*input, *size);
    }
};
template <class TInput, class TSize>
struct OutputROI3d
{
    template <class TAttributes>
    static boost::shared_ptr<const BaseCustomImageInfo> make(const TAttributes& attributes)
    {
        return outputROI3d(processor::own<TInput>(attributes), processor::own<TSize>(attributes));
    }
    template <class TValues>
    static ImagePtr makeOutput(const TValues& values)
    {
        const image::BaseImage* const input = processor::pointerTo(values.template get<TInput>());
        const attr::Img3dSize* const size = processor::pointerTo(values.template get<TSize>());
        return input == nullptr || size == nullptr ? ImagePtr() : makeROI3d(*input, *size);
    }
};

} // namespace orlix::imaproc::util
