// A small TIFF writer of the tests' own: tags and blocks as given, in either byte order, right or wrong.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace orlix::image::io::test {

/// Tags and their types that the tests use.
enum TinyTag : std::uint16_t {
    g_tagSubfileType = 254,
    g_tagWidth = 256,
    g_tagHeight = 257,
    g_tagBits = 258,
    g_tagCompression = 259,
    g_tagPhotometric = 262,
    g_tagDescription = 270,
    g_tagStripOffsets = 273,
    g_tagSamples = 277,
    g_tagRowsPerStrip = 278,
    g_tagStripBytes = 279,
    g_tagXResolution = 282,
    g_tagYResolution = 283,
    g_tagPlanar = 284,
    g_tagResolutionUnit = 296,
    g_tagColorMap = 320,
    g_tagTileWidth = 322,
    g_tagTileHeight = 323,
    g_tagTileOffsets = 324,
    g_tagTileBytes = 325,
    g_tagExtraSamples = 338,
    g_tagSampleFormat = 339
};

class TinyTiff
{
public:
    explicit TinyTiff(bool bBigEndian = false, bool bBigTiff = false) : m_bBigEndian(bBigEndian), m_bBigTiff(bBigTiff)
    {
        m_data = bBigEndian ? "MM" : "II";
        if (bBigTiff) {
            m_data += number(2, 43) + number(2, 8) + number(2, 0);
            m_link = m_data.size();
            m_data += number(8, 0);
        } else {
            m_data += number(2, 42);
            m_link = m_data.size();
            m_data += number(4, 0);
        }
    }

    /// `value` in `bytes` bytes of the file's order.
    std::string number(unsigned bytes, std::uint64_t value) const
    {
        std::string text(bytes, '\0');
        for (unsigned i = 0; i < bytes; ++i) {
            text[m_bBigEndian ? bytes - 1 - i : i] = static_cast<char>(value >> (8 * i));
        }
        return text;
    }

    void beginPage() { m_entries.clear(); }
    void addShorts(std::uint16_t tag, const std::vector<std::uint64_t>& values) { add(tag, 3, 2, values); }
    void addLongs(std::uint16_t tag, const std::vector<std::uint64_t>& values) { add(tag, 4, 4, values); }
    void addLong8s(std::uint16_t tag, const std::vector<std::uint64_t>& values) { add(tag, 16, 8, values); }
    void addShort(std::uint16_t tag, std::uint64_t value) { addShorts(tag, {value}); }
    void addLong(std::uint16_t tag, std::uint64_t value) { addLongs(tag, {value}); }
    void addRational(std::uint16_t tag, std::uint32_t numerator, std::uint32_t denominator)
    {
        m_entries.push_back({tag, 5, 1, number(4, numerator) + number(4, denominator)});
    }
    void addText(std::uint16_t tag, const std::string& text)
    {
        m_entries.push_back({tag, 2, text.size() + 1, text + '\0'});
    }

    /// Writes strips or tiles and their tags.
    void addBlocks(const std::vector<std::string>& blocks, bool bTiles = false)
    {
        std::vector<std::uint64_t> offsets, sizes;
        for (const std::string& block : blocks) {
            offsets.push_back(m_data.size());
            sizes.push_back(block.size());
            m_data += block;
        }
        addLongs(bTiles ? g_tagTileOffsets : g_tagStripOffsets, offsets);
        addLongs(bTiles ? g_tagTileBytes : g_tagStripBytes, sizes);
    }

    /// Bytes that no directory tells of.
    void addData(const std::string& data) { m_data += data; }
    std::size_t getSize() const { return m_data.size(); }

    /// Writes the directory and links it to the one before; returns its offset.
    std::uint64_t endPage()
    {
        std::ranges::sort(m_entries, {}, &Entry::tag);
        std::string values, directory = number(m_bBigTiff ? 8 : 2, m_entries.size());
        const unsigned wordBytes = m_bBigTiff ? 8 : 4;
        for (const Entry& entry : m_entries) {
            directory += number(2, entry.tag) + number(2, entry.type) + number(wordBytes, entry.count);
            if (entry.bytes.size() <= wordBytes) {
                directory += entry.bytes + std::string(wordBytes - entry.bytes.size(), '\0');
            } else {
                directory += number(wordBytes, m_data.size() + values.size());
                values += entry.bytes;
            }
        }
        m_data += values;
        const std::uint64_t offset = m_data.size();
        link(offset);
        m_data += directory;
        m_link = m_data.size();
        m_data += number(wordBytes, 0);
        return offset;
    }

    /// Makes `offset` the directory after the last.
    void link(std::uint64_t offset)
    {
        const std::string word = number(m_bBigTiff ? 8 : 4, offset);
        m_data.replace(m_link, word.size(), word);
    }

    const std::string& getData() const { return m_data; }

private:
    struct Entry
    {
        std::uint16_t tag, type;
        std::uint64_t count;
        std::string bytes;
    };

    void add(std::uint16_t tag, std::uint16_t type, unsigned bytes, const std::vector<std::uint64_t>& values)
    {
        std::string text;
        for (const std::uint64_t value : values) {
            text += number(bytes, value);
        }
        m_entries.push_back({tag, type, values.size(), text});
    }

    bool m_bBigEndian, m_bBigTiff;
    std::string m_data;
    std::size_t m_link = 0;
    std::vector<Entry> m_entries;
};

/// The tags that most pages have. Strips come from the caller.
inline void addPageTags(TinyTiff& tiff, std::uint64_t width, std::uint64_t height, std::uint64_t bits,
                        std::uint64_t samples, std::uint64_t photometric)
{
    tiff.addLong(g_tagWidth, width);
    tiff.addLong(g_tagHeight, height);
    tiff.addShorts(g_tagBits, std::vector<std::uint64_t>(samples, bits));
    tiff.addShort(g_tagCompression, 1);
    tiff.addShort(g_tagPhotometric, photometric);
    tiff.addShort(g_tagSamples, samples);
}

} // namespace orlix::image::io::test
