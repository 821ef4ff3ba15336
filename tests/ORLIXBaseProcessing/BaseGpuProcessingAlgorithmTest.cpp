// What a run on a device goes through, and what each step's failure comes to.
#include "ORLIX/ORLIXBaseProcessing/BaseGpuProcessingAlgorithm.h"

#include "ORLIX/ORLIXBaseProcessing/GpuProcessorRegistration.h"
#include "ORLIX/ORLIXBaseProcessing/GpuScaffold.h"
#include "ORLIXBaseProcessing/KernelProcessors.h"

#include <gtest/gtest.h>

namespace orlix::processor::test {
namespace {

/// Its launcher exists for types 1 and 2.
class GpuAlgorithm final : public GpuScaffold<GpuAlgorithm, TestLibrary, InOptNumber>
{
public:
    static constexpr ProcessorText g_text{"GpuAlgorithm", eTestToolTip::eAlgorithm, "GpuAlgorithm.h"};

    RulePtr createRule() const { return none(); }

    template <int tag>
    ProcessingResult<bool> launch()
    {
        m_calls.push_back("launch" + std::to_string(tag));
        return m_failAt == "launch" ? ProcessingResult<bool>::failure("the device is lost")
                                    : ProcessingResult<bool>::success();
    }

    std::string run()
    {
        const ProcessingResult<bool> result = core::BaseAction::run(core::eSynchroType::eSynchroSync);
        return result ? "no failure" : result.getMessage();
    }
    StepResult callBasePreProcess() { return BaseGpuProcessingAlgorithm::preProcess(); }
    StepResult callBasePostProcess() { return BaseGpuProcessingAlgorithm::postProcess(); }

    unsigned m_type = 1;
    std::string m_failAt;
    Calls m_calls;

protected:
    ProcessingResult<bool> getDataTypeIdColl(DataTypeIdentifierColl& types) const override
    {
        types.init(TestType(m_type));
        return m_failAt == "types" ? ProcessingResult<bool>::failure("no types") : ProcessingResult<bool>::success();
    }
    StepResult preProcess() override { return step("preProcess"); }
    StepResult postProcess() override { return step("postProcess"); }

private:
    StepResult step(const std::string& name)
    {
        m_calls.push_back(name);
        return m_failAt == name ? StepResult::failed(name + " failed") : StepResult::success();
    }
};

template <int tag>
constexpr CudaFunction launcher()
{
    return static_cast<CudaFunction>(&GpuAlgorithm::launch<tag>);
}

constexpr CudaFunctionRow g_rows[] = {{1, 0, launcher<1>()}, {2, 0, launcher<2>()}};

const GpuProcessorRegistration<GpuAlgorithm, eTestToolTip> g_registration(g_rows);

TEST(BaseGpuProcessingAlgorithm, ChoosesTheLauncherByTypeAndCallsItOnce)
{
    const auto algorithm = makeAlgorithm<GpuAlgorithm>();
    EXPECT_EQ(algorithm->run(), "no failure");
    EXPECT_EQ(algorithm->m_calls, (Calls{"preProcess", "launch1", "postProcess"}));
    algorithm->m_calls.clear();
    algorithm->m_type = 2;
    EXPECT_EQ(algorithm->run(), "no failure");
    EXPECT_EQ(algorithm->m_calls, (Calls{"preProcess", "launch2", "postProcess"}));
}

TEST(BaseGpuProcessingAlgorithm, AFailedStepEndsTheRunWithItsText)
{
    const std::tuple<std::string, std::string, Calls> failures[] = {
        {"preProcess", "preProcess failed", {"preProcess"}},
        {"types", "no types", {"preProcess"}},
        {"launch", "the device is lost", {"preProcess", "launch1"}},
        {"postProcess", "postProcess failed", {"preProcess", "launch1", "postProcess"}}};
    for (const auto& [place, text, calls] : failures) {
        const auto algorithm = makeAlgorithm<GpuAlgorithm>();
        algorithm->m_failAt = place;
        EXPECT_EQ(algorithm->run(), text);
        EXPECT_EQ(algorithm->m_calls, calls) << place;
    }
}

TEST(BaseGpuProcessingAlgorithm, ATypeWithoutALauncherIsToldAsOneWithoutAKernel)
{
    const auto algorithm = makeAlgorithm<GpuAlgorithm>();
    algorithm->m_type = 3;
    const auto host = makeAlgorithm<TestAlgorithm<17>>();
    host->m_type = 3;
    std::string expected = host->run();
    ASSERT_EQ(expected.find("TestAlgorithm"), 0U);
    expected.replace(0, std::string("TestAlgorithm").size(), "GpuAlgorithm");
    EXPECT_EQ(algorithm->run(), expected);
    EXPECT_EQ(algorithm->m_calls, Calls{"preProcess"});
}

TEST(BaseGpuProcessingAlgorithm, StepsOfItsOwnDoNothing)
{
    const auto algorithm = makeAlgorithm<GpuAlgorithm>();
    EXPECT_EQ(algorithm->callBasePreProcess().status, eStepStatus::eStepSuccess);
    EXPECT_EQ(algorithm->callBasePostProcess().status, eStepStatus::eStepSuccess);
    EXPECT_TRUE(algorithm->m_calls.empty());
}

TEST(BaseGpuProcessingAlgorithm, TakesTheFirstDeviceUnlessTold)
{
    GpuAlgorithm algorithm;
    EXPECT_EQ(algorithm.getDeviceIndex(), 0);
    algorithm.setDeviceIndex(1);
    EXPECT_EQ(algorithm.getDeviceIndex(), 1);
    EXPECT_EQ(algorithm.getProcessorType(), eProcessorType::eSyncProcessor);
}

TEST(GpuScaffold, HasOneTableAndAllNamesOfAProcessor)
{
    const GpuAlgorithm algorithm;
    EXPECT_EQ(&GpuAlgorithm::retrieveFunctionSelector(), &GpuAlgorithm::accessFunctionSelector());
    EXPECT_EQ(&algorithm.getFunctionSelector(), &GpuAlgorithm::accessFunctionSelector());
    EXPECT_EQ(GpuAlgorithm::getObjectNameStr(), "GpuAlgorithm");
    EXPECT_EQ(GpuAlgorithm::getTypeName(), "orlix::processor::test::GpuAlgorithm");
    EXPECT_EQ(GpuAlgorithm::getVersion(), 1U);
    OutputInitializerMap initializers;
    algorithm.initOutputInitializers(initializers);
    EXPECT_TRUE(initializers.empty());
}

TEST(GpuScaffold, RegistrationEntersTheClassAndTheRows)
{
    EXPECT_NE(ProcessorFactory::getInstance().createProcessor("orlix::processor::test::GpuAlgorithm"), nullptr);
    EXPECT_EQ(GpuAlgorithm::accessFunctionSelector().getFunctions().size(), 2U);
}

} // namespace
} // namespace orlix::processor::test
