#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/Pixels2d.h"

#include "ORLIX/ORLIXUtil/DynamicRegistrator.h"

namespace orlix::imaproc::attr {

namespace {

const DynamicRegistrator<Pixel2d> g_registration;
const DynamicRegistrator<Pixels2d> g_registrationOfSeveral;

} // namespace

} // namespace orlix::imaproc::attr
