// Values at points of plans and volumes against plain loops: types, policies, methods, order, threads.
#include "ORLIXIPLUtility/KernelChecks.h"
#include "ORLIXIPLUtility/Processor/ExtractImgValues/ValuesOracle.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"
#include "support/Executors.h"

#include <rapidcheck/gtest.h>

namespace orlix::imaproc::util::test {
namespace {

using image::eImageBufferType;

template <class TKind>
class ExtractImgValuesTest : public ::testing::Test
{
protected:
    using Place = typename TKind::Place;

    static void expectValues(const ImageConstPtr& image, const std::vector<Place>& places)
    {
        const auto coords = collOf(places);
        for (const unsigned policy : {0U, 1U, 2U}) {
            const auto each = static_cast<Policy::domain>(policy);
            ASSERT_TRUE(hasExpected(*image, places, policy, valuesIn(TKind::call(image, coords, each, tiled()))))
                << "tiled";
            ASSERT_TRUE(hasExpected(*image, places, policy, valuesIn(TKind::call(image, coords, each, striped()))))
                << "striped";
        }
    }
};
using Kinds = ::testing::Types<InPlans, InVolumes>;
TYPED_TEST_SUITE(ExtractImgValuesTest, Kinds);

struct Sizes
{
    unsigned long x, y, z;
};
constexpr Sizes g_sizes[] = {{1, 1, 1}, {1, 7, 3}, {9, 1, 2},   {2, 2, 2},
                             {3, 3, 3}, {4, 4, 4}, {17, 13, 5}, {65, 33, 9}};

TYPED_TEST(ExtractImgValuesTest, everyTypeAndSizeByBothMethods)
{
    unsigned long seed = 1;
    for (const eImageBufferType type : image::g_allBufferTypes) {
        for (const Sizes& size : g_sizes) {
            SCOPED_TRACE(std::string(image::getBufferTypeName(type)) + " " + ::testing::PrintToString(size.x) + "x" +
                         ::testing::PrintToString(size.y) + "x" + ::testing::PrintToString(size.z));
            const ImagePtr image = TypeParam::make(type, size.x, size.y, size.z);
            fillValues(*image, ++seed);
            this->expectValues(image, pointsWithin<typename TypeParam::Place>(*image, 200, seed));
        }
    }
}

/// Not a byte beside the elements is read: it lies at a forbidden page, or in a gap whose values would show.
TYPED_TEST(ExtractImgValuesTest, wrappedMemoryBetweenForbiddenPages)
{
    unsigned long seed = 100;
    for (const eImageBufferType type : image::g_allBufferTypes) {
        for (const Sizes& size : g_sizes) {
            const auto geometry = TypeParam::make(type, size.x, size.y, size.z)->getGeometry();
            for (const testing::WrapForm& form : {testing::WrapForm{testing::GuardEdge::eEnd},
                                                  testing::WrapForm{testing::GuardEdge::eBegin, 3, 5, 1, false},
                                                  testing::WrapForm{testing::GuardEdge::eBegin}}) {
                const testing::WatchedImage watched(geometry, form);
                fillValues(*watched.get(), ++seed);
                this->expectValues(watched.get(), pointsWithin<typename TypeParam::Place>(*watched.get(), 60, seed));
                EXPECT_TRUE(watched.isOutsideIntact());
            }
        }
    }
}

TYPED_TEST(ExtractImgValuesTest, wholeCoordinatesGiveThePixels)
{
    const ImagePtr image = TypeParam::make(eImageBufferType::Real32, 12, 9, 4);
    fillValues(*image, 3);
    std::vector<typename TypeParam::Place> places;
    std::vector<double> pixels;
    for (unsigned long z = 0; z < image->getSizeZ(); ++z) {
        for (unsigned long y = 0; y < image->getSizeY(); ++y) {
            for (unsigned long x = 0; x < image->getSizeX(); ++x) {
                typename TypeParam::Place place{};
                const double all[] = {static_cast<double>(x), static_cast<double>(y), static_cast<double>(z)};
                std::copy_n(all, place.size(), place.begin());
                places.push_back(place);
                pixels.push_back(read<float>(image->accessRow(y, z, 0, 0) + x * sizeof(float)));
            }
        }
    }
    for (const Policy::domain policy : {Policy::eIP_NearestNeighbour, Policy::eIP_Linear, Policy::eIP_Cubic}) {
        EXPECT_EQ(valuesIn(TypeParam::call(image, collOf(places), policy, tiled())), pixels);
        EXPECT_EQ(valuesIn(TypeParam::call(image, collOf(places), policy, striped())), pixels);
    }
}

TYPED_TEST(ExtractImgValuesTest, manyStripsAndGroupsOnEveryExecutor)
{
    const ImagePtr image = TypeParam::make(eImageBufferType::UInt16, 301, 1100, 3);
    fillValues(*image, 5);
    const auto places = pointsWithin<typename TypeParam::Place>(*image, 5000, 6);
    const auto coords = collOf(places);
    for (const testing::NamedExecutor& each : testing::makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        const testing::ScopedExecutor scoped(each.executor);
        for (const unsigned policy : {0U, 1U, 2U}) {
            const auto domain = static_cast<Policy::domain>(policy);
            EXPECT_TRUE(hasExpected(*image, places, policy, valuesIn(TypeParam::call(image, coords, domain, tiled()))));
            EXPECT_TRUE(
                hasExpected(*image, places, policy, valuesIn(TypeParam::call(image, coords, domain, striped()))));
        }
    }
}

TYPED_TEST(ExtractImgValuesTest, leftOutIsLinearAndTheDefaultMethod)
{
    const ImagePtr image = TypeParam::make(eImageBufferType::Int16, 20, 30, 4);
    fillValues(*image, 7);
    const auto places = pointsWithin<typename TypeParam::Place>(*image, 50, 8);
    EXPECT_TRUE(hasExpected(*image, places, 1, valuesIn(TypeParam::call(image, collOf(places)))));
    EXPECT_TRUE(hasExpected(*image, places, 2, valuesIn(TypeParam::call(image, collOf(places), Policy::eIP_Cubic))));
}

TYPED_TEST(ExtractImgValuesTest, aSecondCallOwesNothingToTheFirst)
{
    const ImagePtr large = TypeParam::make(eImageBufferType::UInt16, 100, 80, 4);
    const ImagePtr small = TypeParam::make(eImageBufferType::Real32, 5, 6, 2);
    fillValues(*large, 15);
    fillValues(*small, 16);
    for (int round = 0; round < 3; ++round) {
        this->expectValues(large, pointsWithin<typename TypeParam::Place>(*large, 3000, 17));
        this->expectValues(small, pointsWithin<typename TypeParam::Place>(*small, 5, 18));
    }
}

TYPED_TEST(ExtractImgValuesTest, asynchronousForms)
{
    const ImagePtr image = TypeParam::make(eImageBufferType::Int8, 40, 30, 4);
    fillValues(*image, 19);
    const auto places = pointsWithin<typename TypeParam::Place>(*image, 300, 20);
    const auto coords = collOf(places);
    const auto expect = [&](const auto& running, unsigned policy) {
        ASSERT_TRUE(running->wait());
        EXPECT_TRUE(hasExpected(*image, places, policy, valuesIn(getAsyncProcessorOutput(running))));
        const auto all = getAsyncProcessorMultiSliceOutput(running);
        ASSERT_TRUE(all);
        EXPECT_EQ(all->size(), 1u);
        EXPECT_EQ(all->find(PlanIndex()), getAsyncProcessorOutput(running));
    };
    expect(TypeParam::start(image, coords), 1);
    expect(TypeParam::start(image, coords, Policy::eIP_Cubic), 2);
    expect(TypeParam::start(image, coords, Policy::eIP_NearestNeighbour, striped()), 0);
    const auto byPlan = boost::make_shared<PlanIndexedColl<typename TypeParam::CoordsColl>>();
    byPlan->insert(PlanIndex(), coords);
    if constexpr (TypeParam::s_nbAxes == 3) {
        expect(TypeParam::startAll(image, byPlan), 1);
    } else {
        expect(TypeParam::startAll(image, byPlan), 1);
    }
    expect(TypeParam::startAll(image, byPlan, Policy::eIP_Cubic), 2);
    expect(TypeParam::startAll(image, byPlan, Policy::eIP_Cubic, striped()), 2);
    const auto failed = TypeParam::start(nullptr, coords);
    EXPECT_FALSE(failed->wait());
    EXPECT_EQ(getAsyncProcessorOutput(failed), nullptr);
    EXPECT_EQ(getAsyncProcessorMultiSliceOutput(failed), nullptr);
    EXPECT_THROW(getAsyncProcessorOutput(boost::shared_ptr<typename TypeParam::Lvl1>()), BaseException);
    EXPECT_THROW(getAsyncProcessorMultiSliceOutput(boost::shared_ptr<typename TypeParam::Lvl1>()), BaseException);
}

/// Both methods agree, and every value is where its point is, whatever their order.
template <class TKind>
void checkOrderAndMethods()
{
    const ImagePtr image = TKind::make(eImageBufferType::Int16, *rc::gen::inRange(1UL, 40UL),
                                       *rc::gen::inRange(1UL, 40UL), *rc::gen::inRange(1UL, 6UL));
    fillValues(*image, *rc::gen::arbitrary<unsigned char>());
    auto places =
        pointsWithin<typename TKind::Place>(*image, *rc::gen::inRange(0UL, 60UL), *rc::gen::arbitrary<unsigned char>());
    const auto policy = static_cast<Policy::domain>(*rc::gen::inRange(0U, 3U));
    const auto values = valuesIn(TKind::call(image, collOf(places), policy, tiled()));
    RC_ASSERT(values == valuesIn(TKind::call(image, collOf(places), policy, striped())));
    std::reverse(places.begin(), places.end());
    auto turned = valuesIn(TKind::call(image, collOf(places), policy, striped()));
    std::reverse(turned.begin(), turned.end());
    RC_ASSERT(values == turned);
}
RC_GTEST_PROP(ExtractImgValuesProperty, MethodsAndOrderDoNotMatterInPlans, ())
{
    checkOrderAndMethods<InPlans>();
}
RC_GTEST_PROP(ExtractImgValuesProperty, MethodsAndOrderDoNotMatterInVolumes, ())
{
    checkOrderAndMethods<InVolumes>();
}

TEST(ExtractImgValuesValuesTest, cubicMayGoBeyondTheRangeAndIsNotRounded)
{
    const ImagePtr image = image::createImage(*image::geometry2d(eImageBufferType::UInt8, 4, 1));
    const unsigned char row[] = {0, 255, 255, 0};
    std::memcpy(image->accessRow(0, 0, 0, 0), row, sizeof(row));
    const double xy[] = {1.5, 0, 0.5, 0, 0.25, 0};
    EXPECT_EQ(valuesIn(extractImg2dValues(image, attr::createCoords2dColl(xy), Policy::eIP_Cubic)),
              (std::vector<double>{286.875, 127.5, 51.796875}));
    EXPECT_EQ(valuesIn(extractImg2dValues(image, attr::createCoords2dColl(xy), Policy::eIP_Linear)),
              (std::vector<double>{255, 127.5, 63.75}));
}

TEST(ExtractImgValuesValuesTest, linearInTheMiddleIsTheMeanOfFour)
{
    const ImagePtr image = image::createImage(*image::geometry2d(eImageBufferType::Int16, 2, 2));
    const short rows[2][2] = {{1, 2}, {4, 9}};
    for (unsigned long y = 0; y < 2; ++y) {
        std::memcpy(image->accessRow(y, 0, 0, 0), rows[y], sizeof(rows[y]));
    }
    const double xy[] = {0.5, 0.5, 1.75, 0, 1.75, 1.9, 1.2, 0.5};
    EXPECT_EQ(valuesIn(extractImg2dValues(image, attr::createCoords2dColl(xy), Policy::eIP_Linear)),
              (std::vector<double>{4, 2, 9, 5.5}))
        << "beyond the last pixel is its mirror image";
    EXPECT_EQ(valuesIn(extractImg2dValues(image, attr::createCoords2dColl(xy), Policy::eIP_NearestNeighbour)),
              (std::vector<double>{9, 2, 9, 9}));
}

} // namespace
} // namespace orlix::imaproc::util::test
