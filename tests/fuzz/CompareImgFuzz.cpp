// A comparison counts every pixel that differs by more than the tolerance and tells the first; other sizes and types
// are refused.
#include "FuzzedImage.h"
#include "FuzzedRun.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CompareImg/CompareImg.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CompareImg/CompareImgLvl1.h"
#include "ORLIXIPLUtility/Processor/CompareImg/ComparePixelOracle.h"

namespace {

using namespace orlix;
using namespace orlix::fuzz;
using imaproc::attr::CompareResult;
using imaproc::util::test::Tolerance;

bool isSame(double a, double b)
{
    return a == b || (a != a && b != b);
}

CompareResult expectedResult(FuzzedImage& first, FuzzedImage& second, const Tolerance& tolerance)
{
    CompareResult result;
    const Shape& shape = first.shape();
    shape.forEachRow([&](auto y, auto z, auto c, auto t) {
        const unsigned char* const one = first.row(y, z, c, t);
        const unsigned char* const other = second.row(y, z, c, t);
        image::visitStorageType(shape.typeOf(t), [&]<class T>() {
            for (unsigned long x = 0; x < shape.sizes[0]; ++x) {
                T a;
                T b;
                std::memcpy(&a, one + x * sizeof(T), sizeof(T));
                std::memcpy(&b, other + x * sizeof(T), sizeof(T));
                ++result.nbComparedPixels;
                if (imaproc::util::test::differ(a, b, tolerance) && result.nbDifferentPixels++ == 0) {
                    result.identical = false;
                    result.firstDifference = {x, y, z, c, t};
                    result.firstValue1 = static_cast<double>(a);
                    result.firstValue2 = static_cast<double>(b);
                }
            }
        });
    });
    return result;
}

/// Makes `second` the same as `first`, but for a few bytes.
void makeAlike(FuzzedImage& first, FuzzedImage& second, ByteReader& bytes)
{
    const Shape& shape = first.shape();
    const unsigned char every = bytes.byte();
    const unsigned char change = bytes.byte();
    unsigned long nbRows = 0;
    shape.forEachRow([&](auto y, auto z, auto c, auto t) {
        unsigned char* const row = second.row(y, z, c, t);
        const unsigned long nbBytes = shape.sizes[0] * shape.elementBytes(t);
        std::memcpy(row, first.row(y, z, c, t), nbBytes);
        if (every != 0 && ++nbRows % every == 0) {
            row[nbRows * 31 % nbBytes] ^= change;
        }
    });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    ByteReader bytes(data, size);
    setUpRun(bytes);
    const unsigned long form = bytes.below(8);
    Tolerance tolerance;
    tolerance.mode = static_cast<unsigned>(bytes.below(5));
    tolerance.absolute = bytes.flag() ? bytes.bits<float>() : static_cast<float>(bytes.below(32)) / 2;
    tolerance.relative = bytes.flag() ? bytes.bits<float>() : static_cast<float>(bytes.below(32)) / 16;
    const Shape shape = readShape(bytes);
    FuzzedImage first(shape, bytes);
    if (form == 1) {
        FuzzedImage other(readOther(shape, bytes), bytes);
        require(isRefused([&] { static_cast<void>(imaproc::util::compareImg(first.get(), other.get())); }));
        return 0;
    }
    FuzzedImage second(shape, bytes);
    if (form > 2) {
        makeAlike(first, second, bytes);
    }
    const std::vector<unsigned char> before1 = first.watched();
    const std::vector<unsigned char> before2 = second.watched();
    if (form == 3) {
        tolerance = Tolerance();
    }
    const CompareResult expected = expectedResult(first, second, tolerance);
    const boost::shared_ptr<CompareResult> found =
        form == 3 ? imaproc::util::compareImg(first.get(), second.get())
                  : imaproc::util::compareImg(first.get(), second.get(), tolerance.make());
    require(found->identical == expected.identical && found->nbDifferentPixels == expected.nbDifferentPixels &&
            found->nbComparedPixels == expected.nbComparedPixels);
    require(found->firstDifference.x == expected.firstDifference.x &&
            found->firstDifference.y == expected.firstDifference.y &&
            found->firstDifference.z == expected.firstDifference.z &&
            found->firstDifference.c == expected.firstDifference.c &&
            found->firstDifference.t == expected.firstDifference.t);
    require(isSame(found->firstValue1, expected.firstValue1) && isSame(found->firstValue2, expected.firstValue2));
    require(first.watched() == before1 && second.watched() == before2);
    return 0;
}
