// The rule of appendSeqImg.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/ComparisonAttributes.h"
#include "ORLIXIPL/ORLIXIPLAttributes/ImageAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Rule/SequenceRuleUtils.h"
#include "ORLIXIPL/ORLIXImageProcessing/Rule/ImageRuleTypes.h"

namespace orlix::imaproc::util {

/// Two sequences that agree in everything but time and element types, of which the second is not the output. The output
/// is the first of them, which then can grow, or an image that has the time steps of both. See RuleTypes.h.
struct AppendSeqImgRule
{
    template <class TAttributes>
    static processor::RulePtr make(const TAttributes& attributes)
    {
        const auto& first = processor::own<attr::InImg1>(attributes);
        const auto& second = processor::own<attr::InImg2>(attributes);
        const auto& out = processor::own<attr::OutImg>(attributes);
        const processor::RulePtr canGrow =
            imageBaseType(first, image::eImageBaseType::eHostImage) && imageType(first, image::eImageType::eOwnedImage);
        const processor::RulePtr holdsBoth =
            matchSize(first, out, eMatchImageSizeType::eAllButTime) && matchVolumeGeometryType(first, out) &&
            matchColorGeometryType(first, out) && customImageProperty(out, matchAppendSeq(first, second));
        return matchSize(first, second, eMatchImageSizeType::eAllButTime) && noInSitu(second, out) &&
               matchVolumeGeometryType(first, second) && matchColorGeometryType(first, second) &&
               processor::If(imaproc::isInSitu(first, out), canGrow, holdsBoth);
    }
    template <class TValues>
    static bool holds(const TValues& values)
    {
        const image::BaseImage& first = *values.template get<attr::InImg1>();
        const image::BaseImage& second = *values.template get<attr::InImg2>();
        const image::BaseImage& out = *values.template get<attr::OutImg>();
        if (!isAlike(first, second) || InSitu<attr::InImg2, attr::OutImg>::holds(values)) {
            return false;
        }
        return InSitu<attr::InImg1, attr::OutImg>::holds(values)
                   ? first.getImageBaseType() == image::eImageBaseType::eHostImage &&
                         first.getImageType() == image::eImageType::eOwnedImage
                   : isAlike(first, out) && out.getSizeT() == first.getSizeT() + second.getSizeT();
    }

private:
    static bool isAlike(const image::BaseImage& left, const image::BaseImage& right)
    {
        return isSameSize(left, right, eMatchImageSizeType::eAllButTime) && isSameVolumeGeometryType(left, right) &&
               isSameColorGeometryType(left, right);
    }
};

} // namespace orlix::imaproc::util
