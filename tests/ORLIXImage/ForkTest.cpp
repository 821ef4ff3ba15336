// Pixel memory in a forked child, whichever thread of its parent was busy with it.
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImage/PixelMemoryPool.h"
#include "support/Sanitizers.h"

#include <gtest/gtest.h>

#include <cstring>
#include <stop_token>
#include <thread>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

namespace orlix::image {
namespace {

/// Makes, fills and ends images whose pixels lie in the pool, and in memory for small ones.
void useMemory()
{
    for (const unsigned long bytes : {100UL, 5000UL, 200000UL, 3UL << 20}) {
        const ImagePtr image = createImage(*geometry2d(eImageBufferType::UInt8, bytes, 1));
        std::memset(planData<unsigned char>(*image, 0, 0, 0), 5, bytes);
    }
    for (int i = 0; i < 10000; ++i) {
        static_cast<void>(getPooledMemoryLimit()); // has the pool locked nearly all the time
    }
}

TEST(Fork, ChildrenHaveMemoryWhateverOtherThreadsDo)
{
#if defined(ORLIX_ADDRESS_SANITIZER) || defined(ORLIX_THREAD_SANITIZER)
    GTEST_SKIP() << "the sanitizer's own allocator may be locked in a child forked while others allocate";
#endif
    std::vector<std::jthread> threads;
    for (int i = 0; i < 3; ++i) {
        threads.emplace_back([](const std::stop_token& stop) {
            while (!stop.stop_requested()) {
                useMemory();
            }
        });
    }
    ImagePtr small = createImage(*geometry2d(eImageBufferType::UInt8, 1000, 1));
    for (int repetition = 0; repetition < 100; ++repetition) {
        const pid_t child = ::fork();
        if (child == 0) {
            ::alarm(60);   // a child that hangs is ended
            small.reset(); // of the parent
            useMemory();
            ::_exit(0);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << repetition << ", status " << status;
    }
}

} // namespace
} // namespace orlix::image
