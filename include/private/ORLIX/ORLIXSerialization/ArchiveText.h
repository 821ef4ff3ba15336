// How names and values stand in the text of an archive.
#pragma once

#include "ORLIX/ORLIXSerialization/ArchiveValue.h"

#include <string>
#include <string_view>

namespace orlix::archivetext {

/// Name of the type that alternative `index` of ArchiveValue holds: "uint32" for example.
const char* getTypeName(std::size_t index);
bool isTypeName(std::string_view name);

/// Turns any bytes into text without control characters, as UTF-8: a backslash becomes `\\`, and a byte that can't
/// stand as it is becomes `\x` and two hexadecimal digits.
std::string escape(const std::string& bytes);
/// The way back; false if a backslash stands before something else.
bool unescape(std::string_view text, std::string& bytes);

std::string printValue(const ArchiveValue& value);
/// Reads the alternative that `value` holds; false, and `value` as it was, if the text isn't wholly one that fits.
bool parseValue(std::string_view text, ArchiveValue& value);

} // namespace orlix::archivetext
