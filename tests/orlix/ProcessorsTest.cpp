// orlix processors.
#include "orlix/support/JsonDocument.h"
#include "orlix/support/Program.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorFactory.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImg.h"

#include <gtest/gtest.h>

namespace orlix::test {
namespace {

using processor::ProcessorFactory;

/// Keeps the library loaded, whose processors the factory knows.
const std::string g_copy = imaproc::util::CopyImgLvl1::getTypeName();

TEST(ProcessorsTest, ListsWhatTheFactoryKnows)
{
    const ProgramResult result = runOrlix({"processors"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_NE(result.out.find(g_copy + "\n"
                                       "  Image copy algorithm level 1\n"
                                       "  ORLIXIPLUtility, ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImgLvl1.h\n"),
              std::string::npos)
        << result.out;
}

TEST(ProcessorsTest, JsonListsTheSame)
{
    const ProgramResult result = runOrlix({"--json", "processors"});
    EXPECT_EQ(result.exitCode, 0);
    const JsonDocument list = parseJson(result.out);
    const ProcessorFactory& factory = ProcessorFactory::getInstance();
    const std::vector<std::string> names = factory.getProcessorNames();
    ASSERT_EQ(list.elements.size(), names.size());
    ASSERT_GE(names.size(), 3U);
    for (std::size_t i = 0; i < names.size(); ++i) {
        const ProcessorFactory::ProcessorInfo info = factory.getProcessorInfo(names[i]);
        EXPECT_EQ(list[i]["name"].text, names[i]);
        EXPECT_EQ(list[i]["toolTip"].text, info.toolTip);
        EXPECT_EQ(list[i]["library"].text, info.libraryName);
        EXPECT_EQ(list[i]["header"].text, info.headerPath.string());
    }
}

} // namespace
} // namespace orlix::test
