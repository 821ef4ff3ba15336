// Does an image hold what erasing it has to give?
#pragma once

#include "ORLIXIPLUtility/Processor/EraseImg/EraseElementOracle.h"
#include "support/Images.h"

#include <algorithm>

namespace orlix::imaproc::util::test {

/// Does every element of the image hold the value? Else the place of the first that doesn't.
inline ::testing::AssertionResult isErased(const image::BaseImage& image, double value)
{
    unsigned long row = 0;
    ::testing::AssertionResult result = ::testing::AssertionSuccess();
    testing::forEachRow(image, [&](unsigned long t, std::byte* first) {
        const std::vector<std::byte> element = expectedElement(image.getBufferType(t), value);
        std::vector<std::byte> expected;
        for (unsigned long x = 0; x < image.getSizeX(); ++x) {
            expected.insert(expected.end(), element.begin(), element.end());
        }
        const unsigned long place = std::mismatch(expected.begin(), expected.end(), first).first - expected.begin();
        if (place < expected.size() && result) {
            result = ::testing::AssertionFailure() << image.getGeometry().toString() << ", row " << row << " of all, x "
                                                   << place / element.size() << ": not what " << value << " gives";
        }
        ++row;
    });
    return result;
}

} // namespace orlix::imaproc::util::test
