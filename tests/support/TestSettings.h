// What the environment asks of a test program: which instruction set is forced, who runs elements.
#pragma once

#include "ORLIX/ORLIXCore/BaseExecutor.h"
#include "ORLIX/ORLIXCore/InstructionSetAvailability.h"

#include <cstdlib>
#include <optional>
#include <stdexcept>
#include <string>

namespace orlix::testing {

/// The set that ORLIX_TEST_INSTRUCTION_SET names (plain, sse2, avx, avx2, avx512); nothing where the variable is not
/// set. Throws std::invalid_argument for a name that is no set's.
inline std::optional<eInstructionSet> getForcedInstructionSet()
{
    const char* const name = std::getenv("ORLIX_TEST_INSTRUCTION_SET");
    if (name == nullptr) {
        return std::nullopt;
    }
    const std::optional<eInstructionSet> set = core::findInstructionSet(name);
    if (!set) {
        throw std::invalid_argument("ORLIX_TEST_INSTRUCTION_SET is '" + std::string(name) +
                                    "': give plain, sse2, avx, avx2 or avx512");
    }
    return set;
}

/// The executor that ORLIX_TEST_EXECUTOR names (tbb, threads:N, shuffled:SEED); null, which stands for the default,
/// where the variable is not set. Throws std::invalid_argument for anything else.
inline boost::shared_ptr<core::BaseExecutor> makeConfiguredExecutor()
{
    const char* const variable = std::getenv("ORLIX_TEST_EXECUTOR");
    const std::string name = variable == nullptr ? "tbb" : variable;
    if (name == "tbb") {
        return {};
    }
    const std::size_t colon = name.find(':');
    const std::string kind = name.substr(0, colon);
    const std::string digits = colon == std::string::npos ? "" : name.substr(colon + 1);
    if (!digits.empty() && digits.size() < 10 && digits.find_first_not_of("0123456789") == std::string::npos) {
        if (kind == "threads") {
            return core::makePlainThreadExecutor(std::stoul(digits));
        }
        if (kind == "shuffled") {
            return core::makeShuffledExecutor(std::stoul(digits));
        }
    }
    throw std::invalid_argument("ORLIX_TEST_EXECUTOR is '" + name + "': give tbb, threads:N or shuffled:SEED");
}

} // namespace orlix::testing
