#include "ORLIXIPL/ORLIXIPLUtility/Processor/RandomImg/RandomImgLvl1.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<RandomImgLvl1, eProcessorMessage> g_registration;

} // namespace

RandomImgLvl1::RandomImgLvl1() = default;
RandomImgLvl1::~RandomImgLvl1() = default;

processor::StepResult RandomImgLvl1::preProcess()
{
    attr::InOptOutputRange& range = *accessAttribute<attr::InOptOutputRange>();
    if (!range.isSet()) {
        const image::eImageBufferType type = accessAttribute<attr::OutImg>()->getImage().getBufferType();
        range.init(attr::createRange(image::getMinValue(type), image::getMaxValue(type)));
    }
    return processor::StepResult::success();
}

} // namespace orlix::imaproc::util
