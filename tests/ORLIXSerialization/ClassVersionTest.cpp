// The version record of a class: once per archive, and none that is newer than what reads it.
#include "ORLIX/ORLIXSerialization/ClassVersion.h"

#include "ORLIX/ORLIXSerialization/Logger/ORLIXSerializationLog.h"
#include "ORLIX/ORLIXSerialization/Logger/ORLIXSerializationLogMessages.h"
#include "ORLIX/ORLIXSerialization/TextIArchive.h"
#include "ORLIX/ORLIXSerialization/TextOArchive.h"
#include "ORLIX/ORLIXUtil/LogMessageManager.h"

#include <gtest/gtest.h>
#include <log4cplus/logger.h>

#include <set>

namespace orlix {
namespace {

std::string recordOf(const std::string& version)
{
    return "<orlix_archive format=\"1\"><section name=\"orlix::A\"><uint32 name=\"version\" value=\"" + version +
           "\"/></section></orlix_archive>";
}

TEST(ClassVersion, isWrittenOnceAnArchive)
{
    TextOArchive output;
    EXPECT_FALSE(output.isClassVersionRegistred("orlix::A"));
    EXPECT_TRUE(writeClassVersion(output, "orlix::A", 1));
    EXPECT_TRUE(output.isClassVersionRegistred("orlix::A"));
    EXPECT_EQ(output.getRegisterClassVersion("orlix::A"), 1u);
    EXPECT_TRUE(writeClassVersion(output, "orlix::A", 1));
    EXPECT_TRUE(writeClassVersion(output, "orlix::B", 3));
    std::string text;
    ASSERT_TRUE(output.saveToString(text));
    EXPECT_EQ(text.find("name=\"orlix::A\""), text.rfind("name=\"orlix::A\""));

    TextIArchive input;
    ASSERT_TRUE(input.loadFromString(text));
    EXPECT_TRUE(readClassVersion(input, "orlix::A", 1));
    EXPECT_TRUE(readClassVersion(input, "orlix::A", 1));
    EXPECT_TRUE(readClassVersion(input, "orlix::B", 4));
    EXPECT_EQ(input.getRegisterClassVersion("orlix::A"), 1u);
    EXPECT_EQ(input.getRegisterClassVersion("orlix::B"), 3u);
    EXPECT_NO_THROW(input.checkEnd());
}

TEST(ClassVersion, isReadUpToTheNewestKnown)
{
    for (const char* version : {"0", "1"}) {
        TextIArchive input;
        ASSERT_TRUE(input.loadFromString(recordOf(version)));
        EXPECT_TRUE(readClassVersion(input, "orlix::A", 1));
        EXPECT_EQ(std::to_string(input.getRegisterClassVersion("orlix::A")), version);
    }
    for (const char* version : {"2", "4294967295"}) {
        TextIArchive input;
        ASSERT_TRUE(input.loadFromString(recordOf(version)));
        try {
            static_cast<void>(readClassVersion(input, "orlix::A", 1));
            FAIL();
        } catch (const ORLIXSerializationException& exception) {
            EXPECT_EQ(exception.getMessage(), "The archive has class orlix::A in a version newer than 1, the newest "
                                              "that is known: read it with a newer version of the library");
        }
        EXPECT_FALSE(input.isClassVersionRegistred("orlix::A"));
    }
}

TEST(ClassVersion, isRefusedWhereTheRecordIsAnother)
{
    TextIArchive input;
    ASSERT_TRUE(input.loadFromString(recordOf("1")));
    EXPECT_THROW(static_cast<void>(readClassVersion(input, "orlix::B", 1)), ORLIXSerializationException);
    ASSERT_TRUE(input.loadFromString(recordOf("-1")));
    EXPECT_THROW(static_cast<void>(readClassVersion(input, "orlix::A", 1)), ORLIXSerializationException);
}

TEST(ClassVersion, isOneForAClass)
{
    TextOArchive output;
    output.registerClassVersion("orlix::A", 1);
    EXPECT_NO_THROW(output.registerClassVersion("orlix::A", 1));
    EXPECT_THROW(output.registerClassVersion("orlix::A", 2), ORLIXSerializationException);
    EXPECT_THROW(output.getRegisterClassVersion("orlix::B"), ORLIXSerializationException);
}

TEST(ORLIXSerializationMessages, haveEachAnIdAndTellWhatToDo)
{
    EXPECT_EQ(getORLIXSerializationLoggerName(), "ORLIX.ORLIXSerialization");
    EXPECT_EQ(getORLIXSerializationLogger().getName(), "ORLIX.ORLIXSerialization");
    EXPECT_EQ(getORLIXSerializationLogMessageManager().getName(), "ORLIXSerialization");
    std::set<int> ids;
    for (const MessageText& text : MessageCatalogue<eORLIXSerializationMessage>::texts()) {
        EXPECT_TRUE(ids.insert(text.id).second) << text.id;
        EXPECT_NE(std::string(text.text).find_first_of(":."), std::string::npos) << text.text;
    }
    EXPECT_EQ(eORLIXSerializationMessage::eNewerClassVersion, 25);
}

} // namespace
} // namespace orlix
