// Splits: each feeds one attribute of the processors that a dispatcher makes.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseProcessor.h"
#include "ORLIX/ORLIXBaseProcessing/ElementsLocationInfo.h"
#include "ORLIX/ORLIXCore/ActionTypes.h"

#include <typeinfo>
#include <utility>

namespace orlix::processor {

struct eSplitBaseType
{
    enum domain { eStaticSplit = 0, eDynamicSplit = 1 };
    ORLIX_ENUMERATION(eSplitBaseType, eStaticSplit);
};
struct eSplitStaticType
{
    enum domain { eStaticNoSplit = 0, eSubImageSplit = 1, ePlanIndexedSplit = 2 };
    ORLIX_ENUMERATION(eSplitStaticType, eStaticNoSplit);
};
struct eSplitDynamicType
{
    enum domain {
        eDynamicNoSplit = 0,
        eImageStripSplit = 1,
        eDynamicByCreationResultSplit = 2,
        eDynamicByRangeDataSplit = 3,
        eImageTileCollSplit = 4
    };
    ORLIX_ENUMERATION(eSplitDynamicType, eDynamicNoSplit);
};

/// A split holds what it cuts from its set-up to `clear`, so that callers may let go of it. `processAttribute` of the
/// splits of one dispatcher is called by one thread at a time, so that a split may keep books without a lock.
class ORLIXBASEPROCESSING_API BaseDataSplit
{
public:
    virtual ~BaseDataSplit();

    virtual eSplitBaseType getSplitBaseType() const = 0;
    virtual const std::string& getAttributeName() const = 0;
    virtual const std::string& getAttributeToolTip() const = 0;
    /// Is `processor` of the class that this split feeds?
    virtual bool checkProcessorType(const BaseProcessor& processor) const = 0;

    /// This split no longer counts when the dispatcher chooses where elements run.
    void disableDataLocalization() { m_bLocalized = false; }
    void enableDataLocalization() { m_bLocalized = true; }
    bool isDataLocalized() const { return m_bLocalized; }

    /// Lets go of the data of the run that has ended.
    virtual void clear() = 0;

protected:
    /// Throws ORLIXBaseProcessingException: the split was given a null pointer where it needs data.
    [[noreturn]] void throwNullInputSharedPtr() const;

private:
    bool m_bLocalized = true;
};

/// What a static split says of its elements.
struct ElementDemand
{
    bool bHasElements;        ///< false for a split that gives every element the same and so has no count of its own
    unsigned long nbElements; ///< in all
    unsigned long cost;       ///< bytes that all elements of this split touch
};

/// The number of elements is known as soon as the split is initialised.
class ORLIXBASEPROCESSING_API BaseStaticSplit : public BaseDataSplit
{
public:
    eSplitBaseType getSplitBaseType() const override { return eSplitBaseType::eStaticSplit; }
    virtual eSplitStaticType getSplitStaticType() const = 0;
    /// Gives element `index` to `lower`.
    virtual ProcessingResult<bool> processAttribute(BaseProcessor& lower, unsigned int index,
                                                    const core::BaseRequestOrigin& origin) = 0;

    virtual ElementDemand getElementDemand() const = 0;
};

/// What a dynamic split asks of the ranges that it is given.
struct RangeDemand
{
    bool bHasLines;             ///< false for a split that gives every range the same and asks for nothing
    unsigned long nbLines;      ///< lines to be given out in all
    unsigned long lineBytes;    ///< of one line; 0 means that there is nothing in them, and then no range is given out
    unsigned long lineMultiple; ///< every range but the last holds a multiple of so many lines; at least 1
    unsigned long maxLines = ~0UL; ///< no range holds more, unless one multiple does
};

/// Gives out ranges of lines that the dispatcher decides, the same for all of its splits.
class ORLIXBASEPROCESSING_API BaseDynamicSplit : public BaseDataSplit
{
public:
    eSplitBaseType getSplitBaseType() const override { return eSplitBaseType::eDynamicSplit; }
    virtual eSplitDynamicType getSplitDynamicType() const = 0;
    /// Gives lines [start, start + size) to `lower`.
    virtual ProcessingResult<bool> processAttribute(BaseProcessor& lower, unsigned long start, unsigned long size,
                                                    const core::BaseRequestOrigin& origin) = 0;

    /// What an unsplitted one asks for, unless overridden.
    virtual RangeDemand getRangeDemand() const { return {false, 0, 0, 1}; }
    /// Told by the dispatcher before a run, once it has decided: every range but the last will hold `linesPerRange` of
    /// `nbLines` lines. Ranges may be asked for in any order.
    virtual void initRanges(unsigned long nbLines, unsigned long linesPerRange);

    /// A split that cuts nothing: `location` tells what its ranges touch beside the lines of the others. It no longer
    /// counts when the dispatcher chooses where elements run.
    void initUnSplitted(const ElementsLocationInfo& location)
    {
        m_location = location;
        disableDataLocalization();
    }
    const ElementsLocationInfo& getElementsLocationInfo() const { return m_location; }

private:
    ElementsLocationInfo m_location;
};

namespace details {

/// Cheap where the class is the very one, as it nearly always is.
template <class TProcessor>
bool isProcessor(const BaseProcessor& processor)
{
    return typeid(processor) == typeid(TProcessor) || dynamic_cast<const TProcessor*>(&processor) != nullptr;
}

} // namespace details

/// A split that feeds attribute `TAttribute` of processors of class `TProcessor`. `TBase` is what it gives them.
template <class TBase, class TProcessor, class TAttribute>
class FeedingSplit : public TBase
{
public:
    const std::string& getAttributeName() const override { return TAttribute::getObjectNameStr(); }
    const std::string& getAttributeToolTip() const override { return TAttribute::getToolTipStr(); }
    bool checkProcessorType(const BaseProcessor& lower) const override
    {
        return details::isProcessor<TProcessor>(lower);
    }

protected:
    /// Sets the attribute of `lower`, which is of class `TProcessor`.
    template <class TValue>
    static void feed(BaseProcessor& lower, TValue&& value)
    {
        static_cast<TProcessor&>(lower).template set<TAttribute>(std::forward<TValue>(value));
    }
};

} // namespace orlix::processor
