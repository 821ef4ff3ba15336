// Parses JSON strictly: what isn't JSON in UTF-8 throws.
#include "orlix/support/JsonDocument.h"

#include <cstdlib>
#include <cstring>

namespace orlix::test {

namespace {

class JsonParser
{
public:
    explicit JsonParser(const std::string& text) : m_text(text) {}

    JsonDocument parse()
    {
        JsonDocument document = parseValue();
        skipSpace();
        require(m_at == m_text.size(), "something follows the value");
        return document;
    }

private:
    void require(bool bTrue, const char* what) const
    {
        if (!bTrue) {
            throw std::runtime_error(std::string(what) + " at byte " + std::to_string(m_at));
        }
    }
    char peek() const { return m_at < m_text.size() ? m_text[m_at] : '\0'; }
    void skipSpace()
    {
        while (peek() != '\0' && std::strchr(" \n\r\t", peek()) != nullptr) {
            ++m_at;
        }
    }
    bool accept(char c)
    {
        skipSpace();
        const bool bThere = peek() == c;
        m_at += bThere ? 1 : 0;
        return bThere;
    }
    bool acceptWord(const std::string& word)
    {
        const bool bThere = m_text.compare(m_at, word.size(), word) == 0;
        m_at += bThere ? word.size() : 0;
        return bThere;
    }

    JsonDocument parseValue()
    {
        skipSpace();
        JsonDocument value;
        if (peek() == '{') {
            parseObject(value);
        } else if (peek() == '[') {
            parseArray(value);
        } else if (peek() == '"') {
            value.kind = JsonDocument::eKind::string;
            value.text = parseString();
        } else if (acceptWord("true") || acceptWord("false")) {
            value.kind = JsonDocument::eKind::boolean;
            value.bValue = m_text[m_at - 2] == 'u';
        } else if (!acceptWord("null")) {
            parseNumber(value);
        }
        return value;
    }

    void parseObject(JsonDocument& value)
    {
        value.kind = JsonDocument::eKind::object;
        accept('{');
        if (accept('}')) {
            return;
        }
        do {
            skipSpace();
            const std::string name = parseString();
            require(accept(':'), "a colon is missing");
            require(value.members.emplace(name, parseValue()).second, "a name stands twice");
        } while (accept(','));
        require(accept('}'), "an object isn't closed");
    }

    void parseArray(JsonDocument& value)
    {
        value.kind = JsonDocument::eKind::array;
        accept('[');
        if (accept(']')) {
            return;
        }
        do {
            value.elements.push_back(parseValue());
        } while (accept(','));
        require(accept(']'), "an array isn't closed");
    }

    void parseNumber(JsonDocument& value)
    {
        value.kind = JsonDocument::eKind::number;
        require(peek() == '-' || (peek() >= '0' && peek() <= '9'), "no value");
        char* end = nullptr;
        value.number = std::strtod(m_text.c_str() + m_at, &end);
        m_at = static_cast<std::size_t>(end - m_text.c_str());
    }

    std::string parseString()
    {
        require(peek() == '"', "a string is missing");
        ++m_at;
        std::string text;
        while (peek() != '"') {
            require(m_at < m_text.size() && static_cast<unsigned char>(peek()) >= 0x20, "a string isn't closed");
            if (peek() == '\\') {
                parseEscape(text);
            } else {
                text += m_text[m_at++];
            }
        }
        ++m_at;
        checkUtf8(text);
        return text;
    }

    /// Escapes beyond ASCII don't come up: the writer leaves such characters as they are.
    void parseEscape(std::string& text)
    {
        ++m_at;
        const char c = peek();
        ++m_at;
        if (c == 'u') {
            const std::string digits = m_text.substr(m_at, 4);
            require(digits.find_first_not_of("0123456789abcdefABCDEF") == std::string::npos && digits.size() == 4,
                    "bad escape");
            const unsigned long value = std::stoul(digits, nullptr, 16);
            require(value < 0x80, "escape beyond ASCII");
            text += static_cast<char>(value);
            m_at += 4;
            return;
        }
        const char* const found = std::strchr("\"\\/bfnrt", c);
        require(c != '\0' && found != nullptr, "bad escape");
        text += "\"\\/\b\f\n\r\t"[found - "\"\\/bfnrt"];
    }

    /// By decoding: every character has the shortest form, is no surrogate and not above U+10FFFF.
    void checkUtf8(const std::string& text) const
    {
        for (std::size_t i = 0; i < text.size();) {
            const auto first = static_cast<unsigned char>(text[i]);
            const unsigned extra = first < 0x80       ? 0
                                   : first >> 5 == 6  ? 1
                                   : first >> 4 == 14 ? 2
                                   : first >> 3 == 30 ? 3
                                                      : 9;
            require(extra != 9 && i + extra < text.size(), "no UTF-8");
            unsigned long value = extra == 0 ? first : first & (0x3fU >> extra);
            for (unsigned k = 1; k <= extra; ++k) {
                const auto next = static_cast<unsigned char>(text[i + k]);
                require(next >> 6 == 2, "no UTF-8");
                value = value << 6 | (next & 0x3fU);
            }
            static constexpr unsigned long lowest[] = {0, 0x80, 0x800, 0x10000};
            require(value >= lowest[extra] && value <= 0x10ffff && (value < 0xd800 || value > 0xdfff), "no UTF-8");
            i += extra + 1;
        }
    }

    const std::string& m_text;
    std::size_t m_at = 0;
};

} // namespace

JsonDocument parseJson(const std::string& text)
{
    return JsonParser(text).parse();
}

} // namespace orlix::test
