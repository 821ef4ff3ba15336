#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/CompareResult.h"

#include "ORLIX/ORLIXUtil/DynamicRegistrator.h"

namespace orlix::imaproc::attr {

namespace {

const DynamicRegistrator<CompareResult> g_result;
const DynamicRegistrator<PlanIndexedCompareResult> g_resultsByPlan;

} // namespace

} // namespace orlix::imaproc::attr
