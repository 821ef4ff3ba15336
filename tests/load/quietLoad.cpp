// Loads all libraries and works a little: no thread may start before work asks for one, all of that has to go where the
// system gives no thread, and a forked child has to come to its end.
#include "Check.h"

#include "ORLIX/ORLIXUtil/Logger/ORLIXUtilLogMessages.h"
#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPL/ORLIXImage/ORLIXImage.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <system_error>
#include <thread>

#include <linux/filter.h>
#include <linux/sched.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstddef>

namespace {

using orlix::test::check;

long countThreads()
{
    const std::filesystem::directory_iterator tasks("/proc/self/task");
    return std::distance(begin(tasks), end(tasks));
}

template <std::size_t n>
bool filterCalls(const sock_filter (&filter)[n])
{
    const sock_fprog program = {n, const_cast<sock_filter*>(filter)};
    return ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

/// From here on the system ends this process if it opens a file.
bool endOnOpening()
{
    const sock_filter filter[] = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_openat, 1, 0),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_open, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_KILL_PROCESS),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    };
    return filterCalls(filter);
}

/// From here on the system gives this process and its children no thread, but still new processes.
bool refuseThreads()
{
    const sock_filter filter[] = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_clone3, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | ENOSYS), // the C library takes clone then
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_clone, 0, 3),
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, args[0])),
        BPF_JUMP(BPF_JMP | BPF_JSET | BPF_K, CLONE_THREAD, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EAGAIN),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    };
    return filterCalls(filter);
}

bool canStartThreads()
{
    try {
        std::thread([] {}).join();
        return true;
    } catch (const std::system_error&) {
        return false;
    }
}

/// The exit status of a child that runs `body` and calls exit; minus the signal's number where one ended it, as a child
/// that hangs is after so many seconds.
template <class TBody>
int statusOfChild(unsigned seconds, const TBody& body)
{
    const pid_t child = ::fork();
    if (child == 0) {
        ::alarm(seconds);
        std::exit(body());
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

bool copySmallImage()
{
    using namespace orlix;
    const ImagePtr source = image::createImage(*image::geometry2d(image::eImageBufferType::UInt8, 40, 30));
    image::planData<unsigned char>(*source, 0, 0, 0)[7] = 77;
    return image::planData<unsigned char>(*imaproc::util::copyImg(source), 0, 0, 0)[7] == 77;
}

/// Large enough for several threads.
bool copyLargeImage()
{
    using namespace orlix;
    const ImagePtr source = image::createImage(*image::geometry2d(image::eImageBufferType::UInt8, 3000, 2000));
    unsigned char* const pixels = image::planData<unsigned char>(*source, 0, 0, 0);
    for (unsigned long i = 0; i < 3000 * 2000; ++i) {
        pixels[i] = static_cast<unsigned char>(i % 251);
    }
    const ImagePtr copy = imaproc::util::copyImg(source);
    const unsigned char* const copied = image::planData<unsigned char>(*copy, 0, 0, 0);
    for (unsigned long i = 0; i < 3000 * 2000; ++i) {
        if (copied[i] != i % 251) {
            return false;
        }
    }
    return true;
}

bool raiseError()
{
    using namespace orlix;
    try {
        raise<eORLIXUtilErrors>(ORLIX_HERE, eORLIXUtilErrors::eNoCopySupport, "Quiet");
    } catch (const BaseException& error) {
        return error.getMessage() == "Objects of class Quiet can't be copied: make a new one instead";
    }
}

int work()
{
    check(countThreads() == 1, "threads after loading: " + std::to_string(countThreads()));
    check(!orlix::test::isMapped("log4cplus"), "log4cplus is loaded where nobody wants to hear anything");
    check(copySmallImage(), "copying a small image");
    check(statusOfChild(30, [] { return 3; }) == 3, "the end of a forked child");
    check(raiseError(), "the text of an error");
    check(statusOfChild(30, [] { return raiseError() ? 4 : 5; }) == 4, "the end of a child forked after an error");
    check(statusOfChild(30, [] { return endOnOpening() && raiseError() ? 6 : 7; }) == 6, "an error opens no file");
    check(countThreads() == 1, "threads after a small image and an error: " + std::to_string(countThreads()));
    check(!orlix::test::isMapped("log4cplus"), "log4cplus is loaded by an error that nobody wants to hear");
    check(copyLargeImage() && copyLargeImage(), "copying a large image");
    return orlix::test::g_nbFailures == 0 ? 0 : 1;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fputs("usage: quietLoad <orlix>, or quietLoad --work\n", stderr);
        return 2;
    }
    if (std::string(argv[1]) == "--work") {
        return work();
    }
    check(statusOfChild(120, [] { return ::execl("/proc/self/exe", "quietLoad", "--work", nullptr); }) == 0, "work");
    check(canStartThreads(), "threads before they are refused");
    check(refuseThreads() && !canStartThreads(), "refusing threads");
    check(statusOfChild(120, [] { return ::execl("/proc/self/exe", "quietLoad", "--work", nullptr); }) == 0,
          "work without threads");
    check(statusOfChild(120, [&] { return ::execl(argv[1], "orlix", "--version", nullptr); }) == 0,
          "orlix --version without threads");
    return orlix::test::g_nbFailures == 0 ? 0 : 1;
}
