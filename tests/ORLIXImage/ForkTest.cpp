// Pixel memory in a forked child, whichever thread of its parent was busy with it.
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImage/PixelMemoryPool.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstring>
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
    std::atomic<bool> bOver{false};
    std::vector<std::thread> threads;
    for (int i = 0; i < 3; ++i) {
        threads.emplace_back([&bOver] {
            while (!bOver) {
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
    bOver = true;
    for (std::thread& thread : threads) {
        thread.join();
    }
}

} // namespace
} // namespace orlix::image
