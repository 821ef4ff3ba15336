// Which kernels the operators on regions have, and which of them run.
#include "ORLIXIPLUtility/Processor/Region/RegionKernels.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::util {
namespace {

template <class TLevel>
class RegionKernels : public ::testing::Test
{};
using Levels = ::testing::Types<GetROI2dImgLvl3, GetROI3dImgLvl3, PutROI2dImgLvl3, PutROI3dImgLvl3>;
TYPED_TEST_SUITE(RegionKernels, Levels);

TYPED_TEST(RegionKernels, rowsInTheOrderOfTheTable)
{
    testing::expectRows<TypeParam>(g_regionKernels);
}

TYPED_TEST(RegionKernels, forcedSetIsTheOneThatRuns)
{
    testing::expectForcedSetRuns<TypeParam>(g_regionKernels);
}

} // namespace
} // namespace orlix::imaproc::util
