// How names and values stand in the text of an archive.
#include "ORLIX/ORLIXSerialization/ArchiveText.h"

#include "ORLIX/ORLIXUtil/NumberText.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <limits>

namespace orlix::archivetext {

namespace {

constexpr std::array<const char*, std::variant_size_v<ArchiveValue>> g_typeNames = {
    "bool", "int8", "uint8", "int16", "uint16", "int32", "uint32", "int64", "uint64", "real32", "real64", "string"};
constexpr const char* g_digits = "0123456789abcdef";

/// Length of the UTF-8 character that starts at `text[0]`, 0 if there is none. Overlong forms, surrogates and values
/// past U+10FFFF are none.
std::size_t utf8Length(std::string_view text)
{
    const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(i < text.size() ? text[i] : 0); };
    const auto follows = [&byte](std::size_t i) { return (byte(i) & 0xC0) == 0x80; };
    const unsigned char first = byte(0);
    if (first < 0x80) {
        return 1;
    }
    if (first >= 0xC2 && first <= 0xDF) {
        return follows(1) ? 2 : 0;
    }
    if (first >= 0xE0 && first <= 0xEF) {
        const bool bOverlong = first == 0xE0 && byte(1) < 0xA0;
        const bool bSurrogate = first == 0xED && byte(1) > 0x9F;
        return follows(1) && follows(2) && !bOverlong && !bSurrogate ? 3 : 0;
    }
    if (first >= 0xF0 && first <= 0xF4) {
        const bool bOverlong = first == 0xF0 && byte(1) < 0x90;
        const bool bTooLarge = first == 0xF4 && byte(1) > 0x8F;
        return follows(1) && follows(2) && follows(3) && !bOverlong && !bTooLarge ? 4 : 0;
    }
    return 0;
}

template <class T>
using BitsOf = std::conditional_t<sizeof(T) == 4, std::uint32_t, std::uint64_t>;

template <std::floating_point T>
std::string print(T value)
{
    if (std::isnan(value)) {
        char bits[2 * sizeof(T)];
        const auto end = std::to_chars(bits, bits + sizeof bits, std::bit_cast<BitsOf<T>>(value), 16).ptr;
        return "nan:" + std::string(bits, end);
    }
    return numberText(value);
}

template <std::integral T>
std::string print(T value)
{
    return numberText(value);
}

std::string print(bool bValue)
{
    return bValue ? "true" : "false";
}

std::string print(const std::string& value)
{
    return escape(value);
}

template <class T, class... TBase>
bool parseNumber(std::string_view text, T& value, TBase... base)
{
    T parsed{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), parsed, base...);
    if (error != std::errc() || end != text.data() + text.size()) {
        return false;
    }
    value = parsed;
    return true;
}

template <std::floating_point T>
bool parse(std::string_view text, T& value)
{
    if (text.starts_with("nan:")) {
        BitsOf<T> bits = 0;
        if (!parseNumber(text.substr(4), bits, 16) || !std::isnan(std::bit_cast<T>(bits))) {
            return false;
        }
        value = std::bit_cast<T>(bits);
        return true;
    }
    T parsed{};
    if (!parseNumber(text, parsed) || std::isnan(parsed)) {
        return false;
    }
    value = parsed;
    return true;
}

template <std::integral T>
bool parse(std::string_view text, T& value)
{
    return parseNumber(text, value);
}

bool parse(std::string_view text, bool& bValue)
{
    if (text != "true" && text != "false") {
        return false;
    }
    bValue = text == "true";
    return true;
}

bool parse(std::string_view text, std::string& value)
{
    return unescape(text, value);
}

} // namespace

const char* getTypeName(std::size_t index)
{
    return g_typeNames.at(index);
}

bool isTypeName(std::string_view name)
{
    return std::find(g_typeNames.begin(), g_typeNames.end(), name) != g_typeNames.end();
}

std::string escape(const std::string& bytes)
{
    std::string text;
    std::string_view rest = bytes;
    while (!rest.empty()) {
        const auto byte = static_cast<unsigned char>(rest.front());
        std::size_t length = utf8Length(rest);
        if (byte == '\\') {
            text += "\\\\";
        } else if (length == 0 || byte < 0x20 || byte == 0x7F) {
            text += {'\\', 'x', g_digits[byte >> 4], g_digits[byte & 15]};
            length = 1;
        } else {
            text += rest.substr(0, length);
        }
        rest.remove_prefix(length);
    }
    return text;
}

bool unescape(std::string_view text, std::string& bytes)
{
    std::string unescaped;
    while (!text.empty()) {
        if (text.front() != '\\') {
            unescaped += text.front();
            text.remove_prefix(1);
        } else if (text.starts_with("\\\\")) {
            unescaped += '\\';
            text.remove_prefix(2);
        } else {
            std::uint8_t byte = 0;
            if (text.size() < 4 || text[1] != 'x' || !parseNumber(text.substr(2, 2), byte, 16)) {
                return false;
            }
            unescaped += static_cast<char>(byte);
            text.remove_prefix(4);
        }
    }
    bytes = std::move(unescaped);
    return true;
}

std::string printValue(const ArchiveValue& value)
{
    return std::visit([](const auto& alternative) { return print(alternative); }, value);
}

bool parseValue(std::string_view text, ArchiveValue& value)
{
    return std::visit([text](auto& alternative) { return parse(text, alternative); }, value);
}

} // namespace orlix::archivetext
