// The small types that everything uses: limits, enumerations, results.
#include "ORLIX/ORLIXUtil/Enumeration.h"
#include "ORLIX/ORLIXUtil/InstructionSet.h"
#include "ORLIX/ORLIXUtil/NumericLimits.h"
#include "ORLIX/ORLIXUtil/ProcessingResult.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <string>

namespace orlix {
namespace {

TEST(NumericLimits, spanTheFiniteValues)
{
    EXPECT_EQ(NumericLimits<unsigned long>::s_max, 18446744073709551615UL);
    EXPECT_EQ(NumericLimits<unsigned long>::s_min, 0u);
    EXPECT_EQ(NumericLimits<signed char>::s_min, -128);
    EXPECT_EQ(NumericLimits<float>::s_min, -FLT_MAX);
    EXPECT_EQ(NumericLimits<double>::s_max, DBL_MAX);
}

TEST(Enumeration, convertsToAndFromItsDomain)
{
    const eInstructionSet byValue = eInstructionSet::eAVX2;
    EXPECT_EQ(byValue, eInstructionSet::eAVX2);
    EXPECT_EQ(static_cast<int>(byValue), 7);
    EXPECT_EQ(eInstructionSet(), eInstructionSet::eNone);
}

TEST(ProcessingResult, isTrueWithoutAMessageOrFalseWithOne)
{
    EXPECT_TRUE(BoolResult::success());
    EXPECT_EQ(BoolResult::success().getMessage(), "");
    const BoolResult failure = BoolResult::failure("no room");
    EXPECT_FALSE(failure);
    EXPECT_FALSE(failure.getValue());
    EXPECT_EQ(failure.getMessage(), "no room");
    EXPECT_FALSE(BoolResult());
}

TEST(ProcessingResult, carriesAValue)
{
    EXPECT_EQ(ProcessingResult<int>(4).getValue(), 4);
    EXPECT_EQ(ProcessingResult<std::string>({}, "no room").getMessage(), "no room");
}

} // namespace
} // namespace orlix
