// What every processor class has from the scaffold: names, creation, archives, no copies, typed access to attributes.
#include "ORLIX/ORLIXBaseProcessing/Scaffold.h"

#include "ORLIX/ORLIXSerialization/ORLIXSerializationException.h"
#include "ORLIX/ORLIXSerialization/TextIArchive.h"
#include "ORLIX/ORLIXSerialization/TextOArchive.h"
#include "ORLIX/ORLIXUtil/ORLIXUtilException.h"
#include "ORLIXBaseProcessing/RecordingProcessor.h"

#include <gtest/gtest.h>

#include <thread>

namespace orlix::processor::test {
namespace {

/// Nothing but what the scaffold must be told.
class BareProcessor final : public Scaffold<BareProcessor, BaseSyncProcessor, TestLibrary, InNumber>
{
public:
    static constexpr ProcessorText g_text{"BareProcessor", eTestToolTip::eLower};
    static constexpr unsigned g_dispatchWeight = 16;

    RulePtr createRule() const { return none(); }
    void initOutputInitializers(OutputInitializerMap&) const {}

protected:
    ProcessingResult<bool> mainProcess() override { return true; }
};

template <class TProcessor, class TAttribute>
constexpr bool g_bCanBeRead = requires(const TProcessor& processor)
{
    processor.template getStorage<TAttribute>();
};
template <class TProcessor, class TAttribute>
constexpr bool g_bCanBeSet = requires(TProcessor& processor, const typename TAttribute::StorageType& value)
{
    processor.template set<TAttribute>(value);
};

// Only outputs are read back.
static_assert(g_bCanBeRead<RecordingProcessor, OutNumbers>);
static_assert(!g_bCanBeRead<RecordingProcessor, InNumber>);
static_assert(!g_bCanBeRead<RecordingProcessor, InOptNumber>);
// Both kinds are set.
static_assert(g_bCanBeSet<RecordingProcessor, InNumber>);
static_assert(g_bCanBeSet<RecordingProcessor, OutNumbers>);

std::string versionRecord(const std::string& version)
{
    return "<orlix_archive format=\"1\"><section name=\"orlix::processor::test::BareProcessor\">"
           "<uint32 name=\"version\" value=\"" +
           version + "\"/></section></orlix_archive>";
}

std::size_t countOf(const std::string& text, const std::string& part)
{
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
        ++count;
    }
    return count;
}

TEST(Scaffold, NamesAndVersionOfTheClass)
{
    EXPECT_EQ(BareProcessor::getTypeName(), "orlix::processor::test::BareProcessor");
    EXPECT_EQ(BareProcessor::getObjectNameStr(), "BareProcessor");
    EXPECT_EQ(BareProcessor::getToolTipStr(), "One element");
    EXPECT_EQ(BareProcessor::getVersion(), 1u);
    EXPECT_STREQ(BareProcessor::getLibraryName(), "TestLibrary");
    const BareProcessor processor;
    EXPECT_EQ(&processor.getClassName(), &BareProcessor::getTypeName());
    EXPECT_EQ(&processor.getObjectName(), &BareProcessor::getObjectNameStr());
    EXPECT_EQ(&processor.getToolTip(), &BareProcessor::getToolTipStr());
    EXPECT_EQ(processor.getProcessorType(), eProcessorType::eSyncProcessor);
    EXPECT_EQ(RecordingProcessor().getProcessorType(), eProcessorType::eAsyncProcessor);
    EXPECT_TRUE(processor.isComplexAction());
}

TEST(Scaffold, StaticsMayBeAskedFromManyThreads)
{
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i) {
        threads.emplace_back([] {
            for (int repetition = 0; repetition < 100; ++repetition) {
                BareProcessor::createMutexes();
                EXPECT_EQ(BareProcessor::getTypeName().size(), 37u);
                EXPECT_EQ(BareProcessor::getToolTipStr(), "One element");
                EXPECT_EQ(BareProcessor::getVersion(), 1u);
                EXPECT_GT(BareProcessor::getDefaultDispatchPolicy().getStripBytes(), 0u);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

TEST(Scaffold, TheDefaultDispatchPolicyIsThatOfInitDefaultWithTheWeightOfTheClass)
{
    ProcessorDispatchPolicy policy;
    policy.initDefault();
    EXPECT_EQ(BareProcessor::getDefaultDispatchPolicy().getStripBytes(), policy.getStripBytes());
    EXPECT_EQ(BareProcessor::getDefaultDispatchPolicy().getName(), "getBareProcessorStaticDispatchPolicy");
    EXPECT_EQ(policy.getWeight(), 1u);
    EXPECT_EQ(BareProcessor::getDefaultDispatchPolicy().getWeight(), 16u);
}

TEST(Scaffold, MakesFreshObjectsOfItsClass)
{
    const auto isFresh = [](const BaseDynamicObject& object) {
        const auto* processor = dynamic_cast<const BareProcessor*>(&object);
        return processor != nullptr && !processor->isInitialised();
    };
    EXPECT_TRUE(isFresh(*BareProcessor::createNewObject()));
    EXPECT_TRUE(isFresh(*BareProcessor::createSharedObject()));
    EXPECT_TRUE(isFresh(*BareProcessor::createProcessor()));
    EXPECT_TRUE(isFresh(*BareProcessor::createBaseProcessor()));
    BareProcessor used;
    EXPECT_TRUE(used.init(eProcessorRulePolicy::eRulePolicyCheck).getValue());
    EXPECT_TRUE(isFresh(*used.createNew()));
    EXPECT_TRUE(isFresh(*used.createShared()));
}

TEST(Scaffold, AttributesExistFromInitOnInOrder)
{
    RecordingProcessor processor;
    EXPECT_TRUE(processor.getAttributeNameColl().empty());
    EXPECT_TRUE(processor.init(eProcessorRulePolicy::eRulePolicyCheck).getValue());
    EXPECT_TRUE(processor.isInitialised());
    EXPECT_EQ(processor.getAttributeNameColl(), (std::vector<std::string>{"InNumber", "InOptNumber", "OutNumbers"}));
    processor.set<InNumber>(2.5);
    EXPECT_EQ(dynamic_cast<const InNumber&>(processor.getAttribute("InNumber")).getValue(), 2.5);
    EXPECT_FALSE(processor.getStorage<OutNumbers>()) << "nothing was set";
    const auto numbers = boost::make_shared<Numbers>();
    processor.set<OutNumbers>(numbers);
    EXPECT_EQ(processor.getStorage<OutNumbers>(), numbers);
}

TEST(Scaffold, AClassWithoutARuleOfItsOwnRuns)
{
    const auto processor = BareProcessor::createProcessor();
    EXPECT_TRUE(processor->init(eProcessorRulePolicy::eRulePolicyCheck).getValue());
    processor->set<InNumber>(1);
    EXPECT_TRUE(processor->run(core::eSynchroType::eSynchroSync).getValue());
}

TEST(Scaffold, OffersNoCopies)
{
    BareProcessor processor;
    EXPECT_FALSE(processor.hasCopySupport());
    const auto textOf = [](const auto& action) -> std::string {
        try {
            action();
        } catch (const ORLIXUtilException& error) {
            return error.what();
        }
        return "no exception";
    };
    for (const std::string& text : {textOf([&] { static_cast<void>(processor.duplicate()); }),
                                    textOf([&] { static_cast<void>(processor.duplicateShared()); }),
                                    textOf([&] { processor.copy(BareProcessor()); })}) {
        EXPECT_NE(text.find("orlix::processor::test::BareProcessor"), std::string::npos) << text;
    }
}

TEST(Scaffold, WritesItsVersionOnceAnArchive)
{
    TextOArchive archive;
    EXPECT_TRUE(BareProcessor().write(archive).getValue());
    EXPECT_TRUE(archive.isClassVersionRegistred("orlix::processor::test::BareProcessor"));
    std::string once;
    ASSERT_TRUE(archive.saveToString(once).getValue());
    EXPECT_TRUE(BareProcessor().write(archive).getValue());
    std::string twice;
    ASSERT_TRUE(archive.saveToString(twice).getValue());
    EXPECT_EQ(once, twice);
    EXPECT_EQ(countOf(once, "\"version\""), 1u);

    EXPECT_TRUE(RecordingProcessor().write(archive).getValue());
    ASSERT_TRUE(archive.saveToString(twice).getValue());
    EXPECT_EQ(countOf(twice, "\"version\""), 2u) << "another class has a record of its own";

    TextIArchive input;
    ASSERT_TRUE(input.loadFromString(twice).getValue());
    BareProcessor processor;
    EXPECT_TRUE(processor.read(input).getValue());
    EXPECT_TRUE(processor.read(input).getValue()) << "from the record that was read before";
    EXPECT_TRUE(RecordingProcessor().read(input).getValue());
    EXPECT_NO_THROW(input.checkEnd());
}

TEST(Scaffold, ReadsVersionsUpToItsOwn)
{
    for (const std::string version : {"0", "1"}) {
        TextIArchive input;
        ASSERT_TRUE(input.loadFromString(versionRecord(version)).getValue());
        EXPECT_TRUE(BareProcessor().read(input).getValue()) << version;
        EXPECT_EQ(std::to_string(input.getRegisterClassVersion("orlix::processor::test::BareProcessor")), version);
    }
    TextIArchive newer;
    ASSERT_TRUE(newer.loadFromString(versionRecord("2")).getValue());
    try {
        static_cast<void>(BareProcessor().read(newer));
        FAIL() << "no exception";
    } catch (const ORLIXSerializationException& error) {
        EXPECT_NE(std::string(error.what()).find("orlix::processor::test::BareProcessor in a version newer than 1"),
                  std::string::npos)
            << error.what();
    }
}

} // namespace
} // namespace orlix::processor::test
