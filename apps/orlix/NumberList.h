// Options whose value is a few whole numbers: sizes and places of images.
#pragma once

#include "OptionList.h"

#include <string>
#include <vector>

namespace orlix::cli {

/// Declares an option of `fewest` to `most` whole numbers with commas between, "640,480". `numbers` stays empty where
/// it wasn't given, and has to outlive the parser.
Option addNumberList(OptionList& list, const std::string& name, std::vector<unsigned long>& numbers,
                     unsigned long fewest, unsigned long most, const std::string& description);

/// As the user writes it.
std::string listText(const std::vector<unsigned long>& numbers);

} // namespace orlix::cli
