// Any image is copied element by element, into a made or a given image, and nothing else is touched; another size or
// type is refused.
#include "FuzzedImage.h"
#include "FuzzedRun.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImg.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    using namespace orlix;
    using namespace orlix::fuzz;
    ByteReader bytes(data, size);
    setUpRun(bytes);
    const unsigned long form = bytes.below(8);
    const Shape shape = readShape(bytes);
    FuzzedImage in(shape, bytes);
    const std::vector<unsigned char> source = in.watched();
    const auto isCopy = [&](FuzzedImage& out, const std::vector<unsigned char>& before) {
        return out.holds(before, [&](auto y, auto z, auto c, auto t, unsigned char* expected) {
            std::memcpy(expected, in.row(y, z, c, t), shape.sizes[0] * shape.elementBytes(t));
        });
    };
    if (form == 0) {
        FuzzedImage out(shape, imaproc::util::copyImg(in.get()));
        require(isCopy(out, out.watched()));
    } else if (form == 1) {
        FuzzedImage out(readOther(shape, bytes), bytes);
        const std::vector<unsigned char> before = out.watched();
        require(isRefused([&] { imaproc::util::copyImg(in.get(), out.get()); }));
        require(out.watched() == before);
    } else if (form == 2) {
        imaproc::util::copyImg(in.get(), in.get());
    } else {
        FuzzedImage out(shape, bytes);
        const std::vector<unsigned char> before = out.watched();
        imaproc::util::copyImg(in.get(), out.get());
        require(isCopy(out, before));
    }
    require(in.watched() == source);
    return 0;
}
