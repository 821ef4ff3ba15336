#include "support/CopyLoops.kernel.h"

namespace orlix::bench {

namespace {

struct Register
{
    using Type = __m256i;
    static Type load(const std::byte* place) { return _mm256_load_si256(reinterpret_cast<const Type*>(place)); }
    static void store(std::byte* place, Type value) { _mm256_store_si256(reinterpret_cast<Type*>(place), value); }
    static void stream(std::byte* place, Type value) { _mm256_stream_si256(reinterpret_cast<Type*>(place), value); }
};

} // namespace

constexpr CopyLoops g_copyLoops_avx2 = makeCopyLoops<Register>(eInstructionSet::eAVX2);

} // namespace orlix::bench
