// The bytes of TIFF directories with 32-bit offsets.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace orlix::image::io {

/// Entries of one directory, to be added by ascending tag.
class DirectoryText
{
public:
    explicit DirectoryText(bool bBigEndian) : m_bBigEndian(bBigEndian) {}

    void addShorts(std::uint16_t tag, const std::vector<std::uint16_t>& values);
    void addLong(std::uint16_t tag, std::uint32_t value);
    /// As a fraction that is off by less than 1e-9 of the value, which lies from 1e-9 to 4e9.
    void addRational(std::uint16_t tag, double value);
    void addText(std::uint16_t tag, const std::string& text);

    /// The directory as it stands at `offset`, an even place of the file, with the values behind it; of even length.
    /// `bLast` ends the chain; otherwise the next directory follows at once.
    std::string toString(std::uint32_t offset, bool bLast) const;

    /// `value` in `bytes` bytes of the file's order.
    std::string number(unsigned bytes, std::uint32_t value) const;

private:
    struct Entry
    {
        std::uint16_t tag, type;
        std::size_t count;
        std::string value;
    };

    bool m_bBigEndian;
    std::vector<Entry> m_entries;
};

} // namespace orlix::image::io
