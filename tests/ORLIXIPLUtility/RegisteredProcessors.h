// Tests that every processor of this library goes through.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/ProcessorFactory.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace orlix::imaproc::util {

/// What is known of a processor class of this library.
struct RegisteredProcessor
{
    const char* name;
    const char* operatorName; ///< the folder of its header
    const char* toolTip;
    std::vector<std::string> attributes; ///< in the order in which they are checked
};

class RegisteredProcessorTest : public ::testing::TestWithParam<RegisteredProcessor>
{
protected:
    std::string typeName() const { return std::string("orlix::imaproc::util::") + GetParam().name; }
    boost::shared_ptr<processor::BaseProcessor> make() const
    {
        return processor::ProcessorFactory::getInstance().createProcessor(typeName());
    }
    boost::shared_ptr<processor::BaseProcessor> makeInitialised() const
    {
        const auto made = make();
        EXPECT_TRUE(made->init(processor::eProcessorRulePolicy::eRulePolicyCheck));
        return made;
    }
    /// The text of the failure of a run.
    static std::string failureOf(processor::BaseProcessor& processor)
    {
        return processor.run(core::eSynchroType::eSynchroSync).getMessage();
    }
    /// The first attribute that a run can't do without.
    static const processor::BaseAttribute* firstNeeded(const processor::BaseProcessor& processor)
    {
        for (const auto& attribute : processor.getAttributeColl()) {
            if (!attribute->isOptional() && !processor.makesOutput(attribute->getObjectName())) {
                return attribute.get();
            }
        }
        return nullptr;
    }
};

} // namespace orlix::imaproc::util
