// Runs that end where there is no memory at all any more, not even for the text of their failure.
#include "ORLIX/ORLIXCore/BaseAction.h"

#include "ORLIXCore/TestActions.h"
#include "support/Executors.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#include <stdexcept>
#include <thread>

namespace {

thread_local bool t_bMemoryIsOut = false; // for the calling thread

} // namespace

// Not inlined: the compiler would take the C library's functions for mismatched ones.
[[gnu::noinline]] void* operator new(std::size_t bytes)
{
    void* const block = t_bMemoryIsOut ? nullptr : std::malloc(bytes);
    return block != nullptr ? block : throw std::bad_alloc();
}

[[gnu::noinline]] void operator delete(void* block) noexcept
{
    std::free(block);
}

[[gnu::noinline]] void operator delete(void* block, std::size_t) noexcept
{
    std::free(block);
}

namespace orlix::core {
namespace {

using orlix::testing::ScopedExecutor;

constexpr auto g_sync = eSynchroType::eSynchroSync;
constexpr auto g_async = eSynchroType::eSynchroAsync;
constexpr const char* g_outOfMemory =
    "There is not enough memory: end other programs, work on smaller images, or on fewer of them at a time";

/// Does each task at once, on a thread of its own for which memory may be out from the moment it says so.
class OneTaskAThread final : public BaseExecutor
{
public:
    unsigned long getNbThreads() const override { return 1; }
    void forEach(unsigned long nbElements, unsigned long, const ElementBody& body) override
    {
        for (unsigned long element = 0; element < nbElements; ++element) {
            body(element);
        }
    }
    void post(boost::function<void()> task) override
    {
        std::thread([&task] {
            task();
            t_bMemoryIsOut = false;
        }).join();
    }
};

/// Has no memory for a task.
class Overburdened final : public BaseExecutor
{
public:
    unsigned long getNbThreads() const override { return 1; }
    void forEach(unsigned long, unsigned long, const ElementBody&) override {}
    void post(boost::function<void()>) override { throw std::bad_alloc(); }
};

boost::shared_ptr<TestAction> makeAction(TestAction::Work work)
{
    return boost::make_shared<TestAction>(std::move(work));
}

TEST(OutOfMemory, AnExceptionWithoutMemoryForItsTextIsAFailure)
{
    const ScopedExecutor scope(boost::make_shared<OneTaskAThread>());
    const std::exception_ptr longText = std::make_exception_ptr(std::runtime_error(std::string(100, 'x')));
    const auto action = makeAction([&](RunContext&) -> ProcessingResult<bool> {
        t_bMemoryIsOut = true;
        std::rethrow_exception(longText);
    });
    EXPECT_TRUE(action->run(g_async).getValue());
    EXPECT_TRUE(action->isFinished());
    EXPECT_FALSE(action->wait().getValue());
    EXPECT_EQ(action->wait().getMessage(), g_outOfMemory);
}

TEST(OutOfMemory, SoIsOneOfUnknownType)
{
    const ScopedExecutor scope(boost::make_shared<OneTaskAThread>());
    const std::exception_ptr number = std::make_exception_ptr(17);
    const auto action = makeAction([&](RunContext&) -> ProcessingResult<bool> {
        t_bMemoryIsOut = true;
        std::rethrow_exception(number);
    });
    EXPECT_TRUE(action->run(g_async).getValue());
    EXPECT_EQ(action->wait().getMessage(), g_outOfMemory);
}

TEST(OutOfMemory, OutOfMemoryItselfSaysWhatToDo)
{
    const ScopedExecutor scope(boost::make_shared<OneTaskAThread>());
    const auto action = makeAction([](RunContext&) -> ProcessingResult<bool> {
        t_bMemoryIsOut = true;
        throw std::bad_alloc();
    });
    EXPECT_TRUE(action->run(g_async).getValue());
    t_bMemoryIsOut = true; // here too: a copy of the result needs none
    const ProcessingResult<bool> result = action->wait();
    t_bMemoryIsOut = false;
    EXPECT_FALSE(result.getValue());
    EXPECT_EQ(result.getMessage(), g_outOfMemory);
    EXPECT_THROW(static_cast<void>(action->run(g_sync)), std::bad_alloc);
    t_bMemoryIsOut = false;
    EXPECT_EQ(action->wait().getMessage(), g_outOfMemory);
}

TEST(OutOfMemory, AFailureWhoseTextCantBeCopiedIsStillAFailure)
{
    const ScopedExecutor scope(boost::make_shared<OneTaskAThread>());
    const std::string text(100, 'y');
    const auto action = makeAction([&](RunContext&) { return ProcessingResult<bool>::failure(text); });
    EXPECT_TRUE(action->run(g_async).getValue());
    t_bMemoryIsOut = true;
    const ProcessingResult<bool> poor = action->wait();
    t_bMemoryIsOut = false;
    EXPECT_FALSE(poor.getValue());
    EXPECT_EQ(poor.getMessage(), g_outOfMemory);
    EXPECT_EQ(action->wait().getMessage(), text);
}

TEST(OutOfMemory, ARunThatCantBePostedFailsAndCanBeTriedAgain)
{
    const auto action = makeAction([](RunContext&) { return true; });
    {
        const ScopedExecutor scope(boost::make_shared<Overburdened>());
        EXPECT_EQ(action->run(g_async).getMessage(), g_outOfMemory);
        EXPECT_TRUE(action->isFinished());
        EXPECT_EQ(action->wait().getMessage(), g_outOfMemory);
        EXPECT_TRUE(action->m_hooks.empty());
    }
    t_bMemoryIsOut = true;
    const ProcessingResult<bool> poor = action->run(g_async);
    t_bMemoryIsOut = false;
    EXPECT_EQ(poor.getMessage(), g_outOfMemory);
    EXPECT_TRUE(action->run(g_async).getValue());
    EXPECT_TRUE(action->wait().getValue());
}

} // namespace
} // namespace orlix::core
