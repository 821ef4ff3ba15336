// Ends in the way that its argument names while asynchronous runs are under way.
#include "ORLIX/ORLIXCore/BaseAction.h"
#include "ORLIX/ORLIXCore/BaseActionProvider.h"
#include "ORLIX/ORLIXCore/BaseExecutor.h"
#include "ORLIXCore/TestActions.h"

#include <chrono>
#include <cstdlib>
#include <iostream>
#include <map>
#include <string>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace orlix;
using namespace orlix::core;

/// What elements use: made by the first of them, at a time when runs are under way, and useless once it has ended.
class LateStatic
{
public:
    ~LateStatic() { m_bEnded = true; }
    void use() const
    {
        if (m_bEnded) {
            std::cerr << "an element ran when static objects had ended\n";
            std::_Exit(3);
        }
    }

private:
    volatile bool m_bEnded = false;
};

template <int number>
LateStatic& accessLate()
{
    static LateStatic g_late;
    return g_late;
}

void useLate(unsigned long element)
{
    switch (element % 4) {
    case 0: accessLate<0>().use(); break;
    case 1: accessLate<1>().use(); break;
    case 2: accessLate<2>().use(); break;
    default: accessLate<3>().use(); break;
    }
}

/// A level whose many elements take their time and keep their provider alive.
boost::shared_ptr<TestAction> makeLongAction()
{
    return boost::make_shared<TestAction>([](RunContext& context) {
        TestProvider provider(2000, [](unsigned long element, RunContext&) {
            useLate(element);
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
            useLate(element + 1);
            return true;
        });
        return runElements(provider, context);
    });
}

void startRuns(int nbRuns)
{
    for (int i = 0; i < nbRuns; ++i) {
        static_cast<void>(makeLongAction()->run(eSynchroType::eSynchroAsync));
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
}

/// Starts and waits for runs while it ends, as a static object of a program may.
struct RunsAtItsEnd
{
    ~RunsAtItsEnd()
    {
        const auto action = boost::make_shared<TestAction>([](RunContext&) { return true; });
        static_cast<void>(action->run(eSynchroType::eSynchroAsync));
        static_cast<void>(action->wait());
        const auto second = boost::make_shared<TestAction>([](RunContext&) { return true; });
        if (!second->run(eSynchroType::eSynchroSync)) {
            std::_Exit(4);
        }
    }
};

bool g_bChild = false;

/// The last handler of all, before libraries end: the logging library waits for threads that a child doesn't have.
void endChild()
{
    if (g_bChild) {
        ::_exit(5);
    }
}

/// Forks while runs are under way; the child ends by exit.
int forkAndExit()
{
    const pid_t child = ::fork();
    if (child == 0) {
        ::alarm(60); // a child that hangs is ended
        g_bChild = true;
        startRuns(3);
        std::exit(5);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 5 ? 0 : 6;
}

/// The last run is waited for by name; the others are under way.
int waitForOne()
{
    const auto action = boost::make_shared<TestAction>([](RunContext&) { return true; });
    static_cast<void>(action->run(eSynchroType::eSynchroAsync));
    return action->wait() ? 0 : 7;
}

} // namespace

int main(int argc, char** argv)
{
    std::atexit(endChild);
    const std::string way = argc > 1 ? argv[1] : "";
    if (argc > 2) {
        setExecutor(std::string(argv[2]) == "plain" ? makePlainThreadExecutor(2) : makeTbbExecutor(2));
    }
    static RunsAtItsEnd g_last;
    if (way == "threads") { // another thread starts them, and the main one knows nothing of it
        std::thread([] { startRuns(6); }).join();
        return 0;
    }
    startRuns(6);
    if (way == "exit") {
        std::exit(0);
    }
    if (way == "fork") {
        return forkAndExit();
    }
    if (way == "element") { // from inside a run
        static_cast<void>(boost::make_shared<TestAction>([](RunContext&) -> ProcessingResult<bool> {
                              std::exit(0);
                          })->run(eSynchroType::eSynchroSync));
    }
    return way == "wait" ? waitForOne() : 0;
}
