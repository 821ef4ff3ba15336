// What a threshold has to give, worked out pixel by pixel, and short ways to run one.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "support/Images.h"

#include <cmath>
#include <string>

namespace orlix::imaproc::util::test {

using testing::makeRandom;

/// Is the element at `element` between the bounds as its type takes them? Whole numbers of all types are exact in a
/// long double.
inline bool isBetween(const image::eImageBufferType& type, const std::byte* element, double low, double high)
{
    bool bBetween = false;
    image::visitStorageType(type, [&]<class T>() {
        T value;
        std::memcpy(&value, element, sizeof(T));
        const long double number = static_cast<long double>(value);
        if constexpr (std::is_same_v<T, float>) {
            bBetween = number >= static_cast<long double>(static_cast<float>(low)) &&
                       number <= static_cast<long double>(static_cast<float>(high));
        } else {
            bBetween = number >= std::trunc(static_cast<long double>(low)) &&
                       number <= std::trunc(static_cast<long double>(high));
        }
    });
    return bBetween;
}

/// The binary image of `in`, its pixels in the order of `bytesOf`.
inline std::vector<std::byte> expectedBytes(const image::BaseImage& in, double low, double high)
{
    std::vector<std::byte> bytes;
    testing::forEachRow(in, [&](unsigned long t, std::byte* row) {
        const image::eImageBufferType type = in.getBufferType(t);
        for (unsigned long x = 0; x < in.getSizeX(); ++x) {
            bytes.push_back(std::byte{isBetween(type, row + x * image::elementSize(type), low, high)});
        }
    });
    return bytes;
}

/// Is `out` the threshold of `in`? Else the first pixel that isn't.
inline ::testing::AssertionResult isThreshold(const image::BaseImage& in, double low, double high,
                                              const image::BaseImage& out)
{
    if (!out.getGeometry().hasSameSizes(in.getGeometry()) || !out.getGeometry().hasUniformBufferType() ||
        out.getBufferType() != image::eImageBufferType::eBufferBinary) {
        return ::testing::AssertionFailure() << out.getGeometry().toString() << " for " << in.getGeometry().toString();
    }
    const std::vector<std::byte> expected = expectedBytes(in, low, high);
    const std::vector<std::byte> found = testing::bytesOf(out);
    for (unsigned long i = 0; i < expected.size(); ++i) {
        if (found[i] != expected[i]) {
            return ::testing::AssertionFailure()
                   << in.getGeometry().toString() << " between " << low << " and " << high << ": pixel " << i << " is "
                   << std::to_integer<int>(found[i]) << " instead of " << std::to_integer<int>(expected[i]);
        }
    }
    return ::testing::AssertionSuccess();
}

/// A level-1 processor with these attributes; a null output is left to the initializer.
inline boost::shared_ptr<BasicThresholdImgLvl1> makeThreshold(const ImageConstPtr& in, double low, double high,
                                                              const ImagePtr& out = {})
{
    const auto level = boost::make_shared<BasicThresholdImgLvl1>();
    EXPECT_TRUE(level->init(processor::eProcessorRulePolicy::eRulePolicyCheck));
    level->set<attr::InImg>(in);
    level->set<attr::InThresholdMin>(low);
    level->set<attr::InThresholdMax>(high);
    if (out) {
        level->set<attr::OutBinImg>(out);
    }
    return level;
}

/// The message of a run, empty for a success.
inline std::string runThreshold(const ImageConstPtr& in, double low, double high, const ImagePtr& out = {})
{
    return makeThreshold(in, low, high, out)->run(core::eSynchroType::eSynchroSync).getMessage();
}

inline ImagePtr threshold(const ImageConstPtr& in, double low, double high)
{
    const image::BaseImageGeometry& geometry = in->getGeometry();
    const image::BaseImageGeometry binary(image::eImageBufferType::eBufferBinary, geometry.getSizeX(),
                                          geometry.getSizeY(), geometry.getVolumeGeometry(),
                                          geometry.getColorGeometry(), geometry.getTemporalGeometry());
    return testing::makeOnSpoiltMemory(binary, [&] {
        const auto level = makeThreshold(in, low, high);
        processor::executeSyncRun(level);
        return level->getStorage<attr::OutBinImg>();
    });
}

/// Two bounds within the range of the type, which about half of all random pixels lie between.
struct Bounds
{
    double low;
    double high;
};
inline Bounds middleOf(const image::eImageBufferType& type)
{
    if (type == image::eImageBufferType::eBufferBinary) {
        return {1, 1};
    }
    if (type == image::eImageBufferType::Real32) {
        return {-1e3, 1e20};
    }
    const double low = image::getMinValue(type);
    const double size = image::getMaxValue(type) - low;
    return {low + size / 4, low + size * 3 / 4};
}

} // namespace orlix::imaproc::util::test
