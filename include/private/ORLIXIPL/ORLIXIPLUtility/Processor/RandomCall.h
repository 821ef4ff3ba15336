// The ways in which the functions of random operators use their level-1 processors, beyond those of all operators.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/OperatorCall.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ImagePart.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/RandomRun.h"

namespace orlix::imaproc::util {

/// As `processor::start`; the run keeps what was in force at the call.
template <class TProcessor, class... TValues>
boost::shared_ptr<TProcessor> startRandom(const TValues&... values)
{
    const boost::shared_ptr<TProcessor> processor = boost::make_shared<TProcessor>();
    static_cast<void>(processor->init(processor::eProcessorRulePolicy::eRulePolicyCheck));
    (processor->template set<typename TValues::Attribute>(values.value), ...);
    processor->setRandomRun(startRandomRun());
    static_cast<void>(processor->run(core::eSynchroType::eSynchroAsync)); // what comes of it is wait()'s to tell
    return processor;
}

/// As `processor::run`, on the image `outImg` as a part. A null image is the run's to refuse.
template <class TProcessor, class... TValues>
void runRandomPart(const ImagePart& part, const ImagePtr& outImg, const TValues&... values)
{
    if (outImg) {
        checkPart(part, *outImg);
    }
    RandomRun run = startRandomRun();
    run.firstPlan = part.firstPlan;
    run.firstLine = part.firstLine;
    const RandomRunScope scope(run);
    processor::run<TProcessor>(values...);
}

} // namespace orlix::imaproc::util
