// What comparing two images has to give, worked out pixel by pixel in wide arithmetic.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/CompareImg/CompareImg.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CompareImg/CompareImgLvl1.h"
#include "ORLIXIPL/ORLIXImage/ImageBufferType.h"
#include "ORLIXIPLUtility/Processor/CompareImg/ComparePixelOracle.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <ostream>
#include <sstream>

namespace orlix::imaproc::util::test {

/// By the order x, y, z, c, t.
inline attr::CompareResult expectedResult(const image::BaseImage& first, const image::BaseImage& second,
                                          const Tolerance& tolerance)
{
    attr::CompareResult result;
    for (unsigned long t = 0; t < first.getSizeT(); ++t) {
        for (unsigned long c = 0; c < first.getSizeC(); ++c) {
            for (unsigned long z = 0; z < first.getSizeZ(); ++z) {
                for (unsigned long y = 0; y < first.getSizeY(); ++y) {
                    image::visitStorageType(first.getBufferType(t), [&]<class T>() {
                        for (unsigned long x = 0; x < first.getSizeX(); ++x) {
                            T a;
                            T b;
                            std::memcpy(&a, first.accessRow(y, z, c, t) + x * sizeof(T), sizeof(T));
                            std::memcpy(&b, second.accessRow(y, z, c, t) + x * sizeof(T), sizeof(T));
                            ++result.nbComparedPixels;
                            if (!differ(a, b, tolerance)) {
                                continue;
                            }
                            if (result.nbDifferentPixels++ == 0) {
                                result.firstDifference = {x, y, z, c, t};
                                result.firstValue1 = static_cast<double>(a);
                                result.firstValue2 = static_cast<double>(b);
                            }
                        }
                    });
                }
            }
        }
    }
    result.identical = result.nbDifferentPixels == 0;
    return result;
}

/// Field by field: neither what a record visits nor its comparison has a say in it.
inline ::testing::AssertionResult sameResult(const attr::CompareResult& expected, const attr::CompareResult& found)
{
    const attr::PixelPosition& at = expected.firstDifference;
    const attr::PixelPosition& foundAt = found.firstDifference;
    const auto sameValue = [](double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); };
    if (expected.identical == found.identical && expected.nbDifferentPixels == found.nbDifferentPixels &&
        expected.nbComparedPixels == found.nbComparedPixels && at.x == foundAt.x && at.y == foundAt.y &&
        at.z == foundAt.z && at.c == foundAt.c && at.t == foundAt.t &&
        sameValue(expected.firstValue1, found.firstValue1) && sameValue(expected.firstValue2, found.firstValue2)) {
        return ::testing::AssertionSuccess();
    }
    std::ostringstream text;
    text << "expected " << expected << "\nfound    " << found;
    return ::testing::AssertionFailure() << text.str();
}

/// Compares with `compareImg` and with the oracle.
inline ::testing::AssertionResult comparesAsExpected(const ImageConstPtr& first, const ImageConstPtr& second,
                                                     const Tolerance& tolerance)
{
    ::testing::AssertionResult same =
        sameResult(expectedResult(*first, *second, tolerance), *compareImg(first, second, tolerance.make()));
    if (!same) {
        std::ostringstream text;
        text << tolerance << " on " << first->getGeometry().toString();
        same << '\n' << text.str();
    }
    return same;
}

} // namespace orlix::imaproc::util::test
