// Calling those who watch safely.
#include "ORLIXIPL/ORLIXImageIO/Progress.h"

#include "ORLIX/ORLIXUtil/Raise.h"

namespace orlix::image::io {

bool Progress::goesOn() noexcept
{
    m_bytes = 0;
    if (m_bStopped) {
        return false;
    }
    try {
        m_bStopped = !ask();
    } catch (...) {
        m_bStopped = true;
        m_exception = std::current_exception();
    }
    return !m_bStopped;
}

bool Progress::ask()
{
    if (m_watch != nullptr && !m_watch->tell({m_done, m_known})) {
        return false;
    }
    return !m_function || m_function(m_done, m_known);
}

bool Progress::goesOnAfter(unsigned long bytes) noexcept
{
    m_bytes += bytes;
    return m_bytes < g_progressBytes ? !m_bStopped : goesOn();
}

void Progress::throwIfStopped(eORLIXImageIOMessage::domain id, const std::string& file) const
{
    if (m_exception) {
        std::rethrow_exception(m_exception);
    }
    if (m_bStopped) {
        raise<eORLIXImageIOMessage>(ORLIX_HERE, id, file);
    }
}

} // namespace orlix::image::io
