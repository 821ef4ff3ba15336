#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/Doubles.h"

#include "ORLIX/ORLIXUtil/DynamicRegistrator.h"

namespace orlix::imaproc::attr {

namespace {

const DynamicRegistrator<Doubles> g_registration;
const DynamicRegistrator<PlanIndexedDoubles> g_registrationByPlan;

} // namespace

} // namespace orlix::imaproc::attr
