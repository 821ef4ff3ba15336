// Runs a test program as the environment asks: ORLIX_TEST_INSTRUCTION_SET forces a set, ORLIX_TEST_EXECUTOR chooses who
// runs elements, ORLIX_TEST_GPU_LAYER what devices are.
#include "ORLIX/ORLIXBaseProcessing/AlgorithmFunctionSelector.h"
#include "support/GpuTestLayer.h"
#include "support/TestSettings.h"

#include <gtest/gtest.h>

#include <iostream>

namespace {

/// False where the processor lacks the set that is asked for.
bool forceInstructionSet()
{
    const std::optional<orlix::eInstructionSet> set = orlix::testing::getForcedInstructionSet();
    if (!set) {
        return true;
    }
    if (!orlix::core::isAvailable(*set)) {
        std::cout << "Skipped: this processor has no " << orlix::core::getInstructionSetName(*set) << "\n";
        return false;
    }
    orlix::processor::AlgorithmFunctionSelector::setDefaultForcedInstructionSets({*set});
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    try {
        if (!forceInstructionSet()) {
            return ORLIX_TEST_SKIPPED;
        }
        if (const std::string missing = orlix::testing::getMissingDevice(); !missing.empty()) {
            std::cout << "Skipped: no CUDA device: " << missing << "\n";
            return ORLIX_TEST_SKIPPED;
        }
        orlix::core::setExecutor(orlix::testing::makeConfiguredExecutor());
    } catch (const std::exception& error) {
        std::cerr << error.what() << "\n";
        return EXIT_FAILURE;
    }
    const int status = RUN_ALL_TESTS();
    orlix::core::setExecutor({});
    return status;
}
