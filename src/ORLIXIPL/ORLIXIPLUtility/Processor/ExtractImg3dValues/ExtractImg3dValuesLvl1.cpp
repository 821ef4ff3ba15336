#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImg3dValues/ExtractImg3dValuesLvl1.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"

namespace orlix::imaproc::util {

namespace {

const processor::ProcessorRegistration<ExtractImg3dValuesLvl1, eProcessorMessage> g_registration;

} // namespace

ExtractImg3dValuesLvl1::ExtractImg3dValuesLvl1() = default;
ExtractImg3dValuesLvl1::~ExtractImg3dValuesLvl1() = default;

processor::StepResult ExtractImg3dValuesLvl1::preProcess()
{
    const auto& points = accessAttribute<attr::InPICoords3dColl>()->getDataItemNode();
    auto& values = accessAttribute<attr::OutPIImgGreyValues>()->getDataItemNode();
    for (unsigned long i = 0; i < points.size(); ++i) {
        const auto coords = points.getItem(i);
        const auto found = values.find(points.getPlanIndex(i));
        if (coords && found) { // the splits tell of an entry that is missing
            found->access<attr::Doubles::Coll>().resize(coords->get<attr::Coords3dColl::Coll>().size());
        }
    }
    return processor::StepResult::success();
}

} // namespace orlix::imaproc::util
