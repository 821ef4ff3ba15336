// A pixel of the threshold is 1 where its element lies between the bounds, and nothing else is touched; bounds, sizes
// and types that can't be are refused.
#include "FuzzedImage.h"
#include "FuzzedRun.h"
#include "ORLIX/ORLIXBaseProcessing/BaseProcessor.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BasicThresholdImg/BasicThresholdImgLvl1.h"

#include <cmath>
#include <limits>

namespace {

using namespace orlix;
using namespace orlix::fuzz;

/// Smallest and largest element of a type.
struct Range
{
    double low;
    double high;
};
Range rangeOf(eImageBufferType type)
{
    switch (static_cast<eImageBufferType::domain>(type)) {
    case eImageBufferType::Int8: return {-128, 127};
    case eImageBufferType::Int16: return {-32768, 32767};
    case eImageBufferType::Int32: return {-2147483648.0, 2147483647.0};
    case eImageBufferType::UInt8:
    case eImageBufferType::eBufferUInt8Like: return {0, 255};
    case eImageBufferType::UInt16:
    case eImageBufferType::eBufferUInt16Like: return {0, 65535};
    case eImageBufferType::UInt32:
    case eImageBufferType::eBufferUInt32Like: return {0, 4294967295.0};
    case eImageBufferType::eBufferBinary: return {0, 1};
    default: return {-0x1.fffffep127, 0x1.fffffep127};
    }
}

/// The bounds of an integer image lose their fraction, those of a float image round to floats.
template <class T>
bool isBetween(const unsigned char* element, double low, double high)
{
    T value;
    std::memcpy(&value, element, sizeof(T));
    if constexpr (std::is_same_v<T, float>) {
        return value >= static_cast<float>(low) && value <= static_cast<float>(high);
    } else {
        const double number = static_cast<double>(value);
        return number >= std::trunc(low) && number <= std::trunc(high);
    }
}

/// Bounds that the shape allows, more often than not.
void fit(const Shape& shape, double& low, double& high)
{
    for (unsigned long t = 0; t < shape.types.size(); ++t) {
        const Range range = rangeOf(shape.types[t]);
        low = std::min(std::max(low, range.low), range.high);
        high = std::min(std::max(high, range.low), range.high);
    }
    if (high < low) {
        std::swap(low, high);
    }
}

bool areAllowed(const Shape& shape, double low, double high)
{
    bool bAllowed = low <= high;
    for (unsigned long t = 0; t < shape.types.size(); ++t) {
        const Range range = rangeOf(shape.types[t]);
        bAllowed = bAllowed && low >= range.low && high <= range.high;
    }
    return bAllowed;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    ByteReader bytes(data, size);
    setUpRun(bytes);
    const unsigned long form = bytes.below(8);
    double low = bytes.number();
    double high = bytes.number();
    const Shape shape = readShape(bytes);
    Shape binary = shape;
    binary.types = {eImageBufferType::eBufferBinary};
    if (bytes.below(4) != 0) {
        fit(shape, low, high);
    }
    FuzzedImage in(shape, bytes);
    const std::vector<unsigned char> source = in.watched();
    const bool bOther = form == 1;
    const bool bMade = form == 0;
    FuzzedImage out(bOther ? readOther(binary, bytes) : binary, bytes);
    const std::vector<unsigned char> before = out.watched();

    imaproc::util::BasicThresholdImgLvl1 level;
    require(level.init(processor::eProcessorRulePolicy::eRulePolicyCheck).getValue());
    level.set<imaproc::attr::InImg>(in.get());
    level.set<imaproc::attr::InThresholdMin>(low);
    level.set<imaproc::attr::InThresholdMax>(high);
    if (!bMade) {
        level.set<imaproc::attr::OutBinImg>(out.get());
    }
    const bool bDone = level.run(core::eSynchroType::eSynchroSync).getValue();
    require(in.watched() == source);
    require(bDone == (areAllowed(shape, low, high) && !bOther));
    if (!bDone) {
        require(out.watched() == before);
        return 0;
    }
    const auto isThreshold = [&](FuzzedImage& result, const std::vector<unsigned char>& old) {
        return result.holds(old, [&](auto y, auto z, auto c, auto t, unsigned char* expected) {
            const unsigned char* const row = in.row(y, z, c, t);
            image::visitStorageType(shape.typeOf(t), [&]<class T>() {
                for (unsigned long x = 0; x < shape.sizes[0]; ++x) {
                    expected[x] = isBetween<T>(row + x * sizeof(T), low, high) ? 1 : 0;
                }
            });
        });
    };
    if (bMade) {
        FuzzedImage made(binary, level.getStorage<imaproc::attr::OutBinImg>());
        require(isThreshold(made, made.watched()));
    } else {
        require(isThreshold(out, before));
    }
    return 0;
}
