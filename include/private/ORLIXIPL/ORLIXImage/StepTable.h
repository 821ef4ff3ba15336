// Where each time step of an image lies, for images whose steps don't follow one pattern.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"

#include <vector>

namespace orlix::image {

/// The memory of one time step. Distances are in bytes, as in PixelLayout.
struct StepLayout
{
    std::byte* first = nullptr;
    long pixelStride = 1;
    long rowBytes = 0;
    long planBytes = 0;
    long channelBytes = 0;
    bool bDense = true;
    bool bRoomBehindPlans = false;
    boost::shared_ptr<void> owner;

    std::byte* accessRow(unsigned long y, unsigned long z, unsigned long c) const
    {
        return first + static_cast<long>(y) * rowBytes + static_cast<long>(z) * planBytes +
               static_cast<long>(c) * channelBytes;
    }
};

using StepTable = std::vector<StepLayout>;

/// Step t, from the table or by the pattern.
StepLayout stepOf(const PixelLayout& layout, unsigned long t);

/// Adds steps [start, start + count) of `layout` to the table.
void addSteps(StepTable& table, const PixelLayout& layout, unsigned long start, unsigned long count);

/// Takes the memory of the steps for the layout's own. What isn't said of steps, the kind of image and where the whole
/// of it may be cached, stays. One step needs no table, and none leaves the layout as it is.
void setSteps(PixelLayout& layout, StepTable&& table);

} // namespace orlix::image
