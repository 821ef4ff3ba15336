// Distances and block size of a new image, all products checked.
#include "ORLIXIPL/ORLIXImage/DenseLayout.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImage/CheckedArithmetic.h"
#include "ORLIXIPL/ORLIXImage/FindMemoryPlace.h"
#include "ORLIXIPL/ORLIXImage/Logger/ORLIXImageLogMessages.h"
#include "ORLIXIPL/ORLIXImage/PixelMemory.h"
#include "ORLIXIPL/ORLIXImage/StepTable.h"

namespace orlix::image {

namespace {

bool isEmpty(const BaseImageGeometry& geometry)
{
    return geometry.getSizeX() == 0 || geometry.getSizeY() == 0 || geometry.getSizeZ() == 0 ||
           geometry.getSizeC() == 0 || geometry.getSizeT() == 0;
}

// Bytes of an element of step t.
unsigned long checkedElementSize(const BaseImageGeometry& geometry, unsigned long t)
{
    const unsigned long size = elementSize(geometry.getBufferType(t));
    if (size == 0) {
        raise<eORLIXImageMessage>(ORLIX_HERE, eORLIXImageMessage::eNoBufferType, geometry.toString());
    }
    return size;
}

// Elements from a plan to the next, a multiple of 64 so that a plan of any element type starts on its boundary. The
// room also keeps plans of power-of-two sizes from lying a multiple of 4096 bytes apart, where they would share cache
// sets.
CheckedSize planDistance(CheckedSize planElements)
{
    return roundedUp(planElements, g_planAlignment) + g_roomElements;
}

unsigned long checkedBytes(CheckedSize bytes, const BaseImageGeometry& geometry)
{
    if (!bytes.isValid()) {
        raise<eORLIXImageMessage>(ORLIX_HERE, eORLIXImageMessage::eSizeOverflow, geometry.toString());
    }
    return bytes.getValue();
}

// No element exists, so every plan may start at the block's first byte, and the sizes need not be multiplied.
DenseLayout makeEmptyLayout(const BaseImageGeometry& geometry)
{
    for (unsigned long t = 0; t < (geometry.hasUniformBufferType() ? 1 : geometry.getSizeT()); ++t) {
        if (geometry.getSizeT() > 0) {
            checkedElementSize(geometry, t);
        }
    }
    const unsigned long size = elementSize(geometry.getBufferType());
    DenseLayout result;
    result.layout.rowBytes = static_cast<long>(geometry.getSizeX() * size);
    result.layout.bRoomBehindPlans = true;
    result.bytes = g_roomElements * sizeof(float);
    return result;
}

// The steps of a block in which types differ by step: the same distances in elements, in bytes those of the step's
// type.
StepTable stepsOfTypes(const BaseImageGeometry& geometry, const DenseLayout& dense)
{
    const StepLayout first = stepOf(dense.layout, 0);
    const auto firstSize = static_cast<long>(elementSize(geometry.getBufferType()));
    StepTable table(dense.stepOffsets.size(), first);
    for (unsigned long t = 0; t < table.size(); ++t) {
        const auto size = static_cast<long>(elementSize(geometry.getBufferType(t)));
        table[t].first += dense.stepOffsets[t];
        table[t].rowBytes = first.rowBytes / firstSize * size;
        table[t].planBytes = first.planBytes / firstSize * size;
        table[t].channelBytes = first.channelBytes / firstSize * size;
    }
    return table;
}

} // namespace

DenseLayout makeDenseLayout(const BaseImageGeometry& geometry)
{
    if (isEmpty(geometry)) {
        return makeEmptyLayout(geometry);
    }
    const unsigned long firstSize = checkedElementSize(geometry, 0);
    const CheckedSize planElements = CheckedSize(geometry.getSizeX()) * geometry.getSizeY();
    const CheckedSize distance = planDistance(planElements);
    const CheckedSize channel = distance * geometry.getSizeZ();
    const CheckedSize step = channel * geometry.getSizeC();

    CheckedSize bytes = step * geometry.getSizeT() * firstSize;
    unsigned long lastSize = firstSize;
    DenseLayout result;
    if (!geometry.hasUniformBufferType()) {
        result.stepOffsets.reserve(geometry.getSizeT());
        bytes = 0;
        for (unsigned long t = 0; t < geometry.getSizeT(); ++t) {
            result.stepOffsets.push_back(bytes.getValue());
            lastSize = checkedElementSize(geometry, t);
            bytes = bytes + step * lastSize;
        }
    }
    result.bytes = checkedBytes(bytes, geometry);
    // Behind the last plan nothing is rounded, so that tools which watch the block's end see the first byte too many.
    result.bytes -= (distance.getValue() - planElements.getValue() - g_roomElements) * lastSize;
    result.layout.rowBytes = static_cast<long>(geometry.getSizeX() * firstSize);
    result.layout.planBytes = static_cast<long>(distance.getValue() * firstSize);
    result.layout.channelBytes = static_cast<long>(channel.getValue() * firstSize);
    result.layout.stepBytes = static_cast<long>(step.getValue() * firstSize);
    result.layout.bRoomBehindPlans = true;
    result.layout.place = findMemoryPlace(result.bytes);
    return result;
}

PixelLayout allocateDense(const BaseImageGeometry& geometry)
{
    DenseLayout dense = makeDenseLayout(geometry);
    PixelLayout& layout = dense.layout;
    layout.owner = allocatePixels(dense.bytes);
    if (!layout.owner) {
        raise<eORLIXImageMessage>(ORLIX_HERE, eORLIXImageMessage::eOutOfMemory, geometry.toString(), dense.bytes);
    }
    layout.first = static_cast<std::byte*>(layout.owner.get());
    setSteps(layout, stepsOfTypes(geometry, dense));
    return layout;
}

} // namespace orlix::image
