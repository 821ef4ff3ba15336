// Processors by the names that users give them.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/ProcessorFactory.h"

#include <string>

namespace orlix::cli {

/// The name in the factory of the processor that `name` means: the same name, or the only one that ends in "::" and
/// `name`. Throws CommandException, with the names that come near, where there is none or several.
std::string findProcessor(const std::string& name);

/// A fresh processor of that name in the factory; its attributes are there.
boost::shared_ptr<processor::BaseProcessor> makeProcessor(const std::string& factoryName);

} // namespace orlix::cli
