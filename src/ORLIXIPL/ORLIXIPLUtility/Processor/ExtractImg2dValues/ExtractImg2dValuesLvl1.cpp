#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImg2dValues/ExtractImg2dValuesLvl1.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<ExtractImg2dValuesLvl1, eProcessorMessage> g_registration;

} // namespace

ExtractImg2dValuesLvl1::ExtractImg2dValuesLvl1() = default;
ExtractImg2dValuesLvl1::~ExtractImg2dValuesLvl1() = default;

processor::StepResult ExtractImg2dValuesLvl1::preProcess()
{
    const auto& points = accessAttribute<attr::InPICoords2dColl>()->getDataItemNode();
    auto& values = accessAttribute<attr::OutPIImgGreyValues>()->getDataItemNode();
    for (unsigned long i = 0; i < points.size(); ++i) {
        const auto coords = points.getItem(i);
        const auto found = values.find(points.getPlanIndex(i));
        if (coords && found) { // the splits tell of an entry that is missing
            found->access<attr::Doubles::Coll>().resize(coords->get<attr::Coords2dColl::Coll>().size());
        }
    }
    return processor::StepResult::success();
}

} // namespace orlix::imaproc::util
