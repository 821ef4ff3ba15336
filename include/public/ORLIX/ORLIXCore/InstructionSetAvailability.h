// Which instruction sets this process may use, and what people call them.
#pragma once

#include "ORLIX/ORLIXCore/Export.h"
#include "ORLIX/ORLIXUtil/InstructionSet.h"

#include <optional>
#include <string>
#include <vector>

namespace orlix::core {

/// True where the processor has `set` and the system saves its registers; always for plain code. May be asked while a
/// library loads, and from every thread.
ORLIXCORE_API bool isAvailable(const eInstructionSet& set);

/// The sets that `isAvailable`, plain code first and the widest last.
ORLIXCORE_API const std::vector<eInstructionSet>& getAvailableInstructionSets();

/// "plain", "SSE2", "AVX", "AVX2" or "AVX512"; "unknown" for a value that names no set.
ORLIXCORE_API const char* getInstructionSetName(const eInstructionSet& set);

/// The set that `getInstructionSetName` calls `name`, in small or capital letters; nothing where there is none.
ORLIXCORE_API std::optional<eInstructionSet> findInstructionSet(const std::string& name);

} // namespace orlix::core
