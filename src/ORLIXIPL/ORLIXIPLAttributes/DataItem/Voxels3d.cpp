#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/Voxels3d.h"

#include "ORLIX/ORLIXUtil/DynamicRegistrator.h"

namespace orlix::imaproc::attr {

namespace {

const DynamicRegistrator<Voxel3d> g_registration;
const DynamicRegistrator<Voxels3d> g_registrationOfSeveral;

} // namespace

} // namespace orlix::imaproc::attr
