// Laying out directories.
#include "ORLIXIPL/ORLIXImageIO/Tiff/DirectoryText.h"

#include <tiff.h>

#include <cmath>

namespace orlix::image::io {

namespace {

constexpr std::size_t g_entryBytes = 12;

// The larger part takes all 32 bits, the smaller one is rounded down to a whole number: so the larger one alone is
// inexact.
std::pair<std::uint32_t, std::uint32_t> fractionOf(double value)
{
    const double largest = 4e9;
    if (value >= 1) {
        const double denominator = std::floor(largest / value);
        return {static_cast<std::uint32_t>(std::round(denominator * value)), static_cast<std::uint32_t>(denominator)};
    }
    const double numerator = std::floor(largest * value);
    return {static_cast<std::uint32_t>(numerator), static_cast<std::uint32_t>(std::round(numerator / value))};
}

} // namespace

std::string DirectoryText::number(unsigned bytes, std::uint32_t value) const
{
    std::string text(bytes, '\0');
    for (unsigned i = 0; i < bytes; ++i) {
        text[m_bBigEndian ? bytes - 1 - i : i] = static_cast<char>(value >> (8 * i));
    }
    return text;
}

void DirectoryText::addShorts(std::uint16_t tag, const std::vector<std::uint16_t>& values)
{
    Entry entry = {tag, TIFF_SHORT, values.size(), ""};
    for (const std::uint16_t value : values) {
        entry.value += number(2, value);
    }
    m_entries.push_back(std::move(entry));
}

void DirectoryText::addLong(std::uint16_t tag, std::uint32_t value)
{
    m_entries.push_back({tag, TIFF_LONG, 1, number(4, value)});
}

void DirectoryText::addRational(std::uint16_t tag, double value)
{
    const auto [numerator, denominator] = fractionOf(value);
    m_entries.push_back({tag, TIFF_RATIONAL, 1, number(4, numerator) + number(4, denominator)});
}

void DirectoryText::addText(std::uint16_t tag, const std::string& text)
{
    m_entries.push_back({tag, TIFF_ASCII, text.size() + 1, text + '\0'});
}

std::string DirectoryText::toString(std::uint32_t offset, bool bLast) const
{
    const std::size_t directoryBytes = 2 + g_entryBytes * m_entries.size() + 4;
    std::string directory = number(2, static_cast<std::uint32_t>(m_entries.size())), values;
    for (const Entry& entry : m_entries) {
        directory += number(2, entry.tag) + number(2, entry.type) + number(4, static_cast<std::uint32_t>(entry.count));
        if (entry.value.size() <= 4) {
            directory += entry.value + std::string(4 - entry.value.size(), '\0');
        } else {
            directory += number(4, static_cast<std::uint32_t>(offset + directoryBytes + values.size()));
            values += entry.value + std::string(entry.value.size() % 2, '\0');
        }
    }
    const std::size_t end = offset + directoryBytes + values.size();
    return directory + number(4, bLast ? 0 : static_cast<std::uint32_t>(end)) + values;
}

} // namespace orlix::image::io
