// Names, limits and checksum of the XML form of an archive.
#pragma once

#include <boost/crc.hpp>

#include <cstddef>
#include <initializer_list>
#include <string_view>

namespace orlix::archiveformat {

//     <orlix_archive format="1" crc32="1a2b3c4d">
//       <section name="orlix::A">
//         <uint32 name="version" value="1" />
//       </section>
//     </orlix_archive>
constexpr const char* g_root = "orlix_archive";
constexpr const char* g_section = "section";
constexpr const char* g_name = "name";
constexpr const char* g_value = "value";
constexpr const char* g_format = "format";
constexpr const char* g_checksum = "crc32";

constexpr unsigned int g_newestFormat = 1;
constexpr std::size_t g_maxDepth = 64; ///< sections in sections

/// Covers the entries in order, not the layout of the text.
class Checksum
{
public:
    void openSection(std::string_view name) { add({g_section, name, {}}); }
    void closeSection() { add({g_section}); }
    void addItem(std::string_view type, std::string_view name, std::string_view value) { add({type, name, value}); }
    unsigned int get() const { return m_crc.checksum(); }

private:
    void add(std::initializer_list<std::string_view> texts)
    {
        for (const std::string_view text : texts) {
            m_crc.process_bytes(text.data(), text.size());
            m_crc.process_byte(0);
        }
    }

    boost::crc_32_type m_crc;
};

} // namespace orlix::archiveformat
