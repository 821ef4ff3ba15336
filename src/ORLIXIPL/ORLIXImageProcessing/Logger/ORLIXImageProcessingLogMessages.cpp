// Messages of ORLIXImageProcessing.
#include "ORLIXIPL/ORLIXImageProcessing/Logger/ORLIXImageProcessingLogMessages.h"

#include "ORLIX/ORLIXUtil/CatalogueRegistration.h"
#include "ORLIXIPL/ORLIXImageProcessing/Logger/ORLIXImageProcessingLog.h"

namespace orlix {

LibraryLog& MessageCatalogue<imaproc::eImageRuleMessage>::log()
{
    return imaproc::getORLIXImageProcessingLog();
}

const std::vector<MessageText>& MessageCatalogue<imaproc::eImageRuleMessage>::texts()
{
    using Message = imaproc::eImageRuleMessage;
    static const std::vector<MessageText> g_texts = {
        {Message::eSizeOrTypeDiffers, "%s is %s, %s is %s: sizes and element types have to be the same"},
        {Message::eStripSizeOrTypeDiffers,
         "The strip of %s is %s %s, that of %s is %s %s: sizes and element types have to be the same"},
        {Message::eNotInSitu, "%s and %s have to hold the same image"},
        {Message::eInSitu, "%s and %s must not hold the same image: give two"},
        {Message::eWrongBufferType, "%s is %s, but has to be of element type %s, as %s tells"},
        {Message::eWrongImageType, "%s holds %s, but %s is required"},
        {Message::eOutOfRange, "%s is %s, but has to lie within the range of %s, the element type of %s: %s to %s"},
        {Message::eNothingHeld, "%s holds no image: set it before the run"},
        {Message::eSizeDiffers, "%s is %s, %s is %s: %s have to be the same"},
        {Message::eStripSizeDiffers, "The strip of %s is %s, that of %s is %s: sizes have to be the same"},
        {Message::eNotOfFixedType, "%s is %s, but has to be of element type %s"},
        {Message::eTypeDiffers, "%s is %s, %s is %s: element types have to be the same"},
        {Message::ePropertyDiffers, "%s is %s, but needs %s"},
        {Message::ePropertyWithoutInput,
         "There is no image from which another one's properties follow: set it, and keep the processor that holds it"},
        {Message::ePropertyDiffersFor, "%s is %s, but needs %s: %s"},
        {Message::ePlansDiffer,
         "%s is for %d plans of %d channels at %d times, but %s is %s: give an entry to each of its plans"},
        {Message::eVolumesDiffer,
         "%s is for %d plans of %d channels at %d times, but %s is %s: give an entry to each of "
         "its volumes, at plan 0"},
        {Message::eVolumeTypeDiffers, "%s has %s, %s has %s: give volumes or single plans for both"},
        {Message::eColorTypeDiffers,
         "%s has %d channels, %s has %d: give images of one channel, or of several, for both"},
        {Message::eRegionOutside, "%s is %s, the region %s at (%s) ends at %s = %s"},
        {Message::eRegionNeedsVolume, "%s is %s, a single plan: the region %s at (%s) needs a volume"},
        {Message::eWrongMemory, "%s holds %s, but %s is required: bring it there with %s first"}};
    return g_texts;
}

LibraryLog& MessageCatalogue<imaproc::eImageSplitMessage>::log()
{
    return imaproc::getORLIXImageProcessingLog();
}

const std::vector<MessageText>& MessageCatalogue<imaproc::eImageSplitMessage>::texts()
{
    using Message = imaproc::eImageSplitMessage;
    static const std::vector<MessageText> g_texts = {
        {Message::eNullImage, "There is no image to cut: set the attribute that holds it"},
        {Message::eSeveralPlans, "Strips are cut from one plan, but the image is %s: cut it into plans first"},
        {Message::eBadCut,
         "An element is either a plan of a volume cut plan by plan or a whole volume: ask for one of the two"},
        {Message::eNoSuchElement, "There is no element %d in a list of %d"},
        {Message::eInputMissing,
         "The output image can't be made, since the input is not there: set the input before the run"},
        {Message::eNoCollection,
         "There is no collection to take the entries of plans from: set the attribute that holds it"},
        {Message::eTooManyPlans, "%d plans of %d channels at %d times are more than can be counted"},
        {Message::ePlanLacksEntry, "%s has no entry for plan %d of channel %d at time %d: every plan needs one"},
        {Message::eSeveralVolumes,
         "A volume has one channel and one time step, but the image is %s: cut it into volumes first"},
        {Message::eLinesOutside, "There are no %d lines from line %d on in %d lines: ask for lines within them"},
        {Message::ePlansOutside, "There are no %d plans from plan %d on in %d plans: ask for plans within them"},
        {Message::eRangeOutside, "There is no range of %d from %d on in %d: ask for one within them"},
        {Message::eWrongCollection,
         "%s takes no entries of a collection of class %s: give one of the class that the split is made for"},
        {Message::eBoxOutside, "The strip of %s is %s, which does not hold %s from (%s) on: ask for pixels within it"},
        {Message::eStripTypesDiffer, "The strip of %s is %s, that of %s is %s: element types have to be the same"},
        {Message::eNotOnHost,
         "The image of %s, which is %s, is on a GPU, but has to be in the memory of the host: bring it there with "
         "toHost first. Operators that work on a GPU want all of their images there, and GPU support switched on"},
        {Message::eNotCutOnDevice, "An image on a GPU is not cut, but one element: ask for the image as it is"},
        {Message::eNotOnDevice,
         "%s, which is %s, is in the memory of the host, but has to be on a GPU: bring it there with toDevice first"},
        {Message::eDevicesDiffer,
         "%s is on GPU %d, %s on GPU %d: bring all images to one of them with toDevice first"}};
    return g_texts;
}

namespace {

const CatalogueRegistration<imaproc::eImageRuleMessage> g_imageRuleMessages;
const CatalogueRegistration<imaproc::eImageSplitMessage> g_imageSplitMessages;

} // namespace

} // namespace orlix
