// A tower of rows with a slip in it, which one the command line says. It must not compile.
#include "ORLIXIPL/ORLIXImageProcessing/KernelRows.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/DispatchLevel.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/KernelLevel.h"

namespace orlix::imaproc {

struct RowLibrary
{
    static constexpr const char* g_name = "RowLibrary";
    static constexpr const char* g_namespace = "orlix::imaproc";
    static std::string toolTip(int) { return "A level of rows"; }
};
struct InPicture final : processor::NamedAttribute<InPicture, BaseInputImageAttribute>
{
    static constexpr const char* g_name = "InPicture";
    static constexpr const char* g_toolTip = "A picture that comes in";
};
struct InStrip final : processor::NamedAttribute<InStrip, BaseInputYStrip2dAttribute>
{
    static constexpr const char* g_name = "InStrip";
    static constexpr const char* g_toolTip = "A strip that comes in";
};
struct InNumber final : processor::NamedAttribute<InNumber, processor::BaseValueAttribute<double>>
{
    static constexpr const char* g_name = "InNumber";
    static constexpr const char* g_toolTip = "A number";
};

#ifdef A_NUMBER_IS_PARSED
using NumberRow = Raw<InNumber>;
#else
using NumberRow = Plain<InNumber>;
#endif

class Lvl3 final : public KernelLevel<Lvl3, RowLibrary, TypedBy<InStrip>, Raw<InStrip>, NumberRow>
{
public:
    static constexpr processor::ProcessorText g_text{"Lvl3", 0};
    using Rule = processor::NoRule;

    template <class T, eInstructionSet::domain ISA>
    ProcessingResult<bool> genericProcessFunction(const processor::ProcessingInfo&)
    {
        return succeed();
    }
};

ORLIX_KERNEL_SETS(Lvl3, plain, sse2)
#ifdef A_SET_IS_NOT_NAMED
ORLIX_KERNEL_TABLE(Lvl3, avx2, OnlyReal32)
#else
ORLIX_KERNEL_TABLE(Lvl3, plain, OnlyReal32)
#endif

#ifdef A_ROW_IS_MISSING
class Lvl2 final : public StripLevel<Lvl2, RowLibrary, Lvl3, ByYStrip<InPicture, InStrip>>
#else
class Lvl2 final : public StripLevel<Lvl2, RowLibrary, Lvl3, ByYStrip<InPicture, InStrip>, SameForStrips<InNumber>>
#endif
{
public:
    static constexpr processor::ProcessorText g_text{"Lvl2", 0};
    using Rule = processor::NoRule;
    using Initializers = processor::AllOutputsGiven;
};

boost::shared_ptr<processor::BaseProcessor> makeLevel()
{
    return Lvl2::createBaseProcessor();
}

} // namespace orlix::imaproc
