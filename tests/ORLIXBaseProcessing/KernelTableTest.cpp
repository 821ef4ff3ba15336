// How the kernels of a file enter a table: rows in order, sets that the processor lacks left out, errors in the log.
#include "ORLIX/ORLIXBaseProcessing/KernelTable.h"

#include "ORLIX/ORLIXBaseProcessing/Logger/ORLIXBaseProcessingLog.h"
#include "ORLIX/ORLIXCore/InstructionSetAvailability.h"
#include "ORLIXBaseProcessing/KernelProcessors.h"
#include "ORLIXUtil/TestAppenders.h"

#include <gtest/gtest.h>
#include <log4cplus/logger.h>

namespace orlix::processor::test {
namespace {

using orlix::test::AttachedAppender;
using orlix::test::RecordingAppender;

constexpr KernelFunction g_kernel = testKernel<TestAlgorithm<3>, eInstructionSet::eNone>();
constexpr KernelRow g_rows[] = {{2, 0, g_kernel}, {1, 0, g_kernel}, {2, 7, g_kernel}, {0, 0, g_kernel}};

KernelTable table(eInstructionSet::domain set)
{
    return {set, g_rows, 4};
}

TEST(KernelTable, RowsEnterInTheirOrderWithTheSetsFigure)
{
    AlgorithmFunctionSelector selector;
    details::functionRegistration(selector, table(eInstructionSet::eSSE2));
    ASSERT_EQ(selector.getFunctions().size(), 4u);
    const std::vector<std::string> expected = {"type 2", "type 1", "types 2 and 7", "no type"};
    for (unsigned i = 0; i < 4; ++i) {
        const AlgorithmFunctionIdentifier& row = selector.getFunctions()[i];
        EXPECT_EQ(row.getDataTypes().toString(), expected[i]);
        EXPECT_EQ(row.getEfficiency(), 1u);
        EXPECT_EQ(row.getInstructionSets(), InstructionSetsIdentifier{eInstructionSet::eSSE2});
        EXPECT_EQ(row.getFunction(), g_kernel);
    }
}

TEST(KernelTable, SetsThatTheProcessorLacksEnterNothing)
{
    for (const eInstructionSet::domain set : g_allInstructionSets) {
        AlgorithmFunctionSelector selector;
        details::functionRegistration(selector, table(set));
        EXPECT_EQ(selector.getFunctions().size(), core::isAvailable(set) ? 4u : 0u);
    }
}

TEST(KernelTable, AnEmptyTableEntersNothing)
{
    AlgorithmFunctionSelector selector;
    details::functionRegistration(selector, {eInstructionSet::eNone, nullptr, 0});
    EXPECT_TRUE(selector.getFunctions().empty());
}

TEST(KernelTable, WhatCannotBeEnteredIsTracedAndLeftOut)
{
    const KernelRow rows[] = {{1, 0, g_kernel}, {1, 0, g_kernel}, {2, 0, nullptr}, {3, 0, g_kernel}};
    const KernelTable flawed{eInstructionSet::eNone, rows, 4};
    log4cplus::Logger logger = getORLIXBaseProcessingLogger();
    AttachedAppender<RecordingAppender> appender(logger);
    logger.setLogLevel(log4cplus::DEBUG_LOG_LEVEL);
    {
        AlgorithmFunctionSelector selector;
        EXPECT_NO_THROW(details::functionRegistration(selector, flawed));
        EXPECT_EQ(selector.getFunctions().size(), 2u);
    }
    EXPECT_TRUE(appender.get().m_events.empty()) << "nobody asked for traces";
    logger.setLogLevel(log4cplus::TRACE_LOG_LEVEL);
    AlgorithmFunctionSelector selector;
    details::functionRegistration(selector, flawed);
    details::functionRegistration(selector, {eInstructionSet::eSSE2, g_rows, 4}); // without a flaw: nothing to tell
    logger.setLogLevel(log4cplus::NOT_SET_LOG_LEVEL);
    ASSERT_EQ(appender.get().m_events.size(), 1u);
    EXPECT_EQ(appender.get().m_events[0].level, log4cplus::TRACE_LOG_LEVEL);
    EXPECT_EQ(appender.get().m_events[0].logger, "ORLIX.ORLIXBaseProcessing");
    EXPECT_EQ(appender.get().m_events[0].message, "Some kernels could not be registered:\n"
                                                  "There is a kernel for type 1 with the figure of merit 0 already\n"
                                                  "The kernel for type 2 is a null pointer\n");
}

} // namespace
} // namespace orlix::processor::test
