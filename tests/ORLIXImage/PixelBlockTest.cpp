// Boxes between any distances, element by element.
#include "ORLIXIPL/ORLIXImage/PixelBlock.h"
#include "support/GuardedMemory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <vector>

namespace orlix::image {
namespace {

using Steps = std::array<long, 3>; ///< in elements

/// Distances of a box: the axes in an order, each `spread` times as far apart as need be, backwards where its sign says
/// so.
Steps stepsOf(const std::array<unsigned long, 3>& sizes, const std::array<unsigned, 3>& order,
              const std::array<long, 3>& spread)
{
    Steps steps{};
    long extent = 1;
    for (const unsigned axis : order) {
        steps[axis] = extent * spread[axis];
        extent += std::abs(steps[axis]) * (static_cast<long>(sizes[axis]) - 1);
    }
    return steps;
}

unsigned long reachOf(const std::array<unsigned long, 3>& sizes, const Steps& steps)
{
    unsigned long reach = 1;
    for (unsigned axis = 0; axis < 3; ++axis) {
        reach += (sizes[axis] - 1) * static_cast<unsigned long>(std::abs(steps[axis]));
    }
    return reach;
}

long firstOf(const std::array<unsigned long, 3>& sizes, const Steps& steps)
{
    long first = 0;
    for (unsigned axis = 0; axis < 3; ++axis) {
        first -= std::min(0L, steps[axis]) * (static_cast<long>(sizes[axis]) - 1);
    }
    return first;
}

void expectCopied(const std::array<unsigned long, 3>& sizes, const Steps& to, const Steps& from,
                  unsigned long elementBytes)
{
    const auto bytes = static_cast<long>(elementBytes);
    const testing::GuardedMemory source(reachOf(sizes, from) * elementBytes, testing::GuardEdge::eEnd);
    const testing::GuardedMemory destination(reachOf(sizes, to) * elementBytes, testing::GuardEdge::eBegin);
    std::mt19937 random(static_cast<unsigned>(source.size()));
    std::generate_n(source.data(), source.size(), [&] { return static_cast<std::byte>(random()); });
    std::fill_n(destination.data(), destination.size(), std::byte{0x5C});
    std::vector<std::byte> expected(destination.data(), destination.data() + destination.size());
    for (unsigned long z = 0; z < sizes[2]; ++z) {
        for (unsigned long y = 0; y < sizes[1]; ++y) {
            for (unsigned long x = 0; x < sizes[0]; ++x) {
                const auto place = [&](const Steps& steps) {
                    return (firstOf(sizes, steps) + static_cast<long>(x) * steps[0] + static_cast<long>(y) * steps[1] +
                            static_cast<long>(z) * steps[2]) *
                           bytes;
                };
                std::copy_n(source.data() + place(from), elementBytes, expected.begin() + place(to));
            }
        }
    }
    copyBlock(destination.data() + firstOf(sizes, to) * bytes, {to[0] * bytes, to[1] * bytes, to[2] * bytes},
              source.data() + firstOf(sizes, from) * bytes, {from[0] * bytes, from[1] * bytes, from[2] * bytes},
              {sizes[0], sizes[1], sizes[2]}, elementBytes);
    ASSERT_TRUE(std::equal(expected.begin(), expected.end(), destination.data()));
    ASSERT_TRUE(destination.isSurroundingIntact());
}

TEST(PixelBlockTest, everyOrderOfAxesOnEitherSide)
{
    const std::array<std::array<unsigned long, 3>, 6> allSizes = {
        {{1, 1, 1}, {3, 70, 5}, {70, 3, 33}, {5, 1, 67}, {64, 65, 1}, {9, 8, 7}}};
    const std::array<std::array<long, 3>, 5> spreads = {{{1, 1, 1}, {-1, 1, 1}, {2, -1, 1}, {1, -2, -3}, {-1, -1, -1}}};
    for (const auto& sizes : allSizes) {
        std::array<unsigned, 3> toOrder = {0, 1, 2};
        do {
            std::array<unsigned, 3> fromOrder = {0, 1, 2};
            do {
                for (unsigned long i = 0; i < spreads.size(); ++i) {
                    const unsigned long elementBytes = 1UL << i % 3;
                    SCOPED_TRACE(::testing::PrintToString(sizes) + ::testing::PrintToString(toOrder) +
                                 ::testing::PrintToString(fromOrder) + ::testing::PrintToString(spreads[i]));
                    expectCopied(sizes, stepsOf(sizes, toOrder, spreads[i]),
                                 stepsOf(sizes, fromOrder, spreads[(i + toOrder[0]) % spreads.size()]), elementBytes);
                }
            } while (std::ranges::next_permutation(fromOrder).found);
        } while (std::ranges::next_permutation(toOrder).found);
    }
}

TEST(PixelBlockTest, aSourceOfOnePixelForAll)
{
    for (const Steps& from : {Steps{0, 0, 0}, Steps{0, 1, 6}, Steps{1, 0, -7}, Steps{3, 1, 0}}) {
        for (const unsigned long elementBytes : {1UL, 2UL, 4UL}) {
            expectCopied({7, 6, 40}, stepsOf({7, 6, 40}, {0, 1, 2}, {1, 1, 1}), from, elementBytes);
            expectCopied({7, 6, 40}, stepsOf({7, 6, 40}, {2, 1, 0}, {1, -1, 2}), from, elementBytes);
        }
    }
}

TEST(PixelBlockTest, nothingOfABoxWithoutPixels)
{
    for (const BlockSize& size : {BlockSize{0, 5, 5}, BlockSize{5, 0, 5}, BlockSize{5, 5, 0}}) {
        copyBlock(nullptr, {1, 5, 25}, nullptr, {1, 5, 25}, size, 1);
    }
}

} // namespace
} // namespace orlix::image
