// Keeping and finding the texts of catalogues.
#include "ORLIX/ORLIXUtil/LogMessageManager.h"

#include "ORLIX/ORLIXUtil/ORLIXUtilException.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace orlix {
namespace {

TEST(LogMessageManager, isOneForAName)
{
    LogMessageManager& manager = LogMessageManager::getInstance("ManagerTest.A");
    EXPECT_EQ(&manager, &LogMessageManager::getInstance("ManagerTest.A"));
    EXPECT_NE(&manager, &LogMessageManager::getInstance("ManagerTest.B"));
    EXPECT_EQ(manager.getName(), "ManagerTest.A");
}

TEST(LogMessageManager, keepsTextsByKeyAndId)
{
    LogMessageManager manager("test");
    manager.addMessage("key", 1, "one");
    manager.addMessage("key", -2, "minus two");
    manager.addMessage("other", 1, "other one");
    EXPECT_EQ(manager.getMessage("key", 1), "one");
    EXPECT_EQ(manager.getMessage("key", -2), "minus two");
    EXPECT_EQ(manager.getMessage("other", 1), "other one");
    EXPECT_TRUE(manager.hasMessage("key", 1));
    EXPECT_FALSE(manager.hasMessage("key", 2));
    EXPECT_FALSE(manager.hasMessage("third", 1));
}

TEST(LogMessageManager, raisesForAnUnknownMessage)
{
    const LogMessageManager manager("test");
    try {
        manager.getMessage("key", 5);
        FAIL();
    } catch (const ORLIXUtilException& exception) {
        EXPECT_EQ(exception.getMessage(), "Message 5 of catalogue key is unknown to message manager test: add it to "
                                          "the catalogue's texts");
    }
}

TEST(LogMessageManager, takesTheSameTextTwiceButNoOther)
{
    LogMessageManager manager("test");
    manager.addMessage("key", 1, "one");
    manager.addMessage("key", 1, "one");
    try {
        manager.addMessage("key", 1, "uno");
        FAIL();
    } catch (const ORLIXUtilException& exception) {
        EXPECT_EQ(exception.getMessage(),
                  "Message 1 of catalogue key in message manager test is \"one\" already: give \"uno\" an id of its "
                  "own");
    }
    EXPECT_EQ(manager.getMessage("key", 1), "one");
}

TEST(LogMessageManager, forgetsTheTextsOfOneKey)
{
    LogMessageManager manager("test");
    manager.addMessage("key", 1, "one");
    manager.addMessage("key", 7, "seven");
    manager.addMessage("key2", 1, "other one");
    manager.addMessage("ke", 1, "another one");
    manager.removeMessages("unknown");
    manager.removeMessages("key");
    EXPECT_FALSE(manager.hasMessage("key", 1));
    EXPECT_FALSE(manager.hasMessage("key", 7));
    EXPECT_EQ(manager.getMessage("key2", 1), "other one");
    EXPECT_EQ(manager.getMessage("ke", 1), "another one");
    manager.addMessage("key", 1, "now this");
    EXPECT_EQ(manager.getMessage("key", 1), "now this");
}

TEST(LogMessageManager, isFilledAndReadFromManyThreads)
{
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([thread] {
            LogMessageManager& manager = LogMessageManager::getInstance("ManagerTest.Threads");
            for (int id = 0; id < 100; ++id) {
                manager.addMessage("shared", id, std::to_string(id));
                manager.addMessage("own", 1000 * thread + id, "own");
                manager.getMessage("shared", id);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    const LogMessageManager& manager = LogMessageManager::getInstance("ManagerTest.Threads");
    EXPECT_EQ(manager.getMessage("shared", 99), "99");
    for (int thread = 0; thread < 4; ++thread) {
        EXPECT_TRUE(manager.hasMessage("own", 1000 * thread + 99));
    }
}

} // namespace
} // namespace orlix
