// A tower of the tests' own, described by rows: out = in + number for bytes, and how many pixels it came by.
#pragma once

#include "ORLIX/ORLIXBaseData/DataItemNode.h"
#include "ORLIX/ORLIXBaseProcessing/BaseValueAttributes.h"
#include "ORLIX/ORLIXBaseProcessing/DataItemAttributes.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/DispatchLevel.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/KernelLevel.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/ResultRows.h"
#include "ORLIXIPL/ORLIXImageProcessing/OutputInitializer/DuplicateInOut.h"
#include "ORLIXImageProcessing/TestAttributes.h"

#include <atomic>

namespace orlix::imaproc::test {

struct InNumber final : processor::NamedAttribute<InNumber, processor::BaseValueAttribute<double>>
{
    static constexpr const char* g_name = "InNumber";
    static constexpr const char* g_toolTip = "What is added";
};

struct StepRecord
{
    static constexpr const char* g_className = "orlix::imaproc::test::Step";
    unsigned long width = 1;

    template <class TVisitor>
    static void visit(TVisitor&& visitor)
    {
        visitor("width", &StepRecord::width);
    }
};
class Step final : public DataItemNode<Step, StepRecord>
{};
inline boost::shared_ptr<const Step> makeDoubleStep()
{
    auto step = boost::make_shared<Step>();
    step->width = 2;
    return step;
}
/// How many times the number is added; twice where nobody says.
struct InOptStep final : processor::NamedAttribute<InOptStep, processor::BaseInputOptionalDataItemAttribute<Step>>
{
    static constexpr const char* g_name = "InOptStep";
    static constexpr const char* g_toolTip = "How often it is added";
};

struct CountRecord
{
    static constexpr const char* g_className = "orlix::imaproc::test::Count";
    unsigned long nbPixels = 0;
    unsigned long firstLine = ~0UL; ///< the first that has a pixel of value 0 in the input
    unsigned long firstPlan = ~0UL;

    template <class TVisitor>
    static void visit(TVisitor&& visitor)
    {
        visitor("nbPixels", &CountRecord::nbPixels);
        visitor("firstLine", &CountRecord::firstLine);
        visitor("firstPlan", &CountRecord::firstPlan);
    }
};
class Count final : public DataItemNode<Count, CountRecord>
{
public:
    void reset() { static_cast<CountRecord&>(*this) = CountRecord(); }
    bool merge(const Count& part)
    {
        nbPixels += part.nbPixels;
        const bool bTakes = firstLine == ~0UL && part.firstLine != ~0UL;
        firstLine = bTakes ? part.firstLine : firstLine;
        return bTakes;
    }
    void placeIn(const PlanIndex& plan)
    {
        firstPlan = firstLine == ~0UL ? firstPlan : plan.z + 10 * plan.c + 100 * plan.t;
    }
};
struct OutCount final : processor::NamedAttribute<OutCount, processor::BaseOutputDataItemAttribute<Count>>
{
    static constexpr const char* g_name = "OutCount";
    static constexpr const char* g_toolTip = "Pixels, and where the first 0 lies";
};

/// How kernels came to be called since the last look.
struct KernelCalls
{
    std::atomic<unsigned> nbParsed{0}; ///< strips for which parsers were made
    std::atomic<unsigned> nbCalls{0};
};
inline KernelCalls& kernelCalls()
{
    static KernelCalls g_calls;
    return g_calls;
}

class AddLvl3 final : public KernelLevel<AddLvl3, PictureLibrary, TypedBy<InStrip>, Raw<InStrip>, Plain<InNumber>,
                                         Plain<InOptStep>, Raw<OutStrip>, Plain<OutCount>>
{
public:
    static constexpr processor::ProcessorText g_text{"AddLvl3", 0};
    using Rule = MatchSize<InStrip, OutStrip>;

    ProcessingResult<bool> kernel(const processor::ProcessingInfo& info)
    {
        const auto* const source = static_cast<const unsigned char*>(accessBlock<InStrip>());
        auto* const destination = static_cast<unsigned char*>(accessBlock<OutStrip>());
        const image::BaseImageYStrip2d& strip = accessAttribute<InStrip>()->getBaseImageYStrip2d();
        Count& count = accessAttribute<OutCount>()->getDataItemNode();
        for (unsigned long i = 0; i < info.nbElements; ++i) {
            destination[i] = static_cast<unsigned char>(source[i] + m_sum);
            if (source[i] == 0 && count.firstLine == ~0UL) {
                count.firstLine = strip.getStripStartOffsetY() + i / strip.getSizeX();
            }
        }
        count.nbPixels += info.nbElements;
        ++kernelCalls().nbCalls;
        return succeed();
    }
    static void enterKernel()
    {
        processor::DataTypeIdentifierColl types;
        types.init(ImageBufferTypeIdentifier(image::eImageBufferType::UInt8));
        processor::AlgorithmFunctionIdentifier row;
        row.init(types, {eInstructionSet::eNone}, 0, static_cast<processor::KernelFunction>(&AddLvl3::kernel));
        static_cast<void>(retrieveFunctionSelector().registerFunction(row)); // a repeated test has it already
    }

protected:
    processor::StepResult preProcess() override
    {
        accessAttribute<OutCount>()->getDataItemNode().reset();
        m_sum = static_cast<int>(accessAttribute<InNumber>()->getValue()) *
                static_cast<int>(accessAttribute<InOptStep>()->getDataItemNode().width);
        return processor::StepResult::success();
    }
    ProcessingResult<bool> initDataParserColl(processor::DataParserVector& parsers) override
    {
        ++kernelCalls().nbParsed;
        return KernelLevel::initDataParserColl(parsers);
    }

private:
    int m_sum = 0;
};

class AddLvl2 final
    : public StripLevel<AddLvl2, PictureLibrary, AddLvl3, ByYStrip<InPicture, InStrip>, SameForStrips<InNumber>,
                        SameForStrips<InOptStep>, ByYStrip<OutPicture, OutStrip>, MergedByStrip<OutCount>>
{
public:
    static constexpr processor::ProcessorText g_text{"AddLvl2", 0};
    using Rule = MatchSize<InPicture, OutPicture>;
    using Initializers = processor::AllOutputsGiven;
};

class AddLvl1 final
    : public imaproc::PlanLevel<AddLvl1, PictureLibrary, AddLvl2, ByPlan<InPicture>, Kept<InKind>,
                                SameForPlans<InNumber>, SameForPlans<InOptStep, InOptStep, OrElse<&makeDoubleStep>>,
                                ByPlan<OutPicture>, MergedByPlan<OutCount, InPicture>>
{
public:
    static constexpr processor::ProcessorText g_text{"AddLvl1", 0};
    using Rule = processor::AllOf<MatchSizeAndType<InPicture, OutPicture>, MatchRange<InPicture, InNumber>>;
    using Initializers =
        processor::OutputInitializers<DuplicateInOut<InPicture, OutPicture>, processor::Allocated<OutCount>>;
};

} // namespace orlix::imaproc::test
