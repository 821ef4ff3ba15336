// Checking claimed sizes in arithmetic that can't overflow.
#include "ORLIXIPL/ORLIXImageIO/ClaimCheck.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImageIO/Logger/ORLIXImageIOLogMessages.h"

#include <unistd.h>

#include <algorithm>

namespace orlix::image::io {

namespace {

// Saturates: no limit is as high.
WideSize product(WideSize a, WideSize b)
{
    const WideSize largest = ~WideSize(0);
    return a != 0 && b > largest / a ? largest : a * b;
}

} // namespace

unsigned long defaultMaxBytes()
{
    static const unsigned long g_bytes = static_cast<unsigned long>(::sysconf(_SC_PHYS_PAGES)) / 4 * 3 *
                                         static_cast<unsigned long>(::sysconf(_SC_PAGESIZE));
    return g_bytes;
}

std::string textOf(WideSize size)
{
    std::string digits;
    do {
        digits += static_cast<char>('0' + static_cast<int>(size % 10));
        size /= 10;
    } while (size > 0);
    std::ranges::reverse(digits);
    return digits;
}

void checkLimits(const BaseImageGeometry& geometry, WideSize scratchBytes, const ReadLimits& limits,
                 const std::string& file)
{
    WideSize elements = 1;
    for (const unsigned long size :
         {geometry.getSizeX(), geometry.getSizeY(), geometry.getSizeZ(), geometry.getSizeC(), geometry.getSizeT()}) {
        elements = product(elements, size);
    }
    if (elements > limits.maxElements) {
        raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eTooManyElements, file, geometry.toString(),
                                    limits.maxElements);
    }
    const WideSize pixelBytes = product(elements, elementSize(geometry.getBufferType()));
    const WideSize bytes = std::max(pixelBytes + scratchBytes, pixelBytes);
    const unsigned long maxBytes = std::min<unsigned long>(limits.maxBytes, NumericLimits<long>::s_max);
    if (bytes > maxBytes) {
        raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eTooManyBytes, file, geometry.toString(),
                                    textOf(bytes), maxBytes);
    }
}

void checkPlausibility(unsigned long page, WideSize claimedBytes, unsigned long fileBytes, unsigned long largestRatio,
                       const std::string& file)
{
    if (claimedBytes > WideSize(fileBytes) * largestRatio) {
        raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eImplausibleSize, file, page,
                                    textOf(claimedBytes), textOf(claimedBytes / largestRatio), fileBytes);
    }
}

} // namespace orlix::image::io
