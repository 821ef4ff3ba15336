// Parts of an image, and sequences joined, as images of their own that share the pixels.
#pragma once

#include "ORLIX/ORLIXUtil/ProcessingResult.h"
#include "ORLIXIPL/ORLIXBaseImageTools/Export.h"
#include "ORLIXIPL/ORLIXImage/SubImage.h"

#include <boost/shared_ptr.hpp>

#include <vector>

namespace orlix::image {

/// Makes sub-images: views that keep the pixels alive, not the image, and have its calibration. Those of an image on a
/// device are images on that device. TImage is `BaseImage` or `const BaseImage`. Indices beyond the image's sizes are a
/// failure that names both; the result pointer then stays as it was. May be called from any thread.
class ORLIXBASEIMAGETOOLS_API SubImageExtractor
{
public:
    /// (X, Y, Z, C, T) -> (X, Y, 1, 1, 1), a 2d single image: the plan at z, c, t.
    template <class TImage>
    static ProcessingResult<bool> extractPlan(unsigned long z, unsigned long c, unsigned long t, TImage& image,
                                              boost::shared_ptr<TImage>& plan)
    {
        ImagePtr view;
        return handOver(viewPlan(z, c, t, image, view), view, plan);
    }

    /// (X, Y, Z, C, T) -> (X, Y, Z, 1, 1), of the image's volume geometry: all plans of channel c at step t.
    template <class TImage>
    static ProcessingResult<bool> extractVolume(unsigned long c, unsigned long t, TImage& image,
                                                boost::shared_ptr<TImage>& volume)
    {
        ImagePtr view;
        return handOver(viewVolume(c, t, image, view), view, volume);
    }

    /// (X, Y, Z, C, T) -> (X, Y, Z, C, nbSteps): the steps [firstStep, firstStep + nbSteps). One step of a single image
    /// is a single image; everything else is a sequence, one of a single step or none too.
    template <class TImage>
    static ProcessingResult<bool> extractSubSequence(unsigned long firstStep, unsigned long nbSteps, TImage& image,
                                                     boost::shared_ptr<TImage>& sequence)
    {
        ImagePtr view;
        return handOver(viewSteps(firstStep, nbSteps, image, view), view, sequence);
    }

    /// (X, Y, Z, C, T1), (X, Y, Z, C, T2), ... -> (X, Y, Z, C, T1 + T2 + ...): a sequence that shows the steps of all
    /// images, in their order, each of its own element type. Calibration, volume and colour geometry are the first's.
    /// Fails for no image, a null one, images that differ in a size other than t, and images of which one is on a
    /// device and another isn't on the same.
    template <class TImage>
    static ProcessingResult<bool> concatenateSequences(const std::vector<boost::shared_ptr<TImage>>& images,
                                                       boost::shared_ptr<TImage>& sequence)
    {
        ImagePtr view;
        return handOver(viewSequences(plainPointers(images), view), view, sequence);
    }

    /// The geometry that `concatenateSequences` would give its result, of images with or without pixels. The same
    /// failures.
    template <class TImage>
    static ProcessingResult<bool>
    getGeometryResultingFromSeqConcatenation(const std::vector<boost::shared_ptr<TImage>>& images,
                                             boost::shared_ptr<BaseImageGeometry>& geometry)
    {
        return joinGeometries(plainPointers(images), geometry);
    }

private:
    static ProcessingResult<bool> viewSequences(const std::vector<const BaseImage*>& images, ImagePtr& view);
    static ProcessingResult<bool> joinGeometries(const std::vector<const BaseImage*>& images,
                                                 boost::shared_ptr<BaseImageGeometry>& geometry);
    template <class TImage>
    static std::vector<const BaseImage*> plainPointers(const std::vector<boost::shared_ptr<TImage>>& images)
    {
        std::vector<const BaseImage*> pointers;
        for (const boost::shared_ptr<TImage>& image : images) {
            pointers.push_back(image.get());
        }
        return pointers;
    }

    static ProcessingResult<bool> viewPlan(unsigned long z, unsigned long c, unsigned long t, const BaseImage& image,
                                           ImagePtr& view);
    static ProcessingResult<bool> viewVolume(unsigned long c, unsigned long t, const BaseImage& image, ImagePtr& view);
    static ProcessingResult<bool> viewSteps(unsigned long firstStep, unsigned long nbSteps, const BaseImage& image,
                                            ImagePtr& view);

    template <class TImage>
    static ProcessingResult<bool> handOver(ProcessingResult<bool> result, ImagePtr& view,
                                           boost::shared_ptr<TImage>& part)
    {
        if (result) {
            part = std::move(view);
        }
        return result;
    }
};

} // namespace orlix::image
