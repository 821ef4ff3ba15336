#include "ORLIXIPL/ORLIXIPLUtility/Processor/PixelBox.h"

#include "ORLIX/ORLIXUtil/NumberText.h"
#include "ORLIXIPL/ORLIXImage/PixelBlock.h"
#include "ORLIXIPL/ORLIXImageProcessing/Logger/ORLIXImageProcessingLogMessages.h"

namespace orlix::imaproc::util {

namespace {

using Message = eImageSplitMessage;

template <class TRows, class TStrip>
TRows rowsOfLines(const BaseStripAttribute& attribute, TStrip& strip)
{
    const PixelBoxSize size{strip.getSizeX(), strip.getStripSizeY(), 1};
    return {attribute,
            static_cast<decltype(TRows::first)>(strip.accessBuffer()),
            strip.getPixelStride(),
            strip.getLineBytes(),
            0,
            size,
            strip.getMemoryPlace()};
}
template <class TRows, class TStrip>
TRows rowsOfPlans(const BaseStripAttribute& attribute, TStrip& strip)
{
    const PixelBoxSize size{strip.getSizeX(), strip.getSizeY(), strip.getStripSizeZ()};
    return {attribute,
            static_cast<decltype(TRows::first)>(strip.accessBuffer(0)),
            strip.getPixelStride(),
            strip.getLineBytes(),
            strip.getBaseImage().getPixelLayout().planBytes,
            size,
            strip.getMemoryPlace()};
}

/// Bytes from the first element to that of a place.
template <class TRows>
long distanceTo(const PixelPlace& place, const TRows& rows, unsigned long elementBytes)
{
    return static_cast<long>(place.y) * rows.rowBytes + static_cast<long>(place.x * elementBytes) * rows.pixelStride;
}

bool isWithin(unsigned long start, unsigned long size, unsigned long whole)
{
    return start <= whole && size <= whole - start;
}

std::string toText(const PixelBoxSize& size)
{
    return numberText(size.x) + "x" + numberText(size.y) + "x" + numberText(size.z);
}

template <class TRows>
ProcessingResult<bool> checkWithin(const TRows& rows, const PixelPlace& at, const PixelBoxSize& size)
{
    return isWithin(at.x, size.x, rows.size.x) && isWithin(at.y, size.y, rows.size.y) && size.z <= rows.size.z
               ? ProcessingResult<bool>(true)
               : ProcessingResult<bool>::failure(
                     formatMessage<Message>(Message::eBoxOutside, rows.attribute.getObjectName(), toText(rows.size),
                                            toText(size), numberText(at.x) + ", " + numberText(at.y)));
}

} // namespace

InputRows inputRows(const BaseInputYStrip2dAttribute& attribute)
{
    return rowsOfLines<InputRows>(attribute, attribute.accessStrip());
}

InputRows inputRows(const BaseInputZStrip3dAttribute& attribute)
{
    return rowsOfPlans<InputRows>(attribute, attribute.accessStrip());
}

OutputRows outputRows(const BaseOutputYStrip2dAttribute& attribute)
{
    return rowsOfLines<OutputRows>(attribute, attribute.accessStrip());
}

OutputRows outputRows(const BaseOutputZStrip3dAttribute& attribute)
{
    return rowsOfPlans<OutputRows>(attribute, attribute.accessStrip());
}

OutputRows outputRows(const BaseInOutZStrip3dAttribute& attribute)
{
    return rowsOfPlans<OutputRows>(attribute, attribute.accessStrip());
}

ProcessingResult<bool> PixelBox::init(const InputRows& from, const PixelPlace& fromPlace, const OutputRows& to,
                                      const PixelPlace& toPlace, const PixelBoxSize& size)
{
    const image::eImageBufferType type = from.attribute.getImageBufferType();
    if (type != to.attribute.getImageBufferType()) {
        return ProcessingResult<bool>::failure(formatMessage<Message>(
            Message::eStripTypesDiffer, from.attribute.getObjectName(), image::getBufferTypeName(type),
            to.attribute.getObjectName(), image::getBufferTypeName(to.attribute.getImageBufferType())));
    }
    if (ProcessingResult<bool> result = checkWithin(from, fromPlace, size); !result) {
        return result;
    }
    if (ProcessingResult<bool> result = checkWithin(to, toPlace, size); !result) {
        return result;
    }
    elementBytes = image::elementSize(type);
    source = from.first + distanceTo(fromPlace, from, elementBytes);
    destination = to.first + distanceTo(toPlace, to, elementBytes);
    rowBytes = size.x * elementBytes;
    nbRows = rowBytes == 0 ? 0 : size.y;
    nbPlans = nbRows == 0 ? 0 : size.z;
    sourceRow = from.rowBytes;
    destinationRow = to.rowBytes;
    sourcePlan = from.planBytes;
    destinationPlan = to.planBytes;
    place = to.place;
    sourceStride = from.pixelStride;
    destinationStride = to.pixelStride;
    const auto dense = static_cast<long>(rowBytes);
    if (dense == sourceRow && dense == destinationRow && !isStrided()) {
        rowBytes *= nbRows;
        nbRows = nbPlans == 0 ? 0 : 1;
    }
    return true;
}

void PixelBox::copyStrided() const
{
    const auto element = static_cast<long>(elementBytes);
    image::copyBlock(reinterpret_cast<std::byte*>(destination),
                     {destinationStride * element, destinationRow, destinationPlan},
                     reinterpret_cast<const std::byte*>(source), {sourceStride * element, sourceRow, sourcePlan},
                     {rowBytes / elementBytes, nbRows, nbPlans}, elementBytes);
}

} // namespace orlix::imaproc::util
