// Algorithms of the tests' own: kernels that write down how they are called, over parsers that do the same.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/KernelScaffold.h"
#include "ORLIXBaseProcessing/TestLibrary.h"

#include <boost/make_shared.hpp>

#include <stdexcept>

namespace orlix::processor::test {

class TestType final : public BaseDataTypeIdentifier
{
public:
    explicit TestType(unsigned id) { initBase(id); }
};

using Calls = std::vector<std::string>;

/// Hands out `nbBlocks` blocks; its description of a block starts at ten times its own number.
class TestParser final : public BaseDataParser
{
public:
    TestParser(unsigned long number, unsigned long nbBlocks, Calls& calls)
        : m_number(number), m_nbBlocks(nbBlocks), m_calls(calls)
    {}
    unsigned long getNbBlocks() const override { return m_nbBlocks; }
    void startBlock(unsigned long block, ProcessingInfo& info) override
    {
        note("start", block);
        info = {10 * m_number, m_nbBlocks, block, 0};
    }
    void endBlock() override { note("end", 0); }
    void clear() override { note("clear", 0); }

private:
    void note(const std::string& what, unsigned long block)
    {
        m_calls.push_back(what + std::to_string(m_number) + (what == "start" ? "." + std::to_string(block) : ""));
    }

    unsigned long m_number;
    unsigned long m_nbBlocks;
    Calls& m_calls;
};

/// Its kernels exist for type 1 in all sets and for type 2 in plain code and AVX2; `tag` gives tests classes of their
/// own, and so tables of their own.
template <int tag>
class TestAlgorithm final : public KernelScaffold<TestAlgorithm<tag>, TestLibrary, InOptNumber>
{
public:
    static constexpr ProcessorText g_text{"TestAlgorithm", eTestToolTip::eAlgorithm, "TestAlgorithm.h"};

    RulePtr createRule() const { return none(); }

    template <eInstructionSet::domain ISA>
    ProcessingResult<bool> kernel(const ProcessingInfo& info)
    {
        m_calls.push_back("kernel");
        m_set = ISA;
        m_infos.push_back(info);
        if (m_failAt == "kernel") {
            return ProcessingResult<bool>::failure("the kernel failed");
        }
        if (m_failAt == "kernel throws") {
            throw std::runtime_error("the kernel threw");
        }
        return BaseProcessingAlgorithm::succeed();
    }

    std::string run()
    {
        const ProcessingResult<bool> result = core::BaseAction::run(core::eSynchroType::eSynchroSync);
        return result ? "no failure" : result.getMessage();
    }

    unsigned m_type = 1;
    std::vector<unsigned long> m_nbBlocks; ///< one parser each
    std::string m_failAt;

    Calls m_calls;
    std::vector<ProcessingInfo> m_infos;
    eInstructionSet m_set;

protected:
    ProcessingResult<bool> getDataTypeIdColl(DataTypeIdentifierColl& types) const override
    {
        if (m_failAt == "types") {
            return ProcessingResult<bool>::failure("no types");
        }
        m_type == 0 ? types.init() : types.init(TestType(m_type));
        return true;
    }
    ProcessingResult<bool> initDataParserColl(std::vector<boost::shared_ptr<BaseDataParser>>& parsers) override
    {
        m_calls.push_back("init");
        parsers.clear();
        for (unsigned long i = 0; i < m_nbBlocks.size(); ++i) {
            parsers.push_back(boost::make_shared<TestParser>(i + 1, m_nbBlocks[i], m_calls));
        }
        return m_failAt == "parsers" ? ProcessingResult<bool>::failure("no parsers") : ProcessingResult<bool>(true);
    }
    void clearDataParserColl() override { m_calls.push_back("clear"); }
};

template <class TAlgorithm, eInstructionSet::domain ISA>
constexpr KernelFunction testKernel()
{
    return static_cast<KernelFunction>(&TAlgorithm::template kernel<ISA>);
}

/// Enters a row into the class's table whether or not this processor has the set: the kernels are plain code.
template <class TAlgorithm, eInstructionSet::domain ISA>
void enterRow(unsigned type)
{
    DataTypeIdentifierColl types;
    type == 0 ? types.init() : types.init(TestType(type));
    AlgorithmFunctionIdentifier row;
    row.init(types, {ISA}, AlgorithmFunctionEfficiency<ISA, 0, 0>::getEfficiency(), testKernel<TAlgorithm, ISA>());
    static_cast<void>(TAlgorithm::retrieveFunctionSelector().registerFunction(row)); // a test that is repeated is there
}

template <class TAlgorithm>
boost::shared_ptr<TAlgorithm> makeAlgorithm()
{
    auto algorithm = boost::make_shared<TAlgorithm>();
    static_cast<void>(algorithm->init(eProcessorRulePolicy::eRulePolicyCheck));
    return algorithm;
}

} // namespace orlix::processor::test
