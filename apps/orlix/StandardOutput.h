// The standard output, which knows why it could not be written.
#pragma once

#include <array>
#include <streambuf>

namespace orlix::cli {

/// Stands behind std::cout while it lives. The C library's own buffer forgets why it could not be written where a text
/// is longer than it; this one fails again with the same `errno` whenever the stream is flushed.
class StandardOutput final : public std::streambuf
{
public:
    StandardOutput();
    /// Writes what is gathered.
    ~StandardOutput() override;

protected:
    int_type overflow(int_type character) override;
    int sync() override;

private:
    bool write() noexcept;

    std::array<char, 8192> m_buffer{};
    int m_error = 0; ///< `errno` of the first failure
    std::streambuf* m_before;
};

} // namespace orlix::cli
