// The level below a dispatcher under test: a processor that writes down what it was given, and splits that feed it.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseDataSplit.h"
#include "ORLIXBaseProcessing/TestLibrary.h"

#include <atomic>
#include <mutex>
#include <utility>

namespace orlix::processor::test {

struct LineRange
{
    unsigned long start = 0;
    unsigned long size = 0;
    friend auto operator<=>(const LineRange&, const LineRange&) = default;
};

struct InLines final : NamedAttribute<InLines, BaseValueAttribute<LineRange>>
{
    static constexpr const char* g_name = "InLines";
    static constexpr const char* g_toolTip = "A range of lines";
    bool isOptional() const override { return true; }
};

struct InMoreLines final : NamedAttribute<InMoreLines, BaseValueAttribute<LineRange>>
{
    static constexpr const char* g_name = "InMoreLines";
    static constexpr const char* g_toolTip = "Another range of lines";
    bool isOptional() const override { return true; }
};

/// What elements saw.
struct Seen
{
    double number;
    LineRange lines;
    LineRange moreLines;
};

class LowerProcessor final
    : public Scaffold<LowerProcessor, BaseSyncProcessor, TestLibrary, InOptNumber, InLines, InMoreLines>
{
public:
    static constexpr ProcessorText g_text{"LowerProcessor", eTestToolTip::eLower, "LowerProcessor.h"};

    RulePtr createRule() const { return none(); }
    void initOutputInitializers(OutputInitializerMap&) const {}

    /// What the elements of all processors saw since the last call, in the order in which they ended.
    static std::vector<Seen> takeSeen()
    {
        const std::lock_guard<std::mutex> lock(mutex());
        return std::exchange(seen(), {});
    }

protected:
    ProcessingResult<bool> mainProcess() override
    {
        const std::lock_guard<std::mutex> lock(mutex());
        seen().push_back({accessAttribute<InOptNumber>()->getValue(), accessAttribute<InLines>()->getValue(),
                          accessAttribute<InMoreLines>()->getValue()});
        return true;
    }

private:
    static std::mutex& mutex()
    {
        static std::mutex g_mutex;
        return g_mutex;
    }
    static std::vector<Seen>& seen()
    {
        static std::vector<Seen> g_seen;
        return g_seen;
    }
};

/// A class that no split here feeds.
class OtherProcessor final : public Scaffold<OtherProcessor, BaseSyncProcessor, TestLibrary, InOptNumber>
{
public:
    static constexpr ProcessorText g_text{"OtherProcessor", eTestToolTip::eRecorder, "OtherProcessor.h"};

    RulePtr createRule() const { return none(); }
    void initOutputInitializers(OutputInitializerMap&) const {}

protected:
    ProcessingResult<bool> mainProcess() override { return true; }
};

/// Notices two threads in the splits of a dispatcher at once.
class OneAtATime
{
public:
    static bool wasBroken() { return broken().exchange(false); }
    OneAtATime()
    {
        if (inside()++ != 0) {
            broken() = true;
        }
    }
    ~OneAtATime() { --inside(); }

private:
    static std::atomic<int>& inside()
    {
        static std::atomic<int> g_inside{0};
        return g_inside;
    }
    static std::atomic<bool>& broken()
    {
        static std::atomic<bool> g_broken{false};
        return g_broken;
    }
};

/// Gives element i the number 10 i; element `m_failing` fails.
class NumberSplit final : public BaseStaticSplit
{
public:
    explicit NumberSplit(unsigned long nbElements, bool bHasElements = true)
        : m_nbElements(nbElements), m_bHasElements(bHasElements)
    {}
    const std::string& getAttributeName() const override { return InOptNumber::getObjectNameStr(); }
    const std::string& getAttributeToolTip() const override { return InOptNumber::getToolTipStr(); }
    bool checkProcessorType(const BaseProcessor& lower) const override
    {
        return details::isProcessor<LowerProcessor>(lower);
    }
    eSplitStaticType getSplitStaticType() const override { return eSplitStaticType::eStaticNoSplit; }
    ProcessingResult<bool> processAttribute(BaseProcessor& lower, unsigned int index,
                                            const core::BaseRequestOrigin& origin) override
    {
        const OneAtATime visit;
        if (index == m_failing || index != origin.getElement()) {
            return ProcessingResult<bool>::failure("no element " + std::to_string(index));
        }
        static_cast<LowerProcessor&>(lower).set<InOptNumber>(10.0 * index);
        return true;
    }
    ElementDemand getElementDemand() const override { return {m_bHasElements, m_nbElements, m_cost}; }
    void clear() override { ++m_nbCleared; }

    unsigned long m_failing = ~0UL;
    unsigned long m_cost = 1UL << 40;
    int m_nbCleared = 0;

private:
    unsigned long m_nbElements;
    bool m_bHasElements;
};

/// Gives ranges of lines to `TAttribute`.
template <class TAttribute>
class LineSplit final : public BaseDynamicSplit
{
public:
    explicit LineSplit(const RangeDemand& demand) : m_demand(demand) {}
    const std::string& getAttributeName() const override { return TAttribute::getObjectNameStr(); }
    const std::string& getAttributeToolTip() const override { return TAttribute::getToolTipStr(); }
    bool checkProcessorType(const BaseProcessor& lower) const override
    {
        return details::isProcessor<LowerProcessor>(lower);
    }
    eSplitDynamicType getSplitDynamicType() const override { return eSplitDynamicType::eDynamicNoSplit; }
    ProcessingResult<bool> processAttribute(BaseProcessor& lower, unsigned long start, unsigned long size,
                                            const core::BaseRequestOrigin&) override
    {
        const OneAtATime visit;
        if (start == m_failingStart) {
            return ProcessingResult<bool>::failure("no lines from " + std::to_string(start));
        }
        static_cast<LowerProcessor&>(lower).set<TAttribute>(LineRange{start, size});
        return true;
    }
    RangeDemand getRangeDemand() const override { return m_demand; }
    void initRanges(unsigned long nbLines, unsigned long linesPerRange) override
    {
        m_ranges = {nbLines, linesPerRange};
    }
    void clear() override { ++m_nbCleared; }

    LineRange m_ranges; ///< lines in all and per range, as told
    unsigned long m_failingStart = ~0UL;
    int m_nbCleared = 0;

private:
    RangeDemand m_demand;
};

} // namespace orlix::processor::test
