#include "support/FlowLoops.kernel.h"

namespace orlix::bench {
namespace {

struct Register
{
    using Type = __m512i;
    static Type filling() { return _mm512_set1_epi8(0x2A); }
    static Type load(const std::byte* place) { return _mm512_load_si512(reinterpret_cast<const Type*>(place)); }
    static void store(std::byte* place, Type value) { _mm512_store_si512(reinterpret_cast<Type*>(place), value); }
    static void stream(std::byte* place, Type value) { _mm512_stream_si512(reinterpret_cast<Type*>(place), value); }
    static Type join(Type a, Type b) { return _mm512_or_si512(a, b); }
};

} // namespace
} // namespace orlix::bench

ORLIX_FLOW_LOOPS(avx512, Register, eInstructionSet::eAVX512)
