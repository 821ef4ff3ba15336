// The lowest level: parsers are made, a kernel is chosen and called block by block, and all is put back.
#include "ORLIX/ORLIXBaseProcessing/BaseProcessingAlgorithm.h"

#include "ORLIXBaseProcessing/KernelProcessors.h"

#include <gtest/gtest.h>

namespace orlix::processor::test {
namespace {

using Algorithm = TestAlgorithm<0>;

boost::shared_ptr<Algorithm> makeReady()
{
    enterRow<Algorithm, eInstructionSet::eNone>(0);
    enterRow<Algorithm, eInstructionSet::eNone>(1);
    return makeAlgorithm<Algorithm>();
}

TEST(BaseProcessingAlgorithm, CallsTheKernelForEachBlockThatTheParsersGive)
{
    const auto algorithm = makeReady();
    algorithm->m_nbBlocks = {2, 2};
    EXPECT_EQ(algorithm->run(), "no failure");
    const Calls& calls = algorithm->m_calls;
    EXPECT_EQ(calls.front(), "init");
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "clear"), 1);
    EXPECT_EQ(calls.back(), "clear");
    const auto at = [&](const std::string& call, int which = 0) {
        auto place = std::find(calls.begin(), calls.end(), call);
        for (; which > 0; --which) {
            place = std::find(place + 1, calls.end(), call);
        }
        return place - calls.begin();
    };
    for (const int block : {0, 1}) {
        for (const std::string parser : {"1", "2"}) {
            EXPECT_LT(at("start" + parser + "." + std::to_string(block)), at("kernel", block));
            EXPECT_LT(at("kernel", block), at("end" + parser, block));
        }
    }
    EXPECT_LT(at("end1", 0), at("start1.1")) << "a block is put back before the next one starts";
    EXPECT_LT(at("end2", 0), at("start2.1"));
}

TEST(BaseProcessingAlgorithm, TheFirstParserDescribesTheBlock)
{
    const auto algorithm = makeReady();
    algorithm->m_nbBlocks = {3, 3};
    EXPECT_EQ(algorithm->run(), "no failure");
    ASSERT_EQ(algorithm->m_infos.size(), 3u);
    for (unsigned long block = 0; block < 3; ++block) {
        EXPECT_EQ(algorithm->m_infos[block].nbElements, 10u);
        EXPECT_EQ(algorithm->m_infos[block].nbBlocks, 3u);
        EXPECT_EQ(algorithm->m_infos[block].currentLine, block);
        EXPECT_EQ(algorithm->m_infos[block].firstElement, 0u);
    }
}

TEST(BaseProcessingAlgorithm, WithoutBlocksNoKernelIsCalled)
{
    const auto algorithm = makeReady();
    algorithm->m_nbBlocks = {0, 0};
    EXPECT_EQ(algorithm->run(), "no failure");
    EXPECT_TRUE(algorithm->m_infos.empty());
}

TEST(BaseProcessingAlgorithm, WithoutParsersTheKernelIsCalledOnce)
{
    const auto algorithm = makeReady();
    for (const unsigned type : {1u, 0u}) {
        algorithm->m_type = type;
        algorithm->m_infos.clear();
        EXPECT_EQ(algorithm->run(), "no failure");
        ASSERT_EQ(algorithm->m_infos.size(), 1u);
        EXPECT_EQ(algorithm->m_infos[0].nbElements, ~0UL);
        EXPECT_EQ(algorithm->m_infos[0].currentLine, 0u);
        EXPECT_EQ(algorithm->m_infos[0].firstElement, 0u);
    }
}

TEST(BaseProcessingAlgorithm, DataCutDifferentlyIsAFailure)
{
    const auto algorithm = makeReady();
    algorithm->m_nbBlocks = {3, 2};
    EXPECT_EQ(algorithm->run(), "TestAlgorithm: the data of all attributes must be cut alike, but one has 3 blocks and "
                                "another 2");
    EXPECT_TRUE(algorithm->m_infos.empty());
}

TEST(BaseProcessingAlgorithm, TypesWithoutAKernelAreAFailure)
{
    const auto algorithm = makeReady();
    algorithm->m_type = 9;
    EXPECT_EQ(algorithm->run(), "TestAlgorithm has no kernel for type 9: convert the data first");
    EXPECT_EQ(algorithm->m_calls.back(), "clear");
}

TEST(BaseProcessingAlgorithm, ParsersAreClearedWhateverHappens)
{
    const std::pair<std::string, std::string> table[] = {
        {"kernel", "the kernel failed"}, {"types", "no types"}, {"parsers", "no parsers"}};
    for (const auto& [failAt, message] : table) {
        const auto algorithm = makeReady();
        algorithm->m_nbBlocks = {2};
        algorithm->m_failAt = failAt;
        EXPECT_EQ(algorithm->run(), message);
        EXPECT_EQ(algorithm->m_calls.back(), "clear") << failAt;
        EXPECT_LE(algorithm->m_infos.size(), 1u) << "no block after a failed one";
        algorithm->m_failAt.clear();
        EXPECT_EQ(algorithm->run(), "no failure");
    }
    const auto algorithm = makeReady();
    algorithm->m_nbBlocks = {2};
    algorithm->m_failAt = "kernel throws";
    EXPECT_THROW(static_cast<void>(algorithm->run()), std::runtime_error);
    EXPECT_EQ(algorithm->m_calls.back(), "clear");
}

TEST(KernelScaffold, ForcedSetsBelongToTheClass)
{
    using Held = TestAlgorithm<1>;
    using Free = TestAlgorithm<2>;
    enterRow<Held, eInstructionSet::eNone>(1), enterRow<Held, eInstructionSet::eSSE2>(1);
    enterRow<Held, eInstructionSet::eAVX512>(1), enterRow<Free, eInstructionSet::eNone>(1);
    const auto held = makeAlgorithm<Held>();
    EXPECT_TRUE(Held::retrieveForcedInstructionSets().isEmpty());
    EXPECT_EQ(&Held::accessForcedInstructionSets(), &Held::retrieveForcedInstructionSets());
    EXPECT_EQ(&held->getForcedInstructionSets(), &Held::retrieveForcedInstructionSets());
    EXPECT_EQ(&held->getFunctionSelector(), &Held::retrieveFunctionSelector());
    EXPECT_EQ(&Held::accessFunctionSelector(), &Held::retrieveFunctionSelector());
    for (const eInstructionSet::domain set :
         {eInstructionSet::eNone, eInstructionSet::eSSE2, eInstructionSet::eAVX512}) {
        Held::forceInstructionSets({set});
        EXPECT_EQ(held->run(), "no failure");
        EXPECT_EQ(held->m_set, set);
        EXPECT_TRUE(Free::retrieveForcedInstructionSets().isEmpty());
    }
    Held::releaseForcedInstructionSets();
    EXPECT_TRUE(held->getForcedInstructionSets().isEmpty());
}

} // namespace
} // namespace orlix::processor::test
