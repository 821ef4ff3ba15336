// Reading from an archive that is loaded.
#include "ORLIX/ORLIXSerialization/TextIArchive.h"

#include "ORLIX/ORLIXSerialization/ArchiveDocument.h"
#include "ORLIX/ORLIXSerialization/ArchiveFormat.h"
#include "ORLIX/ORLIXSerialization/ArchiveText.h"
#include "ORLIX/ORLIXSerialization/Logger/ORLIXSerializationLogMessages.h"
#include "ORLIX/ORLIXUtil/Raise.h"

#include <pugixml.hpp>

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <istream>
#include <system_error>
#include <vector>

namespace orlix {

namespace {

using Message = eORLIXSerializationMessage;

const char* nameOf(pugi::xml_node entry)
{
    return entry.attribute(archiveformat::g_name).value();
}

/// All of the stream, or one byte more than `maxBytes`. Goes past the stream's own state, so that one that
/// was told to throw doesn't.
bool readAll(const std::istream& stream, std::size_t maxBytes, std::string& text)
{
    constexpr std::size_t g_blockBytes = 1UL << 20;
    if (!stream.good() || stream.rdbuf() == nullptr) {
        return false;
    }
    try {
        for (bool bMore = true; bMore;) {
            const std::size_t start = text.size();
            const std::size_t wanted = std::min(g_blockBytes, maxBytes + 1 - start);
            text.resize(start + wanted);
            const auto got = stream.rdbuf()->sgetn(text.data() + start, static_cast<std::streamsize>(wanted));
            text.resize(start + static_cast<std::size_t>(got));
            bMore = got > 0;
        }
    } catch (const std::ios_base::failure&) {
        return false;
    }
    return true;
}

} // namespace

class TextIArchive::Reader
{
public:
    ProcessingResult<bool> load(std::string_view text, std::size_t maxBytes)
    {
        m_sections.clear();
        auto result = loadArchiveDocument(text, maxBytes, m_document);
        if (result) {
            m_sections.push_back({m_document.document_element(), m_document.document_element().first_child()});
        }
        return result;
    }

    void open(const std::string& name)
    {
        const pugi::xml_node entry = find(archiveformat::g_section, archivetext::escape(name));
        m_sections.back().next = entry.next_sibling();
        m_sections.push_back({entry, entry.first_child()});
    }

    void close()
    {
        if (!isAnyOpen()) {
            raise<Message>(ORLIX_HERE, Message::eNoOpenSection);
        }
        checkEnd();
        m_sections.pop_back();
    }

    void leave() noexcept
    {
        if (isAnyOpen()) {
            m_sections.pop_back();
        }
    }

    void read(const std::string& name, ArchiveValue& value)
    {
        const char* type = archivetext::getTypeName(value.index());
        const pugi::xml_node entry = find(type, archivetext::escape(name));
        const char* text = entry.attribute(archiveformat::g_value).value();
        if (!archivetext::parseValue(text, value)) {
            raise<Message>(ORLIX_HERE, Message::eBadValue, text, nameOf(entry), getPath(), type);
        }
        m_sections.back().next = entry.next_sibling();
    }

    void checkEnd() const
    {
        const pugi::xml_node entry = m_sections.empty() ? pugi::xml_node() : m_sections.back().next;
        if (entry) {
            raise<Message>(ORLIX_HERE, Message::eUnreadEntry, entry.name(), nameOf(entry), getPath());
        }
    }

private:
    struct OpenSection
    {
        pugi::xml_node node;
        pugi::xml_node next;
    };

    bool isAnyOpen() const { return m_sections.size() > 1; }

    /// The next entry, which has to be the one that is asked for.
    pugi::xml_node find(const std::string& element, const std::string& name) const
    {
        const pugi::xml_node entry = m_sections.empty() ? pugi::xml_node() : m_sections.back().next;
        if (!entry) {
            raise<Message>(ORLIX_HERE, Message::eMissingEntry, element, name, getPath());
        }
        if (element != entry.name() || name != nameOf(entry)) {
            raise<Message>(ORLIX_HERE, Message::eOtherEntry, entry.name(), nameOf(entry), element, name, getPath());
        }
        return entry;
    }

    std::string getPath() const
    {
        std::string path = "/";
        for (std::size_t i = 1; i < m_sections.size(); ++i) {
            path += nameOf(m_sections[i].node);
            path += "/";
        }
        return path;
    }

    pugi::xml_document m_document;
    std::vector<OpenSection> m_sections; ///< the root first, the innermost open section last; empty: nothing is loaded
};

TextIArchive::TextIArchive(std::size_t maxBytes) : m_maxBytes(maxBytes), m_reader(std::make_unique<Reader>()) {}

TextIArchive::~TextIArchive() = default;

ProcessingResult<bool> TextIArchive::loadFromString(std::string_view text)
{
    clearClassVersions();
    return m_reader->load(text, m_maxBytes);
}

ProcessingResult<bool> TextIArchive::loadFromStream(std::istream& stream)
{
    std::string text;
    if (!readAll(stream, m_maxBytes, text)) {
        m_reader = std::make_unique<Reader>();
        return BoolResult::failure(formatMessage<Message>(Message::eUnreadableStream));
    }
    return loadFromString(text);
}

ProcessingResult<bool> TextIArchive::loadFromFile(const std::string& file)
{
    errno = 0;
    std::ifstream stream(file, std::ios::binary);
    std::string text;
    if (!stream.is_open() || !readAll(stream, m_maxBytes, text)) {
        const int error = errno;
        m_reader = std::make_unique<Reader>();
        return BoolResult::failure(
            formatMessage<Message>(Message::eUnreadableFile, file, std::generic_category().message(error)));
    }
    return loadFromString(text);
}

void TextIArchive::openSection(const std::string& name)
{
    m_reader->open(name);
}

void TextIArchive::closeSection()
{
    m_reader->close();
}

void TextIArchive::leaveSection(bool) noexcept
{
    m_reader->leave();
}

void TextIArchive::readValue(const std::string& name, ArchiveValue& value)
{
    m_reader->read(name, value);
}

void TextIArchive::checkEnd() const
{
    m_reader->checkEnd();
}

} // namespace orlix
