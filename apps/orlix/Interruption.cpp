// Ctrl-C and its kin.
#include "Interruption.h"

#include "CommandLine.h"

#include "ORLIX/ORLIXUtil/FileReplacement.h"

#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <csignal>

namespace orlix::cli {

namespace {

// A signal handler may touch nothing but lock-free atomics.
std::atomic<const std::string*> g_line{nullptr};
std::atomic<bool> g_bEnding{false};
std::atomic<std::size_t> g_lengthToWipe{0};
static_assert(std::atomic<const std::string*>::is_always_lock_free && std::atomic<bool>::is_always_lock_free &&
              std::atomic<std::size_t>::is_always_lock_free);

void print(const char* text, std::size_t length)
{
    [[maybe_unused]] const long ignored = ::write(STDERR_FILENO, text, length);
}

void wipeLine(std::size_t length)
{
    constexpr char g_blanks[] = "                                ";
    constexpr std::size_t g_nbBlanks = sizeof g_blanks - 1;
    print("\r", 1);
    for (std::size_t left = length; left > 0; left -= std::min(left, g_nbBlanks)) {
        print(g_blanks, std::min(left, g_nbBlanks));
    }
    print("\r", 1);
}

extern "C" void obeySignal(int)
{
    if (g_bEnding.exchange(true)) {
        return; // another signal is being obeyed
    }
    FileReplacement::removeTemporaryFiles(); // first, since a terminal may make the program wait
    if (const std::size_t length = g_lengthToWipe.load(); length > 0) {
        wipeLine(length);
    }
    const std::string& line = *g_line.load();
    print(line.data(), line.size());
    ::_exit(eExitCode::eInterrupted);
}

} // namespace

void handleSignals(const std::string& line)
{
    static const std::string g_text = line;
    g_line.store(&g_text);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction before = {};
        if (::sigaction(signal, nullptr, &before) == 0 && before.sa_handler == SIG_IGN) {
            continue;
        }
        struct sigaction action = {};
        action.sa_handler = &obeySignal;
        action.sa_flags = SA_RESTART;
        ::sigaction(signal, &action, nullptr);
    }
    std::signal(SIGXFSZ, SIG_IGN);
}

void setLineToWipe(std::size_t length) noexcept
{
    g_lengthToWipe.store(length);
}

} // namespace orlix::cli
