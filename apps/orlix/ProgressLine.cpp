// The line on a terminal that shows how far long work is.
#include "ProgressLine.h"

#include "Interruption.h"

#include <algorithm>
#include <iostream>

namespace orlix::cli {

namespace {

constexpr std::chrono::milliseconds g_redrawTime{100};
constexpr unsigned g_barLength = 30;

unsigned percentOf(unsigned long done, unsigned long known)
{
    return known == 0 ? 0 : static_cast<unsigned>(100.0 * static_cast<double>(done) / static_cast<double>(known));
}

} // namespace

void ProgressLine::show(const std::string& phase, unsigned long done, unsigned long known)
{
    if (!m_bShown) {
        return;
    }
    const bool bNewPhase = phase != m_phase;
    if (bNewPhase) {
        m_phase = phase;
        m_percent = 0;
    }
    const unsigned percent = std::min(percentOf(done, known), 100U);
    const bool bComplete = percent == 100 && m_percent != 100;
    m_percent = std::max(m_percent, percent);
    if (bNewPhase || bComplete || Clock::now() - m_drawn >= g_redrawTime) {
        draw();
    }
}

void ProgressLine::draw()
{
    const unsigned filled = g_barLength * m_percent / 100;
    std::string text = m_phase + " [" + std::string(filled, '#') + std::string(g_barLength - filled, '.') + "] " +
                       std::to_string(m_percent) + " %";
    const std::size_t length = text.size();
    text.resize(std::max(length, m_length), ' '); // over what is left of a longer line
    setLineToWipe(text.size());
    std::cerr << '\r' << text << std::flush;
    m_length = length;
    m_drawn = Clock::now();
}

void ProgressLine::wipe()
{
    if (m_length != 0) {
        std::cerr << '\r' << std::string(m_length, ' ') << '\r' << std::flush;
        m_length = 0;
        setLineToWipe(0);
    }
}

} // namespace orlix::cli
