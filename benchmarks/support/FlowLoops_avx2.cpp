#include "support/FlowLoops.kernel.h"

namespace orlix::bench {
namespace {

struct Register
{
    using Type = __m256i;
    static Type filling() { return _mm256_set1_epi8(0x2A); }
    static Type load(const std::byte* place) { return _mm256_load_si256(reinterpret_cast<const Type*>(place)); }
    static void store(std::byte* place, Type value) { _mm256_store_si256(reinterpret_cast<Type*>(place), value); }
    static void stream(std::byte* place, Type value) { _mm256_stream_si256(reinterpret_cast<Type*>(place), value); }
    static Type join(Type a, Type b) { return _mm256_or_si256(a, b); }
};

} // namespace
} // namespace orlix::bench

ORLIX_FLOW_LOOPS(avx2, Register, eInstructionSet::eAVX2)
