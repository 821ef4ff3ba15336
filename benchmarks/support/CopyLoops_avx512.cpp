#include "support/CopyLoops.kernel.h"

namespace orlix::bench {

namespace {

struct Register
{
    using Type = __m512i;
    static Type load(const std::byte* place) { return _mm512_load_si512(reinterpret_cast<const Type*>(place)); }
    static void store(std::byte* place, Type value) { _mm512_store_si512(reinterpret_cast<Type*>(place), value); }
    static void stream(std::byte* place, Type value) { _mm512_stream_si512(reinterpret_cast<Type*>(place), value); }
};

} // namespace

constexpr CopyLoops g_copyLoops_avx512 = makeCopyLoops<Register>(eInstructionSet::eAVX512);

} // namespace orlix::bench
