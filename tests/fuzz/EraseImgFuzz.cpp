// Every element of any image becomes the value, and nothing else is touched.
#include "FuzzedImage.h"
#include "FuzzedRun.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/EraseImg/EraseImg.h"
#include "ORLIXIPLUtility/Processor/EraseImg/EraseElementOracle.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    using namespace orlix;
    using namespace orlix::fuzz;
    ByteReader bytes(data, size);
    setUpRun(bytes);
    const bool bDefault = bytes.below(8) == 0;
    const double given = bytes.number();
    const double value = bDefault ? 0 : given;
    FuzzedImage out(readShape(bytes), bytes);
    const std::vector<unsigned char> before = out.watched();
    if (bDefault) {
        imaproc::util::eraseImg(out.get());
    } else {
        imaproc::util::eraseImg(out.get(), value);
    }
    const Shape& shape = out.shape();
    const bool bNan = value != value; // which of them a float becomes says nothing
    require(out.holds(before, [&](auto y, auto z, auto c, auto t, unsigned char* expected) {
        if (bNan && shape.typeOf(t) == eImageBufferType::Real32) {
            const unsigned char* const found = out.row(y, z, c, t);
            for (unsigned long x = 0; x < shape.sizes[0]; ++x) {
                float real;
                std::memcpy(&real, found + x * sizeof(float), sizeof(float));
                require(real != real);
            }
            std::memcpy(expected, found, shape.sizes[0] * sizeof(float));
            return;
        }
        const std::vector<std::byte> element = imaproc::util::test::expectedElement(shape.typeOf(t), value);
        for (unsigned long x = 0; x < shape.sizes[0]; ++x) {
            std::memcpy(expected + x * element.size(), element.data(), element.size());
        }
    }));
    return 0;
}
