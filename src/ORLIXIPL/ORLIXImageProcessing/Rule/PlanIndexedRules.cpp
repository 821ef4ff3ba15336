#include "ORLIXIPL/ORLIXImageProcessing/Rule/PlanIndexedRules.h"

#include "ORLIXIPL/ORLIXImageProcessing/Logger/ORLIXImageProcessingLogMessages.h"

namespace orlix::imaproc::details {

ProcessingResult<bool> checkImagePlans(const processor::BaseAttribute& attribute, const BasePlanIndexedColl& coll,
                                       const BaseImageAttribute& image, const eImageParts& parts)
{
    const PlanIndex found(coll.getMaxSizeZ(), coll.getMaxSizeC(), coll.getMaxSizeT());
    if (found == nbEntriesOf(image.getImage(), parts)) {
        return true;
    }
    const auto id =
        parts == eImageParts::eVolumes ? eImageRuleMessage::eVolumesDiffer : eImageRuleMessage::ePlansDiffer;
    return ProcessingResult<bool>::failure(formatMessage<eImageRuleMessage>(id, attribute.getObjectName(), found.z,
                                                                            found.c, found.t, image.getObjectName(),
                                                                            image.getImage().getGeometry().toString()));
}

} // namespace orlix::imaproc::details
