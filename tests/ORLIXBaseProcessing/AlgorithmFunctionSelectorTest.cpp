// The table of kernels: which row is chosen, and what is refused.
#include "ORLIX/ORLIXBaseProcessing/AlgorithmFunctionSelector.h"

#include "ORLIX/ORLIXBaseProcessing/BaseProcessingAlgorithm.h"
#include "ORLIX/ORLIXCore/InstructionSetAvailability.h"
#include "support/TestSettings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace orlix::processor {
namespace {

using Set = eInstructionSet;

class TestType final : public BaseDataTypeIdentifier
{
public:
    explicit TestType(unsigned id) { initBase(id); }
};

DataTypeIdentifierColl one(unsigned type)
{
    DataTypeIdentifierColl types;
    types.init(TestType(type));
    return types;
}
DataTypeIdentifierColl two(unsigned first, unsigned second)
{
    DataTypeIdentifierColl types;
    types.init(TestType(first), TestType(second));
    return types;
}

/// A class with kernels that can be told apart; they are never called.
class Kernels : public BaseProcessingAlgorithm
{
public:
    template <int tag>
    ProcessingResult<bool> kernel(const ProcessingInfo&)
    {
        return ProcessingResult<bool>::failure(std::to_string(tag));
    }
};

template <int tag>
KernelFunction kernel()
{
    return static_cast<KernelFunction>(&Kernels::kernel<tag>);
}

AlgorithmFunctionIdentifier row(const DataTypeIdentifierColl& types, Set::domain set, KernelFunction function)
{
    AlgorithmFunctionIdentifier identifier;
    identifier.init(types, {set}, static_cast<unsigned>(set), function);
    return identifier;
}

/// What is forced on classes that force nothing, for as long as it lives.
struct ScopedDefault
{
    explicit ScopedDefault(const InstructionSetsIdentifier& sets)
    {
        AlgorithmFunctionSelector::setDefaultForcedInstructionSets(sets);
    }
    ~ScopedDefault()
    {
        const auto set = orlix::testing::getForcedInstructionSet();
        AlgorithmFunctionSelector::setDefaultForcedInstructionSets(set ? InstructionSetsIdentifier{*set}
                                                                       : InstructionSetsIdentifier{});
    }
};

TEST(AlgorithmFunctionSelector, TheHighestFigureWinsInAnyOrderOfRegistration)
{
    const ScopedDefault scope({});
    for (const auto& order : {std::array{Set::eNone, Set::eSSE2, Set::eAVX512},
                              {Set::eAVX512, Set::eSSE2, Set::eNone},
                              {Set::eSSE2, Set::eAVX512, Set::eNone}}) {
        AlgorithmFunctionSelector selector;
        for (const Set::domain set : order) {
            EXPECT_TRUE(selector.registerFunction(row(one(2), set, kernel<1>())).getValue());
        }
        ASSERT_NE(selector.select(one(2), {}), nullptr);
        EXPECT_EQ(selector.select(one(2), {})->getEfficiency(), 8u);
        ASSERT_EQ(selector.getFunctions().size(), 3u);
        EXPECT_EQ(selector.getFunctions()[0].getEfficiency(), static_cast<unsigned>(order[0])) << "in their own order";
    }
}

TEST(AlgorithmFunctionSelector, GivesTheRowsOwnFunction)
{
    AlgorithmFunctionSelector selector;
    EXPECT_TRUE(selector.registerFunction(row(one(1), Set::eNone, kernel<1>())).getValue());
    EXPECT_TRUE(selector.registerFunction(row(one(2), Set::eNone, kernel<2>())).getValue());
    EXPECT_EQ(selector.select(one(1), {})->getFunction(), kernel<1>());
    EXPECT_EQ(selector.select(one(2), {})->getFunction(), kernel<2>());
    EXPECT_TRUE(selector.select(one(2), {})->getInstructionSets().contains(Set::eNone));
}

TEST(AlgorithmFunctionSelector, ForcedSetsAreACeiling)
{
    AlgorithmFunctionSelector selector;
    for (const Set::domain set : {Set::eSSE2, Set::eAVX2, Set::eAVX512}) {
        EXPECT_TRUE(selector.registerFunction(row(one(2), set, kernel<1>())).getValue());
    }
    const auto figureUnder = [&](const InstructionSetsIdentifier& forced) {
        return selector.select(one(2), forced)->getEfficiency();
    };
    const ScopedDefault nothingForced({});
    EXPECT_EQ(figureUnder({Set::eAVX512}), 8u);
    EXPECT_EQ(figureUnder({Set::eAVX2}), 7u);
    EXPECT_EQ(figureUnder({Set::eAVX}), 1u) << "no row of that set: the best one below";
    EXPECT_EQ(figureUnder({Set::eSSE2}), 1u);
    EXPECT_EQ(figureUnder({Set::eNone}), 8u) << "no row that low: the best of all";
    EXPECT_EQ(figureUnder({Set::eNone, Set::eAVX2, Set::eSSE2}), 7u) << "the highest of several";
    EXPECT_EQ(figureUnder({}), 8u);
}

TEST(AlgorithmFunctionSelector, TheProcessesDefaultHoldsForClassesThatForceNothing)
{
    AlgorithmFunctionSelector selector;
    for (const Set::domain set : {Set::eNone, Set::eSSE2, Set::eAVX2}) {
        EXPECT_TRUE(selector.registerFunction(row(one(2), set, kernel<1>())).getValue());
    }
    {
        const ScopedDefault scope({Set::eNone});
        EXPECT_EQ(selector.select(one(2), {})->getEfficiency(), 0u);
        EXPECT_EQ(selector.select(one(2), {Set::eAVX512})->getEfficiency(), 7u) << "the class's own wish comes first";
    }
    const ScopedDefault scope({});
    EXPECT_EQ(selector.select(one(2), {})->getEfficiency(), 7u);
}

TEST(AlgorithmFunctionSelector, TypesWithoutARowHaveNone)
{
    AlgorithmFunctionSelector selector;
    EXPECT_EQ(selector.select(one(1), {}), nullptr);
    EXPECT_TRUE(selector.registerFunction(row(one(1), Set::eNone, kernel<1>())).getValue());
    EXPECT_TRUE(selector.registerFunction(row(two(1, 2), Set::eNone, kernel<2>())).getValue());
    EXPECT_NE(selector.select(one(1), {}), nullptr);
    EXPECT_NE(selector.select(two(1, 2), {}), nullptr);
    for (const DataTypeIdentifierColl& types : {DataTypeIdentifierColl(), one(2), one(0), two(2, 1), two(1, 1)}) {
        EXPECT_EQ(selector.select(types, {}), nullptr) << types.toString();
    }
}

TEST(AlgorithmFunctionSelector, FindsTheRowWithoutTypes)
{
    AlgorithmFunctionSelector selector;
    EXPECT_TRUE(selector.registerFunction(row(DataTypeIdentifierColl(), Set::eNone, kernel<1>())).getValue());
    EXPECT_EQ(selector.select(DataTypeIdentifierColl(), {})->getFunction(), kernel<1>());
}

TEST(AlgorithmFunctionSelector, RefusesARowTwiceAndAFunctionThatIsNull)
{
    AlgorithmFunctionSelector selector;
    EXPECT_TRUE(selector.registerFunction(row(two(2, 7), Set::eAVX2, kernel<1>())).getValue());
    EXPECT_EQ(selector.registerFunction(row(two(2, 7), Set::eAVX2, kernel<2>())).getMessage(),
              "There is a kernel for types 2 and 7 with the figure of merit 7 already");
    EXPECT_EQ(selector.registerFunction(row(one(3), Set::eAVX2, nullptr)).getMessage(),
              "The kernel for type 3 is a null pointer");
    EXPECT_EQ(selector.getFunctions().size(), 1u);
    EXPECT_EQ(selector.select(two(2, 7), {})->getFunction(), kernel<1>()) << "the first one stays";
    EXPECT_EQ(selector.select(one(3), {}), nullptr);
}

TEST(AlgorithmFunctionSelector, SupportsWhatTheProcessorHas)
{
    EXPECT_TRUE(AlgorithmFunctionSelector::isSupported({}));
    EXPECT_TRUE(AlgorithmFunctionSelector::isSupported({Set::eNone}));
    bool bAll = true;
    for (const Set::domain set : g_allInstructionSets) {
        EXPECT_EQ(AlgorithmFunctionSelector::isSupported({set}), core::isAvailable(set));
        EXPECT_EQ(AlgorithmFunctionSelector::isSupported({Set::eNone, set}), core::isAvailable(set));
        bAll = bAll && core::isAvailable(set);
    }
    EXPECT_EQ(AlgorithmFunctionSelector::isSupported({Set::eSSE2, Set::eAVX, Set::eAVX2, Set::eAVX512}), bAll);
}

TEST(KernelIdentifiers, KeysOfTypesDiffer)
{
    std::vector<unsigned> keys = {DataTypeIdentifierColl().getKey()};
    for (unsigned first = 0; first < 16; ++first) {
        keys.push_back(one(first).getKey());
        for (unsigned second = 0; second < 16; ++second) {
            keys.push_back(two(first, second).getKey());
        }
    }
    std::sort(keys.begin(), keys.end());
    EXPECT_EQ(std::unique(keys.begin(), keys.end()), keys.end());
    EXPECT_LT(keys.back(), DataTypeIdentifierColl::g_nbKeys);
    EXPECT_EQ(DataTypeIdentifierColl().toString(), "no type");
    EXPECT_EQ(one(0).toString(), "type 0");
    EXPECT_EQ(one(15).toString(), "type 15");
    EXPECT_EQ(two(0, 0).toString(), "types 0 and 0");
    EXPECT_EQ(two(15, 2).toString(), "types 15 and 2");
}

TEST(KernelIdentifiers, SetsOfInstructionSets)
{
    InstructionSetsIdentifier sets;
    EXPECT_TRUE(sets.isEmpty());
    EXPECT_EQ(sets.getHighest(), Set::eNone);
    sets.init(Set::eNone);
    EXPECT_FALSE(sets.isEmpty());
    EXPECT_EQ(sets.getHighest(), Set::eNone);
    sets = {Set::eAVX, Set::eSSE2};
    EXPECT_EQ(sets.getHighest(), Set::eAVX);
    EXPECT_TRUE(sets.contains(Set::eSSE2));
    EXPECT_FALSE(sets.contains(Set::eAVX2));
    EXPECT_EQ(sets, (InstructionSetsIdentifier{Set::eSSE2, Set::eAVX}));
    sets.clear();
    EXPECT_EQ(sets, InstructionSetsIdentifier());
    EXPECT_EQ((AlgorithmFunctionEfficiency<Set::eAVX512, 0, 0>::getEfficiency()), 8u);
    EXPECT_EQ((AlgorithmFunctionEfficiency<Set::eAVX2, Set::eSSE2, 0>::getEfficiency()), 8u);
}

} // namespace
} // namespace orlix::processor
