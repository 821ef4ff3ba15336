// Every element of any image becomes what its type, the type asked for and the instruction set tell, and nothing else
// is touched; other sizes are refused.
#include "FuzzedImage.h"
#include "FuzzedRun.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImg.h"
#include "ORLIXIPLUtility/Processor/ConvertImg/ConvertImgOracle.h"

namespace {

using namespace orlix;
using namespace orlix::fuzz;

void convertRow(eInstructionSet set, eImageBufferType from, const unsigned char* row, unsigned long fromSize,
                eImageBufferType to, unsigned char* expected, unsigned long toSize, unsigned long nbElements)
{
    // There are no kernels of AVX: those of SSE2 stand in.
    const testing::Set kernels = set == eInstructionSet::eAVX ? eInstructionSet::eSSE2 : testing::Set(set);
    for (unsigned long x = 0; x < nbElements; ++x) {
        std::uint32_t bits = 0;
        std::memcpy(&bits, row + x * fromSize, fromSize);
        bits = testing::convertedBits(kernels, from, testing::readElement(from, bits), to);
        std::memcpy(expected + x * toSize, &bits, toSize);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    ByteReader bytes(data, size);
    const eInstructionSet set = setUpRun(bytes);
    const unsigned long form = bytes.below(8);
    const eImageBufferType to = readType(bytes);
    const Shape shape = readShape(bytes);
    Shape converted = shape;
    converted.types = {to};
    FuzzedImage in(shape, bytes);
    const std::vector<unsigned char> source = in.watched();
    const auto isConverted = [&](FuzzedImage& out, const std::vector<unsigned char>& before) {
        return out.holds(before, [&](auto y, auto z, auto c, auto t, unsigned char* expected) {
            convertRow(set, shape.typeOf(t), in.row(y, z, c, t), shape.elementBytes(t), to, expected,
                       converted.elementBytes(0), shape.sizes[0]);
        });
    };
    if (form == 0) {
        FuzzedImage out(converted, imaproc::util::convertImg(in.get(), to));
        require(isConverted(out, out.watched()));
    } else if (form == 1) {
        Shape other = converted;
        ++other.sizes[bytes.below(5)];
        FuzzedImage out(other, bytes);
        const std::vector<unsigned char> before = out.watched();
        require(isRefused([&] { imaproc::util::convertImg(in.get(), out.get()); }));
        require(out.watched() == before);
    } else if (form == 2 && shape.types.size() == 1) { // nothing to do, also where a binary image holds more than 0, 1
        imaproc::util::convertImg(in.get(), in.get());
    } else {
        FuzzedImage out(converted, bytes);
        const std::vector<unsigned char> before = out.watched();
        imaproc::util::convertImg(in.get(), out.get());
        require(isConverted(out, before));
    }
    require(in.watched() == source);
    return 0;
}
