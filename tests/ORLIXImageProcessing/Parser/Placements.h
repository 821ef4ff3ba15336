// The ways in which an image may lie in memory.
#pragma once

#include "support/Images.h"

namespace orlix::imaproc::test {

using Bytes = std::vector<std::byte>;

inline Bytes copyOf(const void* block, unsigned long nbBytes)
{
    const auto* bytes = static_cast<const std::byte*>(block);
    return {bytes, bytes + nbBytes};
}

struct Placement
{
    const char* name;
    bool bOwned;
    orlix::testing::WrapForm form;
};
inline const Placement g_placements[] = {
    {"owned", true, {}},
    {"dense at the end", false, {orlix::testing::GuardEdge::eEnd, 0, 0, 0, true}},
    {"dense at the beginning", false, {orlix::testing::GuardEdge::eBegin, 0, 0, 0, true}},
    {"plans apart", false, {orlix::testing::GuardEdge::eEnd, 0, 7, 0, true}},
    {"pitched at the end", false, {orlix::testing::GuardEdge::eEnd, 5, 0, 0, true}},
    {"pitched at the beginning", false, {orlix::testing::GuardEdge::eBegin, 5, 0, 0, true}},
    {"pitched and plans apart", false, {orlix::testing::GuardEdge::eEnd, 3, 2, 0, true}},
    {"dense and misaligned", false, {orlix::testing::GuardEdge::eEnd, 0, 0, 3, false}},
    {"pitched and misaligned", false, {orlix::testing::GuardEdge::eBegin, 1, 0, 1, false}},
};

/// Calls `test(image, isOutsideIntact)` for each placement of an image that is filled at random.
template <class TTest>
void forEachPlacement(const image::BaseImageGeometry& geometry, const TTest& test)
{
    for (const Placement& placement : g_placements) {
        SCOPED_TRACE(std::string(placement.name) + ", " + geometry.toString());
        if (placement.bOwned) {
            const ImagePtr image = image::createImage(geometry);
            orlix::testing::fillRandom(*image, 1);
            test(image, [] { return true; });
        } else {
            const orlix::testing::WatchedImage watched(geometry, placement.form);
            orlix::testing::fillRandom(*watched.get(), 1);
            test(watched.get(), [&] { return watched.isOutsideIntact(); });
        }
    }
}

} // namespace orlix::imaproc::test
