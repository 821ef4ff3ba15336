#include "support/FlowLoops.kernel.h"

namespace orlix::bench {
namespace {

struct Register
{
    using Type = __m128i;
    static Type filling() { return _mm_set1_epi8(0x2A); }
    static Type load(const std::byte* place) { return _mm_load_si128(reinterpret_cast<const Type*>(place)); }
    static void store(std::byte* place, Type value) { _mm_store_si128(reinterpret_cast<Type*>(place), value); }
    static void stream(std::byte* place, Type value) { _mm_stream_si128(reinterpret_cast<Type*>(place), value); }
    static Type join(Type a, Type b) { return _mm_or_si128(a, b); }
};

} // namespace
} // namespace orlix::bench

ORLIX_FLOW_LOOPS(sse2, Register, eInstructionSet::eSSE2)
