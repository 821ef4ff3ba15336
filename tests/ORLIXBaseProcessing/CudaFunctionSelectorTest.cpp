// The table of launchers: which row is chosen, what is refused, and how rows enter it.
#include "ORLIX/ORLIXBaseProcessing/CudaFunctionSelector.h"

#include "ORLIX/ORLIXBaseProcessing/BaseGpuProcessingAlgorithm.h"
#include "ORLIX/ORLIXBaseProcessing/Logger/ORLIXBaseProcessingLog.h"
#include "ORLIXBaseProcessing/KernelProcessors.h"
#include "ORLIXUtil/TestAppenders.h"

#include <gtest/gtest.h>
#include <log4cplus/logger.h>

namespace orlix::processor::test {
namespace {

using orlix::test::AttachedAppender;
using orlix::test::RecordingAppender;

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

/// A class with launchers that can be told apart; they are never called.
class Launchers : public BaseGpuProcessingAlgorithm
{
public:
    template <int tag>
    ProcessingResult<bool> launch()
    {
        return ProcessingResult<bool>::failure(std::to_string(tag));
    }
};

template <int tag>
constexpr CudaFunction launcher()
{
    return static_cast<CudaFunction>(&Launchers::launch<tag>);
}

CudaFunctionIdentifier row(const DataTypeIdentifierColl& types, CudaFunction function)
{
    CudaFunctionIdentifier identifier;
    identifier.init(types, function);
    return identifier;
}

/// Null where there is no row.
CudaFunction chosen(const CudaFunctionSelector& selector, const DataTypeIdentifierColl& types)
{
    const CudaFunctionIdentifier* const row = selector.select(types);
    return row == nullptr ? nullptr : row->getFunction();
}

TEST(CudaFunctionSelector, ChoosesByTypesAlone)
{
    CudaFunctionSelector selector;
    EXPECT_TRUE(selector.registerFunction(row(one(2), launcher<1>())));
    EXPECT_TRUE(selector.registerFunction(row(two(2, 7), launcher<2>())));
    EXPECT_TRUE(selector.registerFunction(row(two(7, 2), launcher<3>())));
    EXPECT_EQ(chosen(selector, one(2)), launcher<1>());
    EXPECT_EQ(chosen(selector, two(2, 7)), launcher<2>());
    EXPECT_EQ(chosen(selector, two(7, 2)), launcher<3>());
    for (const DataTypeIdentifierColl& types : {DataTypeIdentifierColl(), one(7), one(0), two(2, 2)}) {
        EXPECT_EQ(selector.select(types), nullptr) << types.toString();
    }
}

TEST(CudaFunctionSelector, RefusesTypesTwiceAndAFunctionThatIsNull)
{
    CudaFunctionSelector selector;
    EXPECT_TRUE(selector.registerFunction(row(two(2, 7), launcher<1>())));
    EXPECT_EQ(selector.registerFunction(row(two(2, 7), launcher<2>())).getMessage(),
              "There is a launcher for types 2 and 7 already");
    EXPECT_EQ(selector.registerFunction(row(one(3), nullptr)).getMessage(), "The kernel for type 3 is a null pointer");
    EXPECT_EQ(selector.getFunctions().size(), 1U);
    EXPECT_EQ(chosen(selector, two(2, 7)), launcher<1>()) << "the first one stays";
}

TEST(CudaFunctionSelector, LosesAllRowsOfAFunction)
{
    CudaFunctionSelector selector;
    EXPECT_TRUE(selector.registerFunction(row(one(2), launcher<1>())));
    EXPECT_TRUE(selector.registerFunction(row(one(3), launcher<2>())));
    EXPECT_TRUE(selector.registerFunction(row(one(8), launcher<1>())));
    selector.unRegisterFunction(launcher<1>());
    selector.unRegisterFunction(launcher<3>());
    ASSERT_EQ(selector.getFunctions().size(), 1U);
    EXPECT_EQ(selector.select(one(8)), nullptr);
    EXPECT_EQ(chosen(selector, one(3)), launcher<2>());
}

TEST(CudaFunctionSelector, IsOneForEachClass)
{
    EXPECT_EQ(&accessCudaFunctionSelector(typeid(Launchers)), &accessCudaFunctionSelector(typeid(Launchers)));
    EXPECT_NE(&accessCudaFunctionSelector(typeid(Launchers)), &accessCudaFunctionSelector(typeid(TestType)));
}

constexpr CudaFunctionRow g_rows[] = {{2, 0, launcher<1>()}, {1, 0, launcher<2>()}, {2, 7, launcher<3>()}};

TEST(CudaFunctionTable, RowsEnterInTheirOrderAndLeave)
{
    CudaFunctionSelector selector;
    details::functionRegistration(selector, g_rows);
    const std::vector<std::string> expected = {"type 2", "type 1", "types 2 and 7"};
    ASSERT_EQ(selector.getFunctions().size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(selector.getFunctions()[i].getDataTypes().toString(), expected[i]);
        EXPECT_EQ(selector.getFunctions()[i].getFunction(), g_rows[i].function);
    }
    details::unRegisterFunctions(selector, g_rows);
    EXPECT_TRUE(selector.getFunctions().empty());
}

TEST(CudaFunctionTable, WhatCannotBeEnteredIsTracedAndLeftOut)
{
    const CudaFunctionRow flawed[] = {{1, 0, launcher<1>()}, {1, 0, launcher<2>()}, {2, 3, nullptr}};
    log4cplus::Logger logger = getORLIXBaseProcessingLogger();
    AttachedAppender<RecordingAppender> appender(logger);
    logger.setLogLevel(log4cplus::TRACE_LOG_LEVEL);
    CudaFunctionSelector selector;
    EXPECT_NO_THROW(details::functionRegistration(selector, flawed));
    details::functionRegistration(selector, std::span(g_rows).first(1)); // without a flaw: nothing to tell
    logger.setLogLevel(log4cplus::NOT_SET_LOG_LEVEL);
    EXPECT_EQ(selector.getFunctions().size(), 2U);
    ASSERT_EQ(appender.get().m_events.size(), 1U);
    EXPECT_EQ(appender.get().m_events[0].level, log4cplus::TRACE_LOG_LEVEL);
    EXPECT_EQ(appender.get().m_events[0].message, "Some kernels could not be registered:\n"
                                                  "There is a launcher for type 1 already\n"
                                                  "The kernel for types 2 and 3 is a null pointer\n");
}

} // namespace
} // namespace orlix::processor::test
