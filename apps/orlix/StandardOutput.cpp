#include "StandardOutput.h"

#include <unistd.h>

#include <cerrno>
#include <iostream>

namespace orlix::cli {

StandardOutput::StandardOutput() : m_before(std::cout.rdbuf(this))
{
    setp(m_buffer.data(), m_buffer.data() + m_buffer.size());
}

StandardOutput::~StandardOutput()
{
    write();
    std::cout.rdbuf(m_before);
}

StandardOutput::int_type StandardOutput::overflow(int_type character)
{
    if (!write()) {
        return traits_type::eof();
    }
    if (!traits_type::eq_int_type(character, traits_type::eof())) {
        sputc(traits_type::to_char_type(character));
    }
    return traits_type::not_eof(character);
}

int StandardOutput::sync()
{
    return write() ? 0 : -1;
}

bool StandardOutput::write() noexcept
{
    const char* next = pbase();
    while (m_error == 0 && next < pptr()) {
        const ssize_t written = ::write(STDOUT_FILENO, next, static_cast<std::size_t>(pptr() - next));
        if (written >= 0) {
            next += written;
        } else if (errno != EINTR) {
            m_error = errno;
        }
    }
    setp(m_buffer.data(), m_buffer.data() + m_buffer.size());
    errno = m_error;
    return m_error == 0;
}

} // namespace orlix::cli
