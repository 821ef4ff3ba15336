// The built program, run as a shell would, without one.
#include "orlix/support/Program.h"

#include "support/Sanitizers.h"

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <stdexcept>
#include <utility>

namespace orlix::test {

namespace {

constexpr int g_patience = 60000; // milliseconds

[[noreturn]] void becomeProgram(std::vector<char*>& arguments, const std::function<void()>& prepare)
{
    forgetSignals();
    if (prepare) {
        prepare();
    }
    ::execvp(arguments[0], arguments.data());
    ::_exit(127);
}

void closeOnce(int& descriptor)
{
    if (descriptor >= 0) {
        ::close(std::exchange(descriptor, -1));
    }
}

/// Appends what `descriptor` has; closes it at its end. A terminal whose program has gone answers with an error.
void drain(int& descriptor, std::string& text)
{
    char buffer[4096];
    const long got = ::read(descriptor, buffer, sizeof(buffer));
    if (got > 0) {
        text.append(buffer, static_cast<std::size_t>(got));
    } else if (got == 0 || errno != EINTR) {
        closeOnce(descriptor);
    }
}

std::vector<std::string> orlixCommand(const std::vector<std::string>& arguments)
{
    std::vector<std::string> command{ORLIX_PROGRAM};
#ifdef ORLIX_THREAD_SANITIZER // it can't see how oneTBB synchronises; what follows the verb still counts
    command.insert(command.end(), {"--threads", "1"});
#endif
    command.insert(command.end(), arguments.begin(), arguments.end());
    return command;
}

} // namespace

void forgetSignals()
{
    for (int number = 1; number < NSIG; ++number) {
        ::signal(number, SIG_DFL); // fails for those that can't be caught, which need none
    }
    sigset_t none;
    ::sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
}

Program::Program(const std::vector<std::string>& arguments, eStreams streams, const std::function<void()>& prepare)
    : Program(Plain(), orlixCommand(arguments), streams, prepare)
{}

Program Program::start(const std::vector<std::string>& command)
{
    return Program(Plain(), command, eStreams::pipes, {});
}

Program::Program(Plain, const std::vector<std::string>& command, eStreams streams, const std::function<void()>& prepare)
{
    std::vector<char*> arguments;
    for (const std::string& argument : command) {
        arguments.push_back(const_cast<char*>(argument.c_str()));
    }
    arguments.push_back(nullptr);

    if (streams == eStreams::terminal) {
        m_process = ::forkpty(&m_out, nullptr, nullptr, nullptr);
        if (m_process == 0) {
            becomeProgram(arguments, prepare);
        }
    } else {
        int out[2], err[2];
        if (::pipe2(out, O_CLOEXEC) != 0 || ::pipe2(err, O_CLOEXEC) != 0) {
            throw std::runtime_error("no pipe");
        }
        m_process = ::fork();
        if (m_process == 0) {
            ::dup2(::open("/dev/null", O_RDONLY), STDIN_FILENO);
            ::dup2(out[1], STDOUT_FILENO);
            ::dup2(err[1], STDERR_FILENO);
            becomeProgram(arguments, prepare);
        }
        ::close(out[1]);
        ::close(err[1]);
        m_out = out[0];
        m_err = err[0];
    }
    if (m_process < 0) {
        throw std::runtime_error("no process");
    }
}

Program::~Program()
{
    if (m_process > 0) {
        ::kill(m_process, SIGKILL);
        ::waitpid(m_process, nullptr, 0);
    }
    closeOnce(m_out);
    closeOnce(m_err);
}

bool Program::readSome()
{
    if (m_out < 0 && m_err < 0) {
        return false;
    }
    pollfd streams[2] = {{m_out, POLLIN, 0}, {m_err, POLLIN, 0}};
    const int ready = ::poll(streams, 2, g_patience);
    if (ready == 0) {
        throw std::runtime_error("the program hangs");
    }
    if (streams[0].revents != 0) {
        drain(m_out, m_result.out);
    }
    if (streams[1].revents != 0) {
        drain(m_err, m_result.err);
    }
    return true;
}

bool Program::waitForText(const std::string& text)
{
    while (m_result.out.find(text) == std::string::npos) {
        if (!readSome()) {
            return false;
        }
    }
    return true;
}

void Program::type(const std::string& keys)
{
    if (::write(m_out, keys.data(), keys.size()) != static_cast<long>(keys.size())) {
        throw std::runtime_error("the terminal takes no keys");
    }
}

void Program::signal(int number)
{
    ::kill(m_process, number);
}

ProgramResult Program::finish()
{
    while (readSome()) {
    }
    int status = 0;
    ::waitpid(std::exchange(m_process, -1), &status, 0);
    m_result.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    return m_result;
}

ProgramResult runOrlix(const std::vector<std::string>& arguments)
{
    return Program(arguments).finish();
}

} // namespace orlix::test
