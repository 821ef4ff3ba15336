// Parses JSON strictly: what isn't JSON in UTF-8 throws.
#pragma once

#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace orlix::test {

struct JsonDocument
{
    enum class eKind { null, boolean, number, string, array, object };

    eKind kind = eKind::null;
    bool bValue = false;
    double number = 0;
    std::string text; ///< UTF-8
    std::vector<JsonDocument> elements;
    std::map<std::string, JsonDocument> members;

    /// Member or element that must be there.
    const JsonDocument& operator[](const std::string& name) const { return members.at(name); }
    const JsonDocument& operator[](std::size_t index) const { return elements.at(index); }
    bool isNull() const { return kind == eKind::null; }
};

/// Throws std::runtime_error with the place of the first error.
JsonDocument parseJson(const std::string& text);

} // namespace orlix::test
