// Rules about collections that are indexed by plan.
#pragma once

#include "ORLIX/ORLIXBaseData/BasePlanIndexedColl.h"
#include "ORLIX/ORLIXBaseProcessing/RuleTypes.h"
#include "ORLIXIPL/ORLIXImageProcessing/BaseImageAttributes.h"
#include "ORLIXIPL/ORLIXImageProcessing/Export.h"
#include "ORLIXIPL/ORLIXImageProcessing/Rule/RangeRules.h"

#include <boost/make_shared.hpp>

namespace orlix::imaproc {

/// What of an image has an entry each.
struct eImageParts
{
    enum domain {
        ePlans = 0,
        eVolumes = 1 ///< at z 0
    };
    ORLIX_ENUMERATION(eImageParts, ePlans);
};

/// Entries on the axes z, c and t.
inline PlanIndex nbEntriesOf(const image::BaseImage& image, const eImageParts& parts)
{
    return {parts == eImageParts::eVolumes ? 1 : image.getSizeZ(), image.getSizeC(), image.getSizeT()};
}

namespace details {
ORLIXIMAGEPROCESSING_API ProcessingResult<bool> checkImagePlans(const processor::BaseAttribute& attribute,
                                                                const BasePlanIndexedColl& coll,
                                                                const BaseImageAttribute& image,
                                                                const eImageParts& parts);
} // namespace details

/// The sizes of the collection that `TColl` holds are those of the image in plans, or in volumes. Whether every one has
/// an entry is for the split to see.
template <class TColl>
class MatchImagePlansRule final : public processor::BaseRule
{
public:
    MatchImagePlansRule(const processor::AttributeRef<const TColl>& coll,
                        const processor::AttributeRef<const BaseImageAttribute>& image, eImageParts parts)
        : m_coll(coll), m_image(image), m_parts(parts)
    {}

    ProcessingResult<bool> check() const override
    {
        const TColl* const coll = m_coll.access();
        const BaseImageAttribute* const image = m_image.access();
        if (coll == nullptr) {
            return processor::details::attributeGone();
        }
        if (!coll->isHeld()) {
            return processor::details::attributeEmpty(*coll);
        }
        if (ProcessingResult<bool> result = details::checkHeld(image); !result) {
            return result;
        }
        return details::checkImagePlans(*coll, coll->getDataItemNode(), *image, m_parts);
    }

private:
    processor::AttributeRef<const TColl> m_coll;
    processor::AttributeRef<const BaseImageAttribute> m_image;
    eImageParts m_parts;
};

template <class TColl, class TImage>
processor::RulePtr matchImagePlans(const boost::shared_ptr<TColl>& coll, const boost::shared_ptr<TImage>& image,
                                   eImageParts parts = eImageParts::ePlans)
{
    return boost::make_shared<MatchImagePlansRule<TColl>>(coll, image, parts);
}

/// The same as a type, see RuleTypes.h.
template <class TColl, class TImage, eImageParts::domain parts = eImageParts::ePlans>
struct MatchImagePlans
{
    template <class TAttributes>
    static processor::RulePtr make(const TAttributes& attributes)
    {
        return matchImagePlans(processor::own<TColl>(attributes), processor::own<TImage>(attributes), parts);
    }
    template <class TValues>
    static bool holds(const TValues& values)
    {
        const auto& coll = *values.template get<TColl>();
        return PlanIndex(coll.getMaxSizeZ(), coll.getMaxSizeC(), coll.getMaxSizeT()) ==
               nbEntriesOf(*values.template get<TImage>(), parts);
    }
};

} // namespace orlix::imaproc
