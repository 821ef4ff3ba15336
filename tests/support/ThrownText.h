// The text of what a call throws.
#pragma once

#include <string>

namespace orlix::testing {

/// "no exception" where `call()` throws nothing; other exceptions than TException pass.
template <class TException, class TCall>
std::string thrownText(const TCall& call)
{
    try {
        call();
    } catch (const TException& exception) {
        return exception.what();
    }
    return "no exception";
}

} // namespace orlix::testing
