// Writes JSON, indented for people, as valid UTF-8 whatever the strings hold.
#pragma once

#include <ostream>
#include <string_view>

namespace orlix::cli {

/// Members and elements come out in the order of the calls; every `begin` needs its `end`. A string's bytes that are no
/// UTF-8 become U+FFFD; a number that is NaN or infinite becomes null.
class JsonWriter
{
public:
    explicit JsonWriter(std::ostream& out) : m_out(out) {}

    void beginObject() { begin('{'); }
    void endObject() { end('}'); }
    void beginArray() { begin('['); }
    void endArray() { end(']'); }

    /// The name of the member whose value follows.
    void key(std::string_view name);
    void value(std::string_view text);
    void value(const char* text) { value(std::string_view(text)); }
    void value(bool bValue);
    void value(unsigned long number);
    void value(float number);
    void value(double number);
    void null();

    template <class TValue>
    void member(std::string_view name, const TValue& content)
    {
        key(name);
        value(content);
    }

private:
    void begin(char bracket);
    void end(char bracket);
    void startValue();
    void breakLine();
    void writeString(std::string_view text);
    template <class T>
    void writeNumber(T number);

    std::ostream& m_out;
    unsigned m_depth = 0;
    bool m_bFirst = true; ///< nothing stands yet in the innermost object or array
    bool m_bAfterKey = false;
};

} // namespace orlix::cli
