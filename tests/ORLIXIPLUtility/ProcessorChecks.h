// What the tests of every operator need of its processors.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseProcessor.h"
#include "ORLIX/ORLIXUtil/BaseException.h"

#include <boost/make_shared.hpp>
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

} // namespace orlix::testing
