// Messages of ORLIXImage.
#include "ORLIXIPL/ORLIXImage/Logger/ORLIXImageLogMessages.h"

#include "ORLIX/ORLIXUtil/CatalogueRegistration.h"
#include "ORLIXIPL/ORLIXImage/Logger/ORLIXImageLog.h"

namespace orlix {

using image::eORLIXImageMessage;

LibraryLog& MessageCatalogue<eORLIXImageMessage>::log()
{
    return image::getORLIXImageLog();
}

const std::vector<MessageText>& MessageCatalogue<eORLIXImageMessage>::texts()
{
    static const std::vector<MessageText> g_texts = {
        {eORLIXImageMessage::eUnknownBufferType, "Buffer type %d has no range of values: give one from 1 to 11"},
        {eORLIXImageMessage::eTypeCountMismatch,
         "A geometry of %d time steps needs one buffer type per step, but %d were given: give as many as steps"},
        {eORLIXImageMessage::eSizeOverflow,
         "The size of an image of %s does not fit in 63 bits: make one of its five sizes smaller"},
        {eORLIXImageMessage::eNoBufferType,
         "An image of %s can't be made, since it has no element type: give a buffer type from 1 to 11"},
        {eORLIXImageMessage::eOutOfMemory,
         "An image of %s needs %d bytes, which can't be had: make it smaller or free some memory"},
        {eORLIXImageMessage::eWrapSeveralTypes,
         "An image of %s can't lie over given memory, since its steps differ in type: wrap one type at a time"},
        {eORLIXImageMessage::eWrapNullPointer,
         "An image of %s can't lie over a null pointer: give the address of its first element"},
        {eORLIXImageMessage::eWrapMisaligned,
         "An image of %s can't start at address %s: give one that is a multiple of its element size, %d"},
        {eORLIXImageMessage::eWrapOverlap,
         "Elements of an image of %s would overlap: the %s stride is %d elements, but must be %d or more"},
        {eORLIXImageMessage::eWrapOverflow,
         "An image of %s with the given strides reaches beyond the address space: check sizes and strides"},
        {eORLIXImageMessage::ePlanOutOfRange,
         "There is no plan (z=%d, c=%d, t=%d) in an image of %s: give indices below its sizes"},
        {eORLIXImageMessage::eStorageTypeMismatch,
         "Elements of time step %d are of type %s, in an image of %s: ask for them by the C++ type that stores it"},
        {eORLIXImageMessage::eNoHostPixels,
         "An image of %s is on a GPU, but has to be in the memory of the host: bring it there with toHost first"},
        {eORLIXImageMessage::eCannotGrow,
         "An image of %s can't grow in place, since it doesn't own its pixels in host memory: grow a copy of it"},
        {eORLIXImageMessage::eNotGrowth,
         "An image of %s can't become one of %s in place: only time steps can be added, behind the last"},
        {eORLIXImageMessage::eGpuNotUsable, "GPU %d can't be used for an image of %s: %s. Take one that `orlix info "
                                            "--devices` names, or work on the host"},
        {eORLIXImageMessage::eOutOfGpuMemory,
         "An image of %s needs %d bytes on GPU %d, which can't be had: %s. Make it smaller or free images there"},
        {eORLIXImageMessage::eNotMovedToGpu, "The pixels of an image of %s could not be moved to GPU %d: %s"},
        {eORLIXImageMessage::eNotMovedFromGpu, "The pixels of an image of %s could not be moved from GPU %d: %s"},
        {eORLIXImageMessage::eNoPlanTable,
         "The places of the plans of an image of %s could not be written down on GPU %d: %s"},
        {eORLIXImageMessage::eCannotGrowOnGpu,
         "An image of %s is on a GPU, where none can grow in place: bring it to the host with toHost first"},
        {eORLIXImageMessage::eNotForwards,
         "Pixels or rows of an image of %s don't follow one another forwards in memory: use stridedPlanData and "
         "elementStrides"}};
    return g_texts;
}

namespace {

const CatalogueRegistration<eORLIXImageMessage> g_registration;

} // namespace

} // namespace orlix
