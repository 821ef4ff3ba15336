// A processor of one stage that writes down, in order, what a run asks of it, and fails where it is told to.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseAsyncProcessor.h"
#include "ORLIXBaseProcessing/TestLibrary.h"
#include "ORLIXCore/TestActions.h"

#include <mutex>
#include <stdexcept>

namespace orlix::processor::test {

/// What was asked, in order; the step named `failing` fails with its own name as message, `throwing` throws it.
struct Record
{
    std::vector<std::string> steps;
    std::string failing;
    std::string throwing;

    std::mutex mutex; ///< elements note their steps at the same time

    ProcessingResult<bool> note(const std::string& step)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        steps.push_back(step);
        if (step == throwing) {
            throw std::runtime_error(step + " threw");
        }
        return step == failing ? ProcessingResult<bool>::failure(step + " failed") : ProcessingResult<bool>(true);
    }
    StepResult noteStep(const std::string& step)
    {
        return note(step) ? StepResult::success() : StepResult::failed(step + " failed");
    }
};

/// Needs a number, may be given another, and makes the numbers that come out where nobody gave any.
class RecordingProcessor final
    : public Scaffold<RecordingProcessor, BaseAsync1Processor, TestLibrary, InNumber, InOptNumber, OutNumbers>
{
public:
    static constexpr ProcessorText g_text{"RecordingProcessor", eTestToolTip::eRecorder,
                                          "/somewhere/include/private/TestLibrary/RecordingProcessor.h"};

    RulePtr createRule() const { return boost::make_shared<RecordingRule>(m_record); }
    void initOutputInitializers(OutputInitializerMap& initializers) const
    {
        initializers[OutNumbers::getObjectNameStr()] =
            boost::make_shared<RecordingInitializer>(m_record, accessAttribute<OutNumbers>());
    }

    Record& accessRecord() const { return *m_record; }
    std::vector<std::string> takeSteps() const { return std::exchange(m_record->steps, {}); }

    /// Where the elements put what they come to; each adds one to the number and notes `element`.
    bool m_bNothingToDo = false;
    unsigned m_seenPriority = ~0u; ///< depth of the priority that the last provider was asked for with

    void clearIntermediateData() override { static_cast<void>(m_record->note("clearIntermediateData")); }

protected:
    using BaseAsync1Processor::retrieveProvider;
    ProviderResult retrieveProvider(const core::BasePriority& priority,
                                    boost::shared_ptr<core::BaseActionProvider>& provider) override
    {
        m_seenPriority = priority.getDepth();
        if (!m_record->note("retrieveProvider")) {
            return ProviderResult::failed("retrieveProvider failed");
        }
        if (m_bNothingToDo) {
            return ProviderResult::none();
        }
        provider = boost::make_shared<core::TestProvider>(2, [this](unsigned long, core::RunContext&) {
            {
                const std::lock_guard<std::mutex> lock(m_record->mutex);
                accessAttribute<OutNumbers>()->getDataItemNode().push_back(accessAttribute<InNumber>()->getValue() + 1);
            }
            return m_record->note("element");
        });
        return ProviderResult::ready();
    }
    void syncInputDataDerived() override { static_cast<void>(m_record->note("syncInput")); }
    void syncOutputDataDerived() override { static_cast<void>(m_record->note("syncOutput")); }
    void cleanOnErrorDerived() override { static_cast<void>(m_record->note("cleanOnError")); }
    StepResult preProcess() override { return m_record->noteStep("preProcess"); }
    StepResult postProcess() override { return m_record->noteStep("postProcess"); }
    void endProcess() override { static_cast<void>(m_record->note("endProcess")); }

private:
    class RecordingRule final : public BaseRule
    {
    public:
        explicit RecordingRule(const boost::shared_ptr<Record>& record) : m_record(record) {}
        ProcessingResult<bool> check() const override { return m_record->note("rule"); }

    private:
        boost::shared_ptr<Record> m_record;
    };

    class RecordingInitializer final : public BaseOutputInitializer
    {
    public:
        RecordingInitializer(const boost::shared_ptr<Record>& record, const AttributeRef<OutNumbers>& output)
            : m_record(record), m_output(output)
        {}
        bool isOutputInitNeeded() const override { return !m_output.access()->isSet(); }
        ProcessingResult<bool> initOutput() override
        {
            ProcessingResult<bool> result = m_record->note("initializer");
            if (result) {
                m_output.access()->init(boost::make_shared<Numbers>());
            }
            return result;
        }

    private:
        boost::shared_ptr<Record> m_record;
        AttributeRef<OutNumbers> m_output;
    };

    boost::shared_ptr<Record> m_record = boost::make_shared<Record>();
};

} // namespace orlix::processor::test
