// Writes JSON, indented for people, as valid UTF-8 whatever the strings hold.
#include "JsonWriter.h"

#include "PlainText.h"

#include <cmath>
#include <cstdio>
#include <string>

namespace orlix::cli {

namespace {

unsigned char byteAt(std::string_view text, std::size_t index)
{
    return index < text.size() ? static_cast<unsigned char>(text[index]) : 0;
}

/// Bytes of the UTF-8 character at the start of `text`; 0 where there is none: stray or missing continuation bytes,
/// longer forms than need be, surrogates, values above U+10FFFF.
std::size_t lengthOfCharacter(std::string_view text)
{
    const unsigned char first = byteAt(text, 0), second = byteAt(text, 1);
    std::size_t length = 0;
    unsigned char lowest = 0x80, highest = 0xbf; // of the second byte
    if (first < 0x80) {
        return 1;
    } else if (first >= 0xc2 && first <= 0xdf) {
        length = 2;
    } else if (first >= 0xe0 && first <= 0xef) {
        length = 3;
        lowest = first == 0xe0 ? 0xa0 : 0x80;
        highest = first == 0xed ? 0x9f : 0xbf;
    } else if (first >= 0xf0 && first <= 0xf4) {
        length = 4;
        lowest = first == 0xf0 ? 0x90 : 0x80;
        highest = first == 0xf4 ? 0x8f : 0xbf;
    } else {
        return 0;
    }
    if (second < lowest || second > highest) {
        return 0;
    }
    for (std::size_t i = 2; i < length; ++i) {
        if ((byteAt(text, i) & 0xc0) != 0x80) {
            return 0;
        }
    }
    return length;
}

} // namespace

void JsonWriter::key(std::string_view name)
{
    startValue();
    writeString(name);
    m_out << ": ";
    m_bAfterKey = true;
}

void JsonWriter::value(std::string_view text)
{
    startValue();
    writeString(text);
}

void JsonWriter::value(bool bValue)
{
    startValue();
    m_out << (bValue ? "true" : "false");
}

void JsonWriter::value(unsigned long number)
{
    startValue();
    m_out << std::to_string(number);
}

void JsonWriter::value(float number)
{
    writeNumber(number);
}

void JsonWriter::value(double number)
{
    writeNumber(number);
}

void JsonWriter::null()
{
    startValue();
    m_out << "null";
}

template <class T>
void JsonWriter::writeNumber(T number)
{
    if (!std::isfinite(number)) {
        null();
        return;
    }
    startValue();
    m_out << shortest(number);
}

void JsonWriter::begin(char bracket)
{
    startValue();
    m_out << bracket;
    ++m_depth;
    m_bFirst = true;
}

void JsonWriter::end(char bracket)
{
    --m_depth;
    if (!m_bFirst) {
        breakLine();
    }
    m_out << bracket;
    m_bFirst = false;
    if (m_depth == 0) {
        m_out << '\n';
    }
}

void JsonWriter::startValue()
{
    if (m_bAfterKey) {
        m_bAfterKey = false;
        return;
    }
    if (m_depth != 0) {
        if (!m_bFirst) {
            m_out << ',';
        }
        breakLine();
    }
    m_bFirst = false;
}

void JsonWriter::breakLine()
{
    m_out << '\n' << std::string(2UL * m_depth, ' ');
}

void JsonWriter::writeString(std::string_view text)
{
    m_out << '"';
    while (!text.empty()) {
        const char c = text.front();
        const std::size_t length = lengthOfCharacter(text);
        if (length == 0) {
            m_out << "\xef\xbf\xbd";
        } else if (c == '"' || c == '\\') {
            m_out << '\\' << c;
        } else if (static_cast<unsigned char>(c) < 0x20) {
            char escape[7];
            std::snprintf(escape, sizeof(escape), "\\u%04x", static_cast<unsigned>(c));
            m_out << escape;
        } else {
            m_out << text.substr(0, length);
        }
        text.remove_prefix(length == 0 ? 1 : length);
    }
    m_out << '"';
}

} // namespace orlix::cli
