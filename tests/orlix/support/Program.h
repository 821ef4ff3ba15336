// The built program, run as a shell would, without one.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace orlix::test {

struct ProgramResult
{
    int exitCode; ///< minus the signal's number where a signal ended the program
    std::string out;
    std::string err;
};

/// Makes every signal act on this process as it does on a program that a shell starts in the foreground. `nohup`, a job
/// in the background and their kin hand down ignored and blocked ones.
void forgetSignals();

/// A program that runs. It is killed where it outlives the object.
class Program
{
public:
    /// Whether the standard streams are pipes, or one terminal that also sends Ctrl-C.
    enum class eStreams { pipes, terminal };

    /// Starts orlix with `arguments`, without the signals that this process ignores or blocks. `prepare` runs in the
    /// new process before it becomes orlix.
    explicit Program(const std::vector<std::string>& arguments, eStreams streams = eStreams::pipes,
                     const std::function<void()>& prepare = {});
    /// Starts any program; `command` begins with its name.
    static Program start(const std::vector<std::string>& command);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    /// Reads until the terminal has shown `text`; false where the program ended or a minute passed before.
    bool waitForText(const std::string& text);
    /// Presses keys on the terminal.
    void type(const std::string& keys);
    void signal(int number);
    /// Reads to the end. What a terminal showed is in `out`.
    ProgramResult finish();

private:
    struct Plain
    {};
    Program(Plain, const std::vector<std::string>& command, eStreams streams, const std::function<void()>& prepare);
    /// Reads what is there; false at the end of all streams. Throws where nothing comes for a minute.
    bool readSome();

    pid_t m_process = -1;
    int m_out = -1;
    int m_err = -1;
    ProgramResult m_result{};
};

/// orlix with `arguments`, from start to end, in pipes.
ProgramResult runOrlix(const std::vector<std::string>& arguments);

} // namespace orlix::test
