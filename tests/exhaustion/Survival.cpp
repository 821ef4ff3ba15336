#include "exhaustion/Survival.h"

#include "ORLIX/ORLIXUtil/BaseException.h"
#include "ORLIXIPL/ORLIXImage/PixelMemoryPool.h"

#include <boost/filesystem.hpp>

#include <csignal>
#include <cstring>
#include <fstream>
#include <iterator>
#include <new>
#include <string>

namespace orlix::test {

namespace {

namespace fs = boost::filesystem;

template <class TWork>
bool survives(TWork&& work) noexcept
{
    try {
        work();
    } catch (const BaseException&) {
    } catch (const std::bad_alloc&) {
    } catch (...) {
        return false;
    }
    return true;
}

enum class eOthers { none, sleep, work };

eOthers lookAtOtherThreads()
{
    const std::string own = std::to_string(::gettid());
    eOthers others = eOthers::none;
    for (const auto& task : fs::directory_iterator("/proc/self/task")) {
        if (task.path().filename() == own) {
            continue;
        }
        std::ifstream stat((task.path() / "stat").string());
        const std::string text(std::istreambuf_iterator<char>(stat), {});
        const std::size_t nameEnd = text.rfind(')');
        if (nameEnd != std::string::npos && text.compare(nameEnd, 3, ") S") != 0) {
            return eOthers::work;
        }
        others = eOthers::sleep;
    }
    return others;
}

/// Blocks that are live once the threads that work behind the calls have nothing left to do: until then they have in
/// hand what belongs to a run that has been waited for.
long countLiveBlocksAtRest()
{
    constexpr int g_mostLooks = 10000, g_looksAtRest = 3; // a thread may fall asleep for a moment
    int nbAtRest = 0;
    for (int look = 0; look < g_mostLooks && nbAtRest < g_looksAtRest; ++look) {
        const eOthers others = lookAtOtherThreads();
        if (others == eOthers::none) {
            break;
        }
        nbAtRest = others == eOthers::sleep ? nbAtRest + 1 : 0;
        ::usleep(200);
    }
    return getNbLiveBlocks();
}

} // namespace

const char* meaningOf(int status)
{
    switch (status) {
    case g_wrongException: return "threw something that is neither a BaseException nor std::bad_alloc";
    case g_leftFile: return "left a temporary file";
    case g_brokenAfterwards: return "doesn't do its work once there is memory again";
    case g_leak: return "keeps memory";
    case -SIGALRM: return "hangs";
    default: return "ended the process";
    }
}

Round runOnce(const Call& call, const Inputs& in, const FailingAllocations& failing)
{
    image::releasePooledMemory(); // so that large images ask for pages
    Round round;
    {
        const FailingMemory memory(failing);
        const bool bSurvived = survives([&] { call.work(in); });
        round.bFailed = memory.hasFailed();
        round.status = bSurvived ? g_survived : g_wrongException;
    }
    for (const auto& entry : fs::directory_iterator(in.folder)) {
        if (entry.path().filename().string().front() == '.') {
            round.status = g_leftFile;
        }
    }
    return round;
}

bool worksAgain(const Call& call, const Inputs& in)
{
    const bool bRefused = std::strstr(call.name, "Refused") || std::strstr(call.name, "Missing");
    try {
        call.work(in);
    } catch (const BaseException&) {
        return bRefused;
    }
    return !bRefused;
}

/// Grows at each of a few rounds only where something is lost in each: caches fill in the first.
bool leaks(const Call& call, const Inputs& in, const FailingAllocations& failing)
{
    constexpr int g_rounds = 4;
    long before = countLiveBlocksAtRest();
    for (int round = 0; round < g_rounds; ++round) {
        runOnce(call, in, failing);
        const long after = countLiveBlocksAtRest();
        if (after <= before) {
            return false;
        }
        before = after;
    }
    return true;
}

} // namespace orlix::test
