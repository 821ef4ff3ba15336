// An archive written as XML that people can read.
#include "ORLIX/ORLIXSerialization/TextOArchive.h"

#include "ORLIX/ORLIXSerialization/ArchiveFormat.h"
#include "ORLIX/ORLIXSerialization/ArchiveText.h"
#include "ORLIX/ORLIXSerialization/Logger/ORLIXSerializationLogMessages.h"
#include "ORLIX/ORLIXUtil/FileReplacement.h"
#include "ORLIX/ORLIXUtil/Raise.h"

#include <pugixml.hpp>

#include <charconv>
#include <new>
#include <ostream>
#include <vector>

namespace orlix {

namespace {

using Message = eORLIXSerializationMessage;

class StringWriter final : public pugi::xml_writer
{
public:
    explicit StringWriter(std::string& text) : m_text(text) {}
    void write(const void* data, std::size_t size) override { m_text.append(static_cast<const char*>(data), size); }

private:
    std::string& m_text;
};

/// pugixml tells of a lack of memory by empty handles.
template <class THandle>
THandle required(THandle handle)
{
    if (!handle) {
        throw std::bad_alloc();
    }
    return handle;
}

void setAttribute(pugi::xml_node node, const char* name, const std::string& value)
{
    required(required(node.append_attribute(name)).set_value(value.c_str()));
}

} // namespace

class TextOArchive::Writer
{
public:
    explicit Writer(std::size_t maxBytes) : m_maxBytes(maxBytes)
    {
        m_sections.push_back(required(m_document.append_child(archiveformat::g_root)));
        setAttribute(m_sections.back(), archiveformat::g_format, std::to_string(archiveformat::g_newestFormat));
        setAttribute(m_sections.back(), archiveformat::g_checksum, "");
    }

    void open(const std::string& name)
    {
        const std::string text = archivetext::escape(name);
        if (m_sections.size() > archiveformat::g_maxDepth) {
            raise<Message>(ORLIX_HERE, Message::eTooDeep, text, archiveformat::g_maxDepth);
        }
        m_sections.push_back(append(archiveformat::g_section, text));
        m_checksum.openSection(text);
    }

    bool isAnyOpen() const { return m_sections.size() > 1; }

    void close(bool bFailed) noexcept
    {
        if (bFailed && m_failedSection.empty()) {
            m_failedSection = m_sections.back();
        }
        m_sections.pop_back();
        m_checksum.closeSection();
    }

    void write(const std::string& name, const ArchiveValue& value)
    {
        const char* type = archivetext::getTypeName(value.index());
        const std::string nameText = archivetext::escape(name);
        const std::string valueText = archivetext::printValue(value);
        setAttribute(append(type, nameText), archiveformat::g_value, valueText);
        m_checksum.addItem(type, nameText, valueText);
    }

    ProcessingResult<bool> save(std::string& text)
    {
        const pugi::xml_node unfinished = isAnyOpen() ? m_sections.back() : m_failedSection;
        if (unfinished) {
            return BoolResult::failure(formatMessage<Message>(Message::eIncompleteArchive,
                                                              unfinished.attribute(archiveformat::g_name).value()));
        }
        char checksum[8];
        const auto end = std::to_chars(checksum, checksum + sizeof checksum, m_checksum.get(), 16).ptr;
        required(m_sections.front().attribute(archiveformat::g_checksum).set_value(std::string(checksum, end).c_str()));
        std::string saved;
        StringWriter writer(saved);
        m_document.save(writer, "  ", pugi::format_indent, pugi::encoding_utf8);
        if (saved.size() > m_maxBytes) {
            return BoolResult::failure(formatMessage<Message>(Message::eTooLarge, m_maxBytes));
        }
        text = std::move(saved);
        return BoolResult::success();
    }

private:
    pugi::xml_node append(const char* element, const std::string& name)
    {
        const pugi::xml_node node = required(m_sections.back().append_child(element));
        setAttribute(node, archiveformat::g_name, name);
        return node;
    }

    std::size_t m_maxBytes;
    pugi::xml_document m_document;
    std::vector<pugi::xml_node> m_sections; ///< the root first, the innermost open section last
    pugi::xml_node m_failedSection;
    archiveformat::Checksum m_checksum;
};

TextOArchive::TextOArchive(std::size_t maxBytes) : m_writer(std::make_unique<Writer>(maxBytes)) {}

TextOArchive::~TextOArchive() = default;

void TextOArchive::openSection(const std::string& name)
{
    m_writer->open(name);
}

void TextOArchive::closeSection()
{
    if (!m_writer->isAnyOpen()) {
        raise<Message>(ORLIX_HERE, Message::eNoOpenSection);
    }
    m_writer->close(false);
}

void TextOArchive::leaveSection(bool bFailed) noexcept
{
    if (m_writer->isAnyOpen()) {
        m_writer->close(bFailed);
    }
}

void TextOArchive::writeValue(const std::string& name, const ArchiveValue& value)
{
    m_writer->write(name, value);
}

ProcessingResult<bool> TextOArchive::saveToString(std::string& text) const
{
    return m_writer->save(text);
}

ProcessingResult<bool> TextOArchive::saveToStream(std::ostream& stream) const
{
    std::string text;
    const auto saved = saveToString(text);
    if (!saved) {
        return saved;
    }
    bool bWritten = false;
    try {
        bWritten = stream.write(text.data(), static_cast<std::streamsize>(text.size())).flush().good();
    } catch (const std::ios_base::failure&) {
        // A stream that was told to throw: the same failure in another dress.
    }
    return bWritten ? BoolResult::success() : BoolResult::failure(formatMessage<Message>(Message::eUnwritableStream));
}

ProcessingResult<bool> TextOArchive::saveToFile(const std::string& file) const
{
    std::string text;
    auto result = saveToString(text);
    if (!result) {
        return result;
    }
    FileReplacement replacement(file);
    result = replacement.open();
    if (result) {
        result = replacement.write(text.data(), text.size());
    }
    return result ? replacement.commit() : result;
}

} // namespace orlix
