// When two images are views of the same pixels: one address, and the same distance along every axis that has one.
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImage/SubImage.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace orlix::image {
namespace {

struct Strides
{
    const char* axis;
    BufferStrides strides;
};

const BufferStrides g_strides = {8, 64, 512, 4096};
/// All of them span what the axes before reach, so that each is a layout that can be had.
const Strides g_others[] = {
    {"y", {9, 64, 512, 4096}}, {"z", {8, 65, 512, 4096}}, {"c", {8, 64, 513, 4096}}, {"t", {8, 64, 512, 4097}}};

class SharedPixelsTest : public ::testing::Test
{
protected:
    ImagePtr wrap(const BaseImageGeometry& geometry, const BufferStrides& strides, unsigned long offset = 0)
    {
        return wrapImage(geometry, m_memory.data() + offset, strides, nullptr);
    }
    /// Asked both ways.
    static bool areShared(const ImagePtr& one, const ImagePtr& other)
    {
        EXPECT_EQ(one->sharesPixelsWith(*other), other->sharesPixelsWith(*one));
        return one->sharesPixelsWith(*other);
    }

    std::vector<unsigned short> m_memory = std::vector<unsigned short>(10000);
};

TEST_F(SharedPixelsTest, EveryStrideCounts)
{
    const auto geometry = geometry5d(eImageBufferType::UInt16, 5, 4, 3, 2, 2);
    const ImagePtr image = wrap(*geometry, g_strides);
    EXPECT_TRUE(areShared(image, wrap(*geometry, g_strides)));
    for (const Strides& other : g_others) {
        EXPECT_FALSE(areShared(image, wrap(*geometry, other.strides))) << other.axis;
    }
}

TEST_F(SharedPixelsTest, AStrideCountsForTwoAsForMany)
{
    for (const Strides& other : g_others) {
        const std::string axis = other.axis;
        for (const unsigned long size : {2UL, 3UL}) {
            const auto geometry = geometry5d(eImageBufferType::UInt16, 5, axis == "y" ? size : 1,
                                             axis == "z" ? size : 1, axis == "c" ? size : 1, axis == "t" ? size : 1);
            EXPECT_FALSE(areShared(wrap(*geometry, g_strides), wrap(*geometry, other.strides))) << axis;
            EXPECT_TRUE(areShared(wrap(*geometry, other.strides), wrap(*geometry, other.strides))) << axis;
        }
    }
}

TEST_F(SharedPixelsTest, AStrideAlongAnAxisOfOneDoesNot)
{
    const BaseImageGeometry geometries[] = {
        *geometry5d(eImageBufferType::UInt16, 5, 1, 3, 2, 2), *geometry5d(eImageBufferType::UInt16, 5, 4, 1, 2, 2),
        *geometry5d(eImageBufferType::UInt16, 5, 4, 3, 1, 2), *geometry5d(eImageBufferType::UInt16, 5, 4, 3, 2, 1)};
    for (unsigned i = 0; i < 4; ++i) {
        const ImagePtr image = wrap(geometries[i], g_strides);
        for (unsigned k = 0; k < 4; ++k) {
            EXPECT_EQ(areShared(image, wrap(geometries[i], g_others[k].strides)), i == k)
                << "size 1 along " << g_others[i].axis << ", another stride along " << g_others[k].axis;
        }
    }
}

TEST_F(SharedPixelsTest, SoDoAddressSizesAndType)
{
    const auto geometry = geometry5d(eImageBufferType::UInt16, 5, 4, 3, 2, 2);
    const ImagePtr image = wrap(*geometry, g_strides);
    EXPECT_FALSE(areShared(image, wrap(*geometry, g_strides, 1)));
    for (const auto& other :
         {geometry5d(eImageBufferType::UInt16, 4, 4, 3, 2, 2), geometry5d(eImageBufferType::UInt16, 5, 3, 3, 2, 2),
          geometry5d(eImageBufferType::UInt16, 5, 4, 2, 2, 2), geometry5d(eImageBufferType::UInt16, 5, 4, 3, 1, 2),
          geometry5d(eImageBufferType::UInt16, 5, 4, 3, 2, 1), geometry5d(eImageBufferType::Int16, 5, 4, 3, 2, 2),
          geometry5d(eImageBufferType::eBufferUInt16Like, 5, 4, 3, 2, 2)}) {
        EXPECT_FALSE(areShared(image, wrap(*other, g_strides))) << other->toString();
    }
}

TEST_F(SharedPixelsTest, WhereTypesDifferByStepThePlaceOfEveryStepCounts)
{
    TemporalGeometry temporal;
    temporal.initSequence(3);
    const BaseImageGeometry geometry({eImageBufferType::UInt8, eImageBufferType::UInt16, eImageBufferType::UInt8}, 5, 4,
                                     {}, {}, temporal);
    const auto make = [&](const std::vector<unsigned long>& offsets) {
        std::vector<ImagePtr> steps;
        std::vector<const BaseImage*> parts;
        for (unsigned long t = 0; t < 3; ++t) {
            steps.push_back(wrap(*geometry2d(geometry.getBufferType(t), 5, 4), {5, 0, 0, 0}, offsets[t]));
            parts.push_back(steps.back().get());
        }
        return boost::make_shared<SubImage>(parts, geometry);
    };
    const std::vector<unsigned long> offsets = {0, 100, 200};
    EXPECT_TRUE(areShared(make(offsets), make(offsets)));
    EXPECT_FALSE(areShared(make(offsets), make({0, 102, 200})));
    EXPECT_FALSE(areShared(make(offsets), make({0, 100, 202})));
}

} // namespace
} // namespace orlix::image
