// Programs that end while asynchronous runs are under way.
#include "orlix/support/Program.h"
#include "support/Sanitizers.h"

#include <gtest/gtest.h>

namespace orlix::test {
namespace {

class EndOfProcessTest : public ::testing::TestWithParam<const char*>
{};

TEST_P(EndOfProcessTest, IsQuietWhateverIsUnderWay)
{
#ifdef ORLIX_ADDRESS_SANITIZER
    if (GetParam() == std::string("fork")) {
        GTEST_SKIP() << "the sanitizer's own allocator may be locked in the child";
    }
#endif
#ifdef ORLIX_THREAD_SANITIZER
    const std::vector<std::string> executors = {"plain"}; // it can't see how oneTBB synchronises
#else
    const std::vector<std::string> executors = {"", "tbb", "plain"};
#endif
    for (const std::string& executor : executors) {
        for (int repetition = 0; repetition < 8; ++repetition) {
            std::vector<std::string> command = {ORLIX_END_OF_PROCESS, GetParam()};
            if (!executor.empty()) {
                command.push_back(executor);
            }
            const ProgramResult result = Program::start(command).finish();
            ASSERT_EQ(result.exitCode, 0) << executor << ", " << repetition << ": " << result.err;
            ASSERT_EQ(result.err, "");
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Ways, EndOfProcessTest, ::testing::Values("return", "exit", "wait", "threads", "fork"));

} // namespace
} // namespace orlix::test
