// What verbs print about the attributes of a processor, in the attributes' own words.
#pragma once

#include "JsonWriter.h"

#include "ORLIX/ORLIXBaseProcessing/BaseProcessor.h"

#include <string>

namespace orlix::cli {

/// Is there no run without a value that somebody gives?
bool isRequired(const processor::BaseProcessor& processor, const processor::BaseAttribute& attribute);

/// A paragraph for each attribute of an initialised processor, indented by two, at most 100 columns wide.
std::string describeAttributes(const processor::BaseProcessor& processor);

/// The same as a list of objects.
void writeAttributes(JsonWriter& json, const processor::BaseProcessor& processor);

} // namespace orlix::cli
