#include "ORLIXIPL/ORLIXImage/StepTable.h"

#include <boost/make_shared.hpp>

#include <algorithm>

namespace orlix::image {

StepLayout stepOf(const PixelLayout& layout, unsigned long t)
{
    if (layout.steps) {
        return (*layout.steps)[t];
    }
    return {layout.first + static_cast<long>(t) * layout.stepBytes,
            layout.pixelStride,
            layout.rowBytes,
            layout.planBytes,
            layout.channelBytes,
            layout.bDense,
            layout.bRoomBehindPlans,
            layout.owner};
}

void addSteps(StepTable& table, const PixelLayout& layout, unsigned long start, unsigned long count)
{
    for (unsigned long t = start; t < start + count; ++t) {
        table.push_back(stepOf(layout, t));
    }
}

void setSteps(PixelLayout& layout, StepTable&& table)
{
    if (table.empty()) {
        return;
    }
    const StepLayout& step = table.front();
    layout.first = step.first;
    layout.pixelStride = step.pixelStride;
    layout.rowBytes = step.rowBytes;
    layout.planBytes = step.planBytes;
    layout.channelBytes = step.channelBytes;
    layout.stepBytes = 0;
    layout.bDense = std::ranges::all_of(table, &StepLayout::bDense);
    layout.bRoomBehindPlans = std::ranges::all_of(table, &StepLayout::bRoomBehindPlans);
    layout.owner = step.owner;
    layout.steps = table.size() > 1 ? boost::make_shared<const StepTable>(std::move(table)) : nullptr;
}

} // namespace orlix::image
