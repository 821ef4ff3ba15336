// orlix processors.
#include "orlix/support/JsonDocument.h"
#include "orlix/support/Program.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorFactory.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImgLvl1.h"

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

TEST(ProcessorsTest, OneIsToldWithItsAttributes)
{
    for (const std::string& name : {g_copy, std::string("CopyImgLvl1")}) {
        const ProgramResult result = runOrlix({"processors", name});
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.out, g_copy + "\n"
                                       "  Image copy algorithm level 1\n"
                                       "  ORLIXIPLUtility, ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImgLvl1.h\n"
                                       "  InImg   Input image (input: image)\n"
                                       "  OutImg  Output image (output: image)\n");
    }
}

/// Whatever the processor: the attributes' own descriptions, in their order.
TEST(ProcessorsTest, JsonTellsAttributes)
{
    const ProcessorFactory& factory = ProcessorFactory::getInstance();
    for (const std::string& name : factory.getProcessorNames()) {
        const JsonDocument document = parseJson(runOrlix({"processors", name, "--json"}).out);
        EXPECT_EQ(document["name"].text, name);
        const auto processor = factory.createProcessor(name);
        ASSERT_TRUE(processor->init(processor::eProcessorRulePolicy::eRulePolicyCheck));
        const JsonDocument& attributes = document["attributes"];
        ASSERT_EQ(attributes.elements.size(), processor->getAttributeColl().size()) << name;
        for (std::size_t i = 0; i < attributes.elements.size(); ++i) {
            const processor::BaseAttribute& attribute = *processor->getAttributeColl()[i];
            EXPECT_EQ(attributes[i]["name"].text, attribute.getObjectName());
            EXPECT_EQ(attributes[i]["toolTip"].text, attribute.getToolTip());
            EXPECT_EQ(attributes[i]["kind"].text, attribute.getValueKind());
            EXPECT_EQ(attributes[i]["direction"].text, attribute.isOutput() ? "output" : "input");
        }
    }
    const JsonDocument copy = parseJson(runOrlix({"processors", "CopyImgLvl1", "--json"}).out);
    EXPECT_TRUE(copy["attributes"][0]["required"].bValue);
    EXPECT_FALSE(copy["attributes"][1]["required"].bValue) << "a run makes it";
    const JsonDocument plan = parseJson(runOrlix({"processors", "CopyImgLvl2", "--json"}).out);
    EXPECT_TRUE(plan["attributes"][1]["required"].bValue);
    EXPECT_TRUE(plan["attributes"][1]["default"].isNull());
}

} // namespace
} // namespace orlix::test
