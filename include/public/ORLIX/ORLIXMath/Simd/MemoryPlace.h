// Where a kernel's output lies, as far as the best way to write it depends on that.
#pragma once

namespace orlix::simd {

/// The first level that holds the whole output, and in caches an input of its size too. Kernels fetch lines ahead
/// beyond the second level, and store past the caches in memory.
enum class eMemoryPlace { secondLevelCache, lastLevelCache, memory };

} // namespace orlix::simd
