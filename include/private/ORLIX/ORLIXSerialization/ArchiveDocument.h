// Loads the XML of an archive and makes sure that it is one.
#pragma once

#include "ORLIX/ORLIXUtil/ProcessingResult.h"

#include <cstddef>
#include <string_view>

namespace pugi {
class xml_document;
}

namespace orlix {

/// Succeeds only if every element is a section or an item with the attributes that it must have, nothing is nested too
/// deep, the text has no more than `maxBytes`, and the checksum, where there is one, agrees. On failure the document is
/// empty.
ProcessingResult<bool> loadArchiveDocument(std::string_view text, std::size_t maxBytes, pugi::xml_document& document);

} // namespace orlix
