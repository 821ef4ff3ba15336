#include "support/CopyLoops.kernel.h"

namespace orlix::bench {

namespace {

struct Register
{
    using Type = __m128i;
    static Type load(const std::byte* place) { return _mm_load_si128(reinterpret_cast<const Type*>(place)); }
    static void store(std::byte* place, Type value) { _mm_store_si128(reinterpret_cast<Type*>(place), value); }
    static void stream(std::byte* place, Type value) { _mm_stream_si128(reinterpret_cast<Type*>(place), value); }
};

} // namespace

constexpr CopyLoops g_copyLoops_sse2 = makeCopyLoops<Register>(eInstructionSet::eSSE2);

} // namespace orlix::bench
