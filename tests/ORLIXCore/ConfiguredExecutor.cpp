// The executor that the environment asks for, put in place before any test of this program.
#include "support/Executors.h"

#include <gtest/gtest.h>

namespace orlix::core {
namespace {

class ConfiguredExecutor final : public ::testing::Environment
{
public:
    void SetUp() override { setExecutor(orlix::testing::makeConfiguredExecutor()); }
};

const ::testing::Environment* const g_environment = ::testing::AddGlobalTestEnvironment(new ConfiguredExecutor);

} // namespace
} // namespace orlix::core
