// The line on a terminal that shows how far long work is.
#pragma once

#include <chrono>
#include <string>

namespace orlix::cli {

/// Draws on the standard error stream, over and over on one line, and wipes it at the end. Silent unless shown. One
/// thread at a time.
class ProgressLine
{
public:
    explicit ProgressLine(bool bShown) : m_bShown(bShown) {}
    ~ProgressLine() { wipe(); }
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    /// Work of the name `phase` has finished `done` of `known` parts. `known` may grow; the line never goes back while
    /// the phase stays the same. Draws the first and the last state of a phase, and others ten times per second.
    void show(const std::string& phase, unsigned long done, unsigned long known);
    /// Takes the line off the terminal.
    void wipe();

private:
    void draw();

    using Clock = std::chrono::steady_clock;

    bool m_bShown;
    std::string m_phase;
    unsigned m_percent = 0;
    Clock::time_point m_drawn;
    std::size_t m_length = 0; ///< characters on the terminal
};

} // namespace orlix::cli
