// Which message of which catalogue results and exceptions tell.
#include "ORLIX/ORLIXUtil/MessageNumber.h"

#include "ORLIX/ORLIXUtil/Logger/ORLIXUtilLogMessages.h"
#include "ORLIX/ORLIXUtil/ProcessingResult.h"
#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXUtil/TestCatalogue.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <type_traits>

namespace orlix::test {
namespace {

const MessageNumber g_sizes{"orlix::test::eTestMessage", 7};

template <class TThrow>
TestException thrownBy(const TThrow& throwIt)
{
    try {
        throwIt();
    } catch (const TestException& exception) {
        return exception;
    }
    throw std::logic_error("nothing was thrown");
}

TEST(MessageNumber, NamesTheEnumerationAsItsSourceDoes)
{
    EXPECT_EQ(messageNumber<eTestMessage>(eTestMessage::eSizes), g_sizes);
    EXPECT_EQ(messageNumber<eORLIXUtilErrors>(eORLIXUtilErrors::eNoCopySupport).catalogue, "orlix::eORLIXUtilErrors");
    EXPECT_FALSE(g_sizes.empty());
    EXPECT_TRUE(MessageNumber().empty());
    EXPECT_NE(g_sizes, (MessageNumber{"orlix::test::eTestMessage", 6}));
}

TEST(MessageNumber, ComesWithTheText)
{
    const NumberedText text = formatMessage<eTestMessage>(eTestMessage::eSizes, "A plan", 3, 2.5);
    EXPECT_EQ(text, "A plan is 3 wide and 2.500000 high");
    EXPECT_EQ(text.getNumber(), g_sizes);
    EXPECT_TRUE(NumberedText("plain").getNumber().empty());
    EXPECT_TRUE(NumberedText(std::string(text)).getNumber().empty()) << "a plain string has left it behind";
}

TEST(MessageNumber, TravelsWithResults)
{
    const auto first = BoolResult::failure(formatMessage<eTestMessage>(eTestMessage::eSizes, "A plan", 3, 2.5));
    const BoolResult copy = first;
    const auto handedOn = BoolResult::failure(copy.getMessage());
    const ProcessingResult<int> ofAnotherType(0, handedOn.getMessage());
    EXPECT_EQ(ofAnotherType.getMessage().getNumber(), g_sizes);
    EXPECT_EQ(ofAnotherType.getMessage(), first.getMessage());
    EXPECT_TRUE(BoolResult::failure("plain").getMessage().getNumber().empty());
    EXPECT_TRUE(BoolResult::success().getMessage().getNumber().empty());
    EXPECT_TRUE(BoolResult::outOfMemory().getMessage().getNumber().empty());
}

TEST(MessageNumber, CostsASuccessNothing)
{
    EXPECT_EQ(sizeof(ResultMessage), sizeof(void*));
    EXPECT_EQ(sizeof(BoolResult), 2 * sizeof(void*));
}

TEST(MessageNumber, IsToldByWhatIsRaised)
{
    const TestException exception =
        thrownBy([] { raise<eTestMessage>(ORLIX_HERE, eTestMessage::eSizes, "A plan", 3, 2.5); });
    EXPECT_EQ(exception.getMessageNumber(), g_sizes);
    const TestException copy = exception;
    EXPECT_EQ(&copy.getMessageNumber(), &exception.getMessageNumber()) << "copies share it";
    EXPECT_TRUE(std::is_nothrow_copy_constructible_v<TestException>);
    EXPECT_TRUE(TestException("plain", ORLIX_HERE).getMessageNumber().empty());
    EXPECT_TRUE(TestException("plain", "f", "f.cpp", 1).getMessageNumber().empty());
}

TEST(MessageNumber, OfAFailureIsItsOwn)
{
    const NumberedText own = formatMessage<eORLIXUtilErrors>(eORLIXUtilErrors::eNoCopySupport, "orlix::Early");
    const TestException exception =
        thrownBy([&] { raiseFailure<eTestMessage>(ORLIX_HERE, eTestMessage::eHandedOn, own); });
    EXPECT_EQ(exception.getMessage(), own);
    EXPECT_EQ(exception.getMessageNumber(), messageNumber<eORLIXUtilErrors>(eORLIXUtilErrors::eNoCopySupport));

    const TestException plain =
        thrownBy([] { raiseFailure<eTestMessage>(ORLIX_HERE, eTestMessage::eHandedOn, "no room"); });
    EXPECT_EQ(plain.getMessage(), "no room");
    EXPECT_EQ(plain.getMessageNumber(), messageNumber<eTestMessage>(eTestMessage::eHandedOn));
}

} // namespace
} // namespace orlix::test
