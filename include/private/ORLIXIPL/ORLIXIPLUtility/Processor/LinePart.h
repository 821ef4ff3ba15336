// How images are drawn that are parts of larger ones, piece by piece.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/OperatorCall.h"
#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/ImgOffset.h"
#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/ImgSize.h"
#include "ORLIXIPL/ORLIXImage/BaseImage.h"

#include <boost/function.hpp>

namespace orlix::imaproc::util {

/// A processor that has attributes.
template <class TLevel>
boost::shared_ptr<TLevel> makeLevel()
{
    const boost::shared_ptr<TLevel> level = boost::make_shared<TLevel>();
    static_cast<void>(
        level->init(processor::eProcessorRulePolicy::eRulePolicyCheck)); // it says so again when it is run
    return level;
}

/// Throws what a run of `TLevel` throws whose rule fails on these values.
template <class TLevel, class... TValues>
void checkRule(const TValues&... values)
{
    const boost::shared_ptr<TLevel> level = makeLevel<TLevel>();
    (level->template set<typename TValues::Attribute>(values.value), ...);
    if (const ProcessingResult<bool> result = level->createRule()->check(); !result) {
        processor::details::throwRunFailed(result);
    }
}

/// Throws ORLIXIPLUtilityException where `out` reaches beyond the whole of which it is to be the part at `first`.
void checkPart(const image::BaseImage& out, const attr::Img3dSizeRecord& whole, const attr::Img3dOffsetRecord& first);

using DrawLines = boost::function<void(const ImagePtr& plan, unsigned long firstLine, unsigned long nbLines)>;
/// Calls `draw` for ranges of lines that make up all plans of the image, each once, on the threads of
/// core::accessExecutor(). Throws what the first of them throws that fails; the others are drawn all the same.
void forEachPieceOfPlans(const image::BaseImage& out, const DrawLines& draw);

using DrawPlan = boost::function<void(const ImagePtr& volume, unsigned long z)>;
/// The same for every plan of all volumes.
void forEachPlanOfVolumes(const image::BaseImage& out, const DrawPlan& draw);

} // namespace orlix::imaproc::util
