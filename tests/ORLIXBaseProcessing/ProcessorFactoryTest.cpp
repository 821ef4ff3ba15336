// Processors by name: registration, what is known of each, creation, and what a source file's registration does.
#include "ORLIX/ORLIXBaseProcessing/ProcessorFactory.h"

#include "ORLIX/ORLIXBaseProcessing/ORLIXBaseProcessingException.h"
#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"
#include "ORLIX/ORLIXUtil/LogMessageManager.h"
#include "ORLIXBaseProcessing/KernelProcessors.h"
#include "ORLIXBaseProcessing/RecordingProcessor.h"

#include <gtest/gtest.h>

namespace orlix::processor::test {
namespace {

const std::string g_name = "orlix::processor::test::RecordingProcessor";

template <class TAction>
std::string exceptionOf(const TAction& action)
{
    try {
        action();
    } catch (const ORLIXBaseProcessingException& error) {
        return error.what();
    }
    return "no exception";
}

TEST(ProcessorFactory, KnowsWhatAClassSaysOfItself)
{
    ProcessorFactory factory;
    EXPECT_FALSE(factory.isRegistered(g_name));
    EXPECT_TRUE(factory.registerProcessor<RecordingProcessor>().getValue());
    EXPECT_TRUE(factory.isRegistered(g_name));
    const ProcessorFactory::ProcessorInfo info = factory.getProcessorInfo(g_name);
    EXPECT_EQ(info.objectName, "RecordingProcessor");
    EXPECT_EQ(info.toolTip, "Writes down what is asked of it");
    EXPECT_EQ(info.libraryName, "TestLibrary");
    EXPECT_EQ(info.headerPath, "TestLibrary/RecordingProcessor.h");
    const auto processor = boost::dynamic_pointer_cast<RecordingProcessor>(factory.createProcessor(g_name));
    ASSERT_NE(processor, nullptr);
    EXPECT_FALSE(processor->isInitialised());
    EXPECT_NE(factory.createProcessor(g_name), processor);
}

TEST(ProcessorFactory, ANameIsTakenOnce)
{
    ProcessorFactory factory;
    ProcessorFactory::ProcessorInfo info;
    info.objectName = "first";
    EXPECT_TRUE(factory.registerProcessor("a", info).getValue());
    info.objectName = "second";
    EXPECT_EQ(factory.registerProcessor("a", info).getMessage(),
              "Processor a is registered with the factory already: give each processor a name of its own");
    EXPECT_EQ(factory.getProcessorInfo("a").objectName, "first");
    EXPECT_TRUE(factory.registerProcessor("B", info).getValue());
    EXPECT_TRUE(factory.registerProcessor("0", info).getValue());
    EXPECT_EQ(factory.getProcessorNames(), (std::vector<std::string>{"0", "B", "a"}));
    factory.unRegisterProcessor("a");
    factory.unRegisterProcessor("never there");
    EXPECT_EQ(factory.getProcessorNames(), (std::vector<std::string>{"0", "B"}));
    EXPECT_TRUE(factory.registerProcessor("a", info).getValue());
}

TEST(ProcessorFactory, UnknownNamesAreExceptions)
{
    const ProcessorFactory factory;
    const std::string text =
        "Processor Nobody is unknown to the factory: check the name and load the library that it is in";
    EXPECT_EQ(exceptionOf([&] { static_cast<void>(factory.getProcessorInfo("Nobody")); }), text);
    EXPECT_EQ(exceptionOf([&] { static_cast<void>(factory.createProcessor("Nobody")); }), text);
}

TEST(ProcessorFactory, CutsHeaderPathsToWhatIsIncluded)
{
    const auto cut = [](const char* path) { return ProcessorFactory::cutHeaderPath(path).string(); };
    EXPECT_EQ(cut("/home/me/include/public/ORLIX/A.h"), "ORLIX/A.h");
    EXPECT_EQ(cut("include/partner/ORLIX/A.h"), "ORLIX/A.h");
    EXPECT_EQ(cut("../include/private/ORLIX/B/A.h"), "ORLIX/B/A.h");
    EXPECT_EQ(cut("include/private/include/public/A.h"), "A.h") << "public is tried first";
    EXPECT_EQ(cut("/somewhere/else/A.h"), "");
}

TEST(ProcessorFactory, ASourceFilesRegistrationEntersBothFactoriesForItsLifetime)
{
    using Algorithm = TestAlgorithm<4>;
    static constexpr KernelRow rows[] = {{1, 0, testKernel<Algorithm, eInstructionSet::eNone>()}};
    static constexpr KernelTable first{eInstructionSet::eNone, rows, 1};
    static constexpr KernelTable second{eInstructionSet::eSSE2, rows, 1};
    static constexpr const KernelTable* tables[] = {&first, &second};
    const std::string name = "orlix::processor::test::TestAlgorithm";
    {
        const ProcessorRegistration<Algorithm, eTestToolTip> registration(tables);
        EXPECT_TRUE(DynamicObjectFactory::getInstance().isRegistered(name));
        EXPECT_TRUE(ProcessorFactory::getInstance().isRegistered(name));
        EXPECT_NE(boost::dynamic_pointer_cast<Algorithm>(DynamicObjectFactory::getInstance().createShared(name)),
                  nullptr);
        EXPECT_NE(dynamic_cast<Algorithm*>(DynamicObjectFactory::getInstance().createNew(name).get()), nullptr);
        const auto& entered = Algorithm::retrieveFunctionSelector().getFunctions();
        ASSERT_EQ(entered.size(), 2u);
        EXPECT_EQ(entered[0].getEfficiency(), 0u) << "in the order of the files";
        EXPECT_EQ(entered[1].getEfficiency(), 1u);
        {
            const ProcessorRegistrator<Algorithm> again;
            const DynamicRegistrator<Algorithm> dynamicAgain;
            EXPECT_FALSE(dynamicAgain.isRegistered());
        }
        EXPECT_TRUE(ProcessorFactory::getInstance().isRegistered(name)) << "who came second takes nothing away";
        EXPECT_TRUE(DynamicObjectFactory::getInstance().isRegistered(name));
    }
    EXPECT_FALSE(DynamicObjectFactory::getInstance().isRegistered(name));
    EXPECT_FALSE(ProcessorFactory::getInstance().isRegistered(name));
    EXPECT_TRUE(Algorithm::retrieveFunctionSelector().getFunctions().empty()) << "kernels whose code may be gone";
}

} // namespace
} // namespace orlix::processor::test
