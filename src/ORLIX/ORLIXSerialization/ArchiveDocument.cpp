// Loads the XML of an archive and makes sure that it is one.
#include "ORLIX/ORLIXSerialization/ArchiveDocument.h"

#include "ORLIX/ORLIXSerialization/ArchiveFormat.h"
#include "ORLIX/ORLIXSerialization/ArchiveText.h"
#include "ORLIX/ORLIXSerialization/Logger/ORLIXSerializationLogMessages.h"

#include <pugixml.hpp>

#include <charconv>
#include <cstring>
#include <string>

namespace orlix {

namespace {

using Message = eORLIXSerializationMessage;

ProcessingResult<bool> notAnArchive(const std::string& reason, std::ptrdiff_t offset)
{
    return BoolResult::failure(formatMessage<Message>(Message::eNoArchive, reason, offset));
}

template <class T>
bool parseWhole(std::string_view text, T& value, int base)
{
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, base);
    return error == std::errc() && end == text.data() + text.size();
}

/// Does the node have these attributes, in this order, and no other?
bool hasExactly(pugi::xml_node node, std::initializer_list<const char*> names)
{
    pugi::xml_attribute attribute = node.first_attribute();
    for (const char* name : names) {
        if (std::strcmp(attribute.name(), name) != 0) {
            return false;
        }
        attribute = attribute.next_attribute();
    }
    return attribute.empty();
}

ProcessingResult<bool> checkEntries(pugi::xml_node section, std::size_t depth, archiveformat::Checksum& checksum)
{
    using namespace archiveformat;
    for (const pugi::xml_node entry : section.children()) {
        const char* name = entry.attribute(g_name).value();
        if (std::strcmp(entry.name(), g_section) == 0 && hasExactly(entry, {g_name})) {
            if (depth == g_maxDepth) {
                return BoolResult::failure(formatMessage<Message>(Message::eTooDeep, name, g_maxDepth));
            }
            checksum.openSection(name);
            auto result = checkEntries(entry, depth + 1, checksum);
            if (!result) {
                return result;
            }
            checksum.closeSection();
        } else if (archivetext::isTypeName(entry.name()) && hasExactly(entry, {g_name, g_value}) &&
                   entry.first_child().empty()) {
            checksum.addItem(entry.name(), name, entry.attribute(g_value).value());
        } else {
            return notAnArchive("neither a section nor an item", entry.offset_debug());
        }
    }
    return BoolResult::success();
}

ProcessingResult<bool> checkDocument(const pugi::xml_document& document)
{
    using namespace archiveformat;
    const pugi::xml_node root = document.document_element();
    if (std::strcmp(root.name(), g_root) != 0 || root.next_sibling() || root.previous_sibling()) {
        return notAnArchive(std::string("no single element ") + g_root, 0);
    }
    const bool bChecked = hasExactly(root, {g_format, g_checksum});
    const char* format = root.attribute(g_format).value();
    unsigned int formatNumber = 0;
    if ((!bChecked && !hasExactly(root, {g_format})) || !parseWhole(format, formatNumber, 10) || formatNumber == 0) {
        return notAnArchive("wrong attributes", root.offset_debug());
    }
    if (formatNumber > g_newestFormat) {
        return BoolResult::failure(formatMessage<Message>(Message::eNewerFormat, format, g_newestFormat));
    }
    Checksum checksum;
    auto result = checkEntries(root, 0, checksum);
    if (!result || !bChecked) {
        return result;
    }
    const char* text = root.attribute(g_checksum).value();
    unsigned int expected = 0;
    if (!parseWhole(text, expected, 16) || expected != checksum.get()) {
        return BoolResult::failure(formatMessage<Message>(Message::eWrongChecksum, text, checksum.get()));
    }
    return BoolResult::success();
}

} // namespace

ProcessingResult<bool> loadArchiveDocument(std::string_view text, std::size_t maxBytes, pugi::xml_document& document)
{
    document.reset();
    if (text.size() > maxBytes) {
        return BoolResult::failure(formatMessage<Message>(Message::eTooLarge, maxBytes));
    }
    const pugi::xml_parse_result parsed =
        document.load_buffer(text.data(), text.size(), pugi::parse_default, pugi::encoding_utf8);
    auto result = parsed ? checkDocument(document) : notAnArchive(parsed.description(), parsed.offset);
    if (!result) {
        document.reset();
    }
    return result;
}

} // namespace orlix
