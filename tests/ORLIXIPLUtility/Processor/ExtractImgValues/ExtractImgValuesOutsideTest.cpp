// Points that lie nowhere, or beyond the border, and whatever else is no ordinary input.
#include "ORLIXIPLUtility/Processor/ExtractImgValues/ValuesOracle.h"

#include <limits>

namespace orlix::imaproc::util::test {
namespace {

using image::eImageBufferType;

template <class TKind>
class ExtractImgValuesOutsideTest : public ::testing::Test
{};
using Kinds = ::testing::Types<InPlans, InVolumes>;
TYPED_TEST_SUITE(ExtractImgValuesOutsideTest, Kinds);

TYPED_TEST(ExtractImgValuesOutsideTest, otherPoliciesAreNearest)
{
    const ImagePtr image = TypeParam::make(eImageBufferType::UInt8, 20, 30, 4);
    fillValues(*image, 9);
    const auto places = pointsWithin<typename TypeParam::Place>(*image, 50, 10);
    for (const unsigned policy : {3U, 4U, 77U, ~0U}) {
        for (const MethodPtr& method : {tiled(), striped()}) {
            EXPECT_TRUE(hasExpected(
                *image, places, 0,
                valuesIn(TypeParam::call(image, collOf(places), static_cast<Policy::domain>(policy), method))));
        }
    }
}

TYPED_TEST(ExtractImgValuesOutsideTest, noPointsGiveNoValues)
{
    const ImagePtr image = TypeParam::make(eImageBufferType::UInt8, 20, 30, 4);
    for (const MethodPtr& method : {tiled(), striped()}) {
        EXPECT_TRUE(valuesIn(TypeParam::call(image, TypeParam::coords({}), Policy::eIP_Cubic, method)).empty());
    }
}

TYPED_TEST(ExtractImgValuesOutsideTest, imagesWithoutPixelsGiveZeros)
{
    for (const auto& [x, y] : {std::pair(0UL, 5UL), std::pair(5UL, 0UL), std::pair(0UL, 0UL)}) {
        const ImagePtr image = TypeParam::make(eImageBufferType::Real32, x, y, 2);
        const auto coords = collOf(std::vector<typename TypeParam::Place>(3));
        EXPECT_EQ(valuesIn(TypeParam::call(image, coords, Policy::eIP_Cubic, tiled())), std::vector<double>(3));
    }
}

TYPED_TEST(ExtractImgValuesOutsideTest, tilesGoOnBeyondTheBorderInTheMirror)
{
    const ImagePtr image = TypeParam::make(eImageBufferType::Int32, 7, 5, 3);
    fillValues(*image, 11);
    std::mt19937 random(12);
    std::uniform_real_distribution<double> far(-100, 100);
    std::vector<typename TypeParam::Place> places;
    for (int i = 0; i < 500; ++i) {
        typename TypeParam::Place place{};
        for (double& each : place) {
            each = i % 3 == 0 ? std::floor(far(random)) : i % 5 == 0 ? -0.25 : far(random);
        }
        places.push_back(place);
    }
    for (const double large : {1e9, -1e9, 4503599627370496.5, 0x1p53, -0x1p53, 0x1p61}) {
        typename TypeParam::Place place{};
        place.fill(large);
        places.push_back(place);
    }
    for (const unsigned policy : {0U, 1U, 2U}) {
        EXPECT_TRUE(hasExpected(
            *image, places, policy,
            valuesIn(TypeParam::call(image, collOf(places), static_cast<Policy::domain>(policy), tiled()))));
    }
}

/// No number comes of none, and nothing is read where there is nothing.
TYPED_TEST(ExtractImgValuesOutsideTest, coordinatesThatAreNoPlaces)
{
    const ImagePtr image = TypeParam::make(eImageBufferType::UInt8, 7, 5, 3);
    fillValues(*image, 13);
    constexpr double inf = std::numeric_limits<double>::infinity();
    for (const double bad : {std::numeric_limits<double>::quiet_NaN(), inf, -inf}) {
        for (unsigned long axis = 0; axis < TypeParam::s_nbAxes; ++axis) {
            typename TypeParam::Place place{};
            place[axis] = bad;
            for (const Policy::domain policy : {Policy::eIP_NearestNeighbour, Policy::eIP_Linear, Policy::eIP_Cubic}) {
                const auto values = valuesIn(TypeParam::call(image, collOf(std::vector{place}), policy, tiled()));
                ASSERT_EQ(values.size(), 1u);
                EXPECT_TRUE(std::isnan(values[0])) << bad << " on axis " << axis << ", policy " << policy;
            }
        }
    }
    for (const double large : {1e300, -1e300, 0x1p63, -0x1p63, 0x1p64, 1.5e19}) {
        typename TypeParam::Place place{};
        place.fill(large);
        for (const Policy::domain policy : {Policy::eIP_NearestNeighbour, Policy::eIP_Linear, Policy::eIP_Cubic}) {
            const auto values = valuesIn(TypeParam::call(image, collOf(std::vector{place}), policy, tiled()));
            EXPECT_TRUE(values[0] >= 0 && values[0] <= 255) << large << ": a pixel of the mirror image";
        }
    }
}

/// All pixels are 0, all beside them isn't, and behind it is a forbidden page.
TYPED_TEST(ExtractImgValuesOutsideTest, whereverAPointLiesOnlyTheImageIsRead)
{
    constexpr double inf = std::numeric_limits<double>::infinity();
    for (const auto& [x, y, z] : {std::array{1UL, 1UL, 1UL}, {9, 1, 2}, {4, 5, 6}}) {
        const auto geometry = TypeParam::make(eImageBufferType::Int16, x, y, z)->getGeometry();
        for (const testing::WrapForm& form : {testing::WrapForm{testing::GuardEdge::eEnd},
                                              testing::WrapForm{testing::GuardEdge::eBegin, 3, 5, 1, false},
                                              testing::WrapForm{testing::GuardEdge::eBegin}}) {
            const testing::WatchedImage watched(geometry, form);
            const ImageConstPtr image = watched.get();
            for (const double each : {std::numeric_limits<double>::quiet_NaN(),
                                      inf,
                                      -inf,
                                      1e300,
                                      -1e300,
                                      0x1p31,
                                      0x1p32,
                                      -0x1p32,
                                      0x1p62,
                                      -0x1p62,
                                      0x1p63,
                                      -0x1p63,
                                      0x1p64,
                                      -1e-300,
                                      -0.25,
                                      -0.5,
                                      -1.0,
                                      -2.5,
                                      0.5,
                                      1.0,
                                      3.75,
                                      4.5,
                                      5.999,
                                      8.5,
                                      9.0,
                                      40.25}) {
                for (unsigned long axis = 0; axis < TypeParam::s_nbAxes; ++axis) {
                    typename TypeParam::Place place{};
                    place[axis] = each;
                    const auto coords = collOf(std::vector{place});
                    for (const auto policy : {Policy::eIP_NearestNeighbour, Policy::eIP_Linear, Policy::eIP_Cubic}) {
                        const double value = valuesIn(TypeParam::call(image, coords, policy, tiled())).at(0);
                        EXPECT_TRUE(std::isfinite(each) ? value == 0 : std::isnan(value)) << each << ": " << value;
                        try {
                            EXPECT_EQ(valuesIn(TypeParam::call(image, coords, policy, striped())).at(0), 0) << each;
                        } catch (const BaseException&) {
                            EXPECT_FALSE(each >= 0 && each < 1) << each << " is on every line";
                        }
                    }
                }
            }
            EXPECT_TRUE(watched.isOutsideIntact());
        }
    }
}

TYPED_TEST(ExtractImgValuesOutsideTest, stripsLeaveWhatIsOnNoneOfThem)
{
    const ImagePtr image = TypeParam::make(eImageBufferType::UInt8, 7, 5, 3);
    fillValues(*image, 14);
    constexpr unsigned long axis = TypeParam::s_nbAxes - 1;
    const auto size = static_cast<double>(axis == 1 ? image->getSizeY() : image->getSizeZ());
    std::vector<typename TypeParam::Place> places;
    for (const double outside : {-0.25, -1.0, size, size + 7, 1e30, -1e30, std::numeric_limits<double>::quiet_NaN()}) {
        typename TypeParam::Place place{};
        places.push_back(place);
        place[axis] = outside;
        places.push_back(place);
    }
    const double first = expectedAt(*image, places[0], 1);
    const auto values = valuesIn(TypeParam::call(image, collOf(places), Policy::eIP_Linear, striped()));
    ASSERT_EQ(values.size(), places.size());
    for (unsigned long i = 0; i < values.size(); i += 2) {
        EXPECT_EQ(values[i], first);
        EXPECT_EQ(values[i + 1], 0);
    }
}

} // namespace
} // namespace orlix::imaproc::util::test
