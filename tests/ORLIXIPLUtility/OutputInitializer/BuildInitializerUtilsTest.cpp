// outputBuild2d, outputBuild3d: what built images look like.
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"

namespace orlix::imaproc::util::test {
namespace {

using image::eImageBufferType;
using testing::messageOf;

constexpr const char* g_nullText = "Input attribute should not be null";

/// What is the same of any built image.
void expectBuilt(const BaseCustomImageInfo& info)
{
    EXPECT_TRUE(info.isOutputInitNeeded());
    EXPECT_EQ(info.getImageBufferType(), eImageBufferType::eBufferBinary);
    EXPECT_EQ(info.getImageBufferTypeVector(), std::vector<image::eImageBufferType>{eImageBufferType::eBufferBinary});
    image::ColorGeometry grey;
    grey.initGrey();
    EXPECT_EQ(info.getColorGeometry(), grey);
    image::TemporalGeometry single;
    single.initSingle();
    EXPECT_EQ(info.getTemporalGeometry(), single);
    EXPECT_FALSE(info.hasInputImage());
    EXPECT_EQ(info.getInputImage(), nullptr);
}

TEST(OutputBuild2dTest, aBinaryPlanOfTheSizeThatTheAttributeHolds)
{
    const auto size = boost::make_shared<attr::InOutputImg2dSize>();
    const boost::shared_ptr<BaseCustomImageInfo> info = outputBuild2d(size);
    for (const auto& [x, y] : {std::pair{7UL, 9UL}, {0UL, 1UL << 40}}) {
        size->init(attr::createImg2dSize(x, y));
        expectBuilt(*info);
        EXPECT_EQ(info->getSizeX(), x);
        EXPECT_EQ(info->getSizeY(), y);
        EXPECT_FALSE(info->getVolumeGeometry().is3d());
    }
}

TEST(OutputBuild3dTest, aBinaryVolumeOfTheSizeThatTheAttributeHolds)
{
    const auto size = boost::make_shared<attr::InOutputImg3dSize>();
    const boost::shared_ptr<BaseCustomImageInfo> info = outputBuild3d(size);
    for (const unsigned long z : {1UL, 0UL, 12UL}) {
        size->init(attr::createImg3dSize(3, 4, z));
        expectBuilt(*info);
        EXPECT_EQ(info->getSizeX(), 3U);
        EXPECT_EQ(info->getSizeY(), 4U);
        EXPECT_TRUE(info->getVolumeGeometry().is3d());
        EXPECT_EQ(info->getVolumeGeometry().getSizeZ(), z);
    }
}

template <class TSize, class TInfo>
void expectNullIsRefused(const TInfo& makeInfo)
{
    auto size = boost::make_shared<TSize>();
    const boost::shared_ptr<BaseCustomImageInfo> info = makeInfo(size);
    const auto expectRefused = [&](const BaseCustomImageInfo& asked) {
        EXPECT_EQ(messageOf([&] { static_cast<void>(asked.getSizeX()); }), g_nullText);
        EXPECT_EQ(messageOf([&] { static_cast<void>(asked.getSizeY()); }), g_nullText);
        EXPECT_THROW(static_cast<void>(asked.getSizeX()), ORLIXIPLUtilityException);
    };
    expectRefused(*info); // unset
    size->init(nullptr);
    expectRefused(*info); // null
    size.reset();
    expectRefused(*info); // gone
    expectRefused(*makeInfo(boost::shared_ptr<TSize>()));
}

TEST(OutputBuild2dTest, anAttributeThatHoldsNothingIsRefused)
{
    expectNullIsRefused<attr::InOutputImg2dSize>([](const auto& size) { return outputBuild2d(size); });
}

TEST(OutputBuild3dTest, anAttributeThatHoldsNothingIsRefused)
{
    const auto makeInfo = [](const auto& size) { return outputBuild3d(size); };
    expectNullIsRefused<attr::InOutputImg3dSize>(makeInfo);
    const auto unset = boost::make_shared<attr::InOutputImg3dSize>();
    EXPECT_EQ(messageOf([&] { static_cast<void>(makeInfo(unset)->getVolumeGeometry()); }), g_nullText);
}

} // namespace
} // namespace orlix::imaproc::util::test
