// Texts out of catalogues, and when catalogues are filled.
#include "ORLIX/ORLIXUtil/MessageCatalogue.h"

#include "ORLIX/ORLIXUtil/CatalogueRegistration.h"
#include "ORLIX/ORLIXUtil/Logger/ORLIXUtilLogMessages.h"
#include "ORLIXUtil/TestCatalogue.h"

#include <gtest/gtest.h>

#include <set>
#include <thread>

namespace orlix::test {

struct eLateMessage
{
    enum domain { eOnly = 0 };
    ORLIX_ENUMERATION(eLateMessage, eOnly);
};

struct eRegisteredMessage
{
    enum domain { eThree = 3, eFour = 4 };
    ORLIX_ENUMERATION(eRegisteredMessage, eThree);
};

} // namespace orlix::test

namespace orlix {

template <>
struct MessageCatalogue<test::eRegisteredMessage>
{
    using Exception = test::TestException;
    static LibraryLog& log()
    {
        static LibraryLog g_log("RegistrationTests");
        return g_log;
    }
    static const std::vector<MessageText>& texts()
    {
        static const std::vector<MessageText> g_texts = {{test::eRegisteredMessage::eThree, "three"},
                                                         {test::eRegisteredMessage::eFour, "four"}};
        return g_texts;
    }
};

template <>
struct MessageCatalogue<test::eLateMessage> : MessageCatalogue<test::eTestMessage>
{};

namespace test {
namespace {

const std::string g_duringStaticInitialisation =
    formatMessage<eORLIXUtilErrors>(eORLIXUtilErrors::eNoCopySupport, "orlix::Early");

TEST(MessageCatalogue, formatsById)
{
    EXPECT_EQ(formatMessage<eTestMessage>(eTestMessage::ePlain), "Nothing to add");
    EXPECT_EQ(formatMessage<eTestMessage>(eTestMessage::eSizes, "A plan", 3UL, 2.5),
              "A plan is 3 wide and 2.500000 high");
}

TEST(MessageCatalogue, isFilledBeforeStaticInitialisersNeedIt)
{
    EXPECT_EQ(g_duringStaticInitialisation, "Objects of class orlix::Early can't be copied: make a new one instead");
}

TEST(MessageCatalogue, refusesAnUnknownIdAndWrongArguments)
{
    EXPECT_THROW(formatMessage<eTestMessage>(eTestMessage::eUnknown), ORLIXUtilException);
    EXPECT_THROW(formatMessage<eTestMessage>(eTestMessage::ePlain, 1), ORLIXUtilException);
}

TEST(MessageMapRegistrator, fillsUnderTheTypeNameOfTheDomain)
{
    MessageMapRegistrator<eTestMessage, void>::process();
    const LogMessageManager& manager = LogMessageManager::getInstance("UtilTests");
    EXPECT_EQ(manager.getMessage("N5orlix4test12eTestMessage6domainE", 7), "%s is %d wide and %f high");
}

TEST(MessageMapRegistrator, fillsOnceFromAnyThread)
{
    const int before = g_nbTextsAsked;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back(&MessageMapRegistrator<eLateMessage>::process);
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(g_nbTextsAsked, before + 1);
}

TEST(CatalogueRegistration, takesItsTextsOutAgain)
{
    const LogMessageManager& manager = LogMessageManager::getInstance("RegistrationTests");
    const char* const key = "N5orlix4test18eRegisteredMessage6domainE";
    {
        const CatalogueRegistration<eRegisteredMessage> registration;
        EXPECT_EQ(manager.getMessage(key, 3), "three");
        EXPECT_EQ(manager.getMessage(key, 4), "four");
    }
    EXPECT_FALSE(manager.hasMessage(key, 3));
    EXPECT_FALSE(manager.hasMessage(key, 4));
    EXPECT_EQ(formatMessage<eRegisteredMessage>(eRegisteredMessage::eThree), "three") << "a late use still finds it";
}

TEST(ORLIXUtilErrors, haveEachAnIdAndTellWhatToDo)
{
    const auto& texts = MessageCatalogue<eORLIXUtilErrors>::texts();
    std::set<int> ids;
    for (const MessageText& text : texts) {
        EXPECT_TRUE(ids.insert(text.id).second) << text.id;
        EXPECT_NE(std::string(text.text).find(": "), std::string::npos) << text.text;
    }
    EXPECT_EQ(eORLIXUtilErrors::eNoCopySupport, 3);
}

} // namespace
} // namespace test
} // namespace orlix
