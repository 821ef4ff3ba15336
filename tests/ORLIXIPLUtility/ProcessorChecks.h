// What the tests of every operator need of its processors, and what holds for all of them as objects.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/ProcessorFactory.h"
#include "ORLIX/ORLIXUtil/BaseException.h"
#include "ORLIX/ORLIXUtil/DynamicObjectFactory.h"
#include "ORLIX/ORLIXUtil/ORLIXUtilException.h"

#include <gtest/gtest.h>

#include <functional>

namespace orlix::testing {

/// The text of the exception that the call ends with.
inline std::string messageOf(const std::function<void()>& call)
{
    try {
        call();
    } catch (const BaseException& error) {
        return error.what();
    }
    return "no exception";
}

template <class TProcessor>
boost::shared_ptr<TProcessor> makeInitialised()
{
    auto made = boost::make_shared<TProcessor>();
    EXPECT_TRUE(made->init(processor::eProcessorRulePolicy::eRulePolicyCheck));
    return made;
}

/// `toolTip` may hold a '#', which stands for the number of the level.
template <class TProcessor>
void expectNames(std::string toolTip)
{
    const std::string name = TProcessor::g_name;
    if (const std::size_t level = toolTip.find('#'); level != std::string::npos) {
        toolTip[level] = name.back();
    }
    EXPECT_EQ(TProcessor::getTypeName(), "orlix::imaproc::util::" + name);
    EXPECT_EQ(TProcessor::getObjectNameStr(), name);
    EXPECT_EQ(TProcessor::getToolTipStr(), toolTip);
    EXPECT_EQ(TProcessor::getVersion(), 1U);
    const TProcessor processor;
    EXPECT_EQ(processor.getClassName(), TProcessor::getTypeName());
    EXPECT_EQ(processor.getObjectName(), name);
    EXPECT_EQ(processor.getToolTip(), toolTip);
}

/// `operatorName` is the folder of its header.
template <class TProcessor>
void expectCreatedByName(const std::string& operatorName)
{
    const std::string name = TProcessor::getTypeName();
    EXPECT_NE(boost::dynamic_pointer_cast<TProcessor>(DynamicObjectFactory::getInstance().createShared(name)), nullptr);
    const processor::ProcessorFactory& factory = processor::ProcessorFactory::getInstance();
    EXPECT_NE(boost::dynamic_pointer_cast<TProcessor>(factory.createProcessor(name)), nullptr);
    const processor::ProcessorFactory::ProcessorInfo info = factory.getProcessorInfo(name);
    EXPECT_EQ(info.objectName, TProcessor::g_name);
    EXPECT_EQ(info.toolTip, TProcessor::getToolTipStr());
    EXPECT_EQ(info.libraryName, "ORLIXIPLUtility");
    EXPECT_EQ(info.headerPath.string(),
              "ORLIXIPL/ORLIXIPLUtility/Processor/" + operatorName + "/" + TProcessor::g_name + ".h");
}

template <class TProcessor>
void expectNoCopy()
{
    TProcessor processor;
    EXPECT_FALSE(processor.hasCopySupport());
    EXPECT_THROW(static_cast<void>(processor.duplicate()), ORLIXUtilException);
    EXPECT_THROW(static_cast<void>(processor.duplicateShared()), ORLIXUtilException);
    EXPECT_THROW(processor.copy(TProcessor()), ORLIXUtilException);
}

} // namespace orlix::testing
