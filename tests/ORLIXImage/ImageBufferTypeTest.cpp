// Sizes, names, ranges and storage of the element types.
#include "ORLIXIPL/ORLIXImage/ImageBufferType.h"
#include "ORLIXIPL/ORLIXImage/ORLIXImageException.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <string>

namespace orlix::image {
namespace {

struct Row
{
    int value;
    unsigned long size;
    double min, max;
    const char* name;
};

constexpr Row g_rows[] = {{1, 1, -128, 127, "Int8"},
                          {2, 1, 0, 255, "UInt8"},
                          {3, 2, -32768, 32767, "Int16"},
                          {4, 2, 0, 65535, "UInt16"},
                          {5, 4, -2147483648.0, 2147483647, "Int32"},
                          {6, 4, 0, 4294967295, "UInt32"},
                          {7, 4, -FLT_MAX, FLT_MAX, "Real32"},
                          {8, 1, 0, 1, "Binary"},
                          {9, 2, 0, 65535, "UInt16Like"},
                          {10, 4, 0, 4294967295, "UInt32Like"},
                          {11, 1, 0, 255, "UInt8Like"}};

TEST(ImageBufferType, HasSizeRangeAndName)
{
    for (const Row& row : g_rows) {
        const eImageBufferType type(static_cast<eImageBufferType::domain>(row.value));
        EXPECT_EQ(elementSize(type), row.size) << row.name;
        EXPECT_EQ(getMinValue(type), row.min) << row.name;
        EXPECT_EQ(getMaxValue(type), row.max) << row.name;
        EXPECT_STREQ(getBufferTypeName(type), row.name);
    }
}

TEST(ImageBufferType, OutsideItsValuesHasNoStorageAndNoRange)
{
    for (const int value : {0, 12, 15}) {
        const eImageBufferType type(static_cast<eImageBufferType::domain>(value));
        EXPECT_EQ(elementSize(type), 0u);
        EXPECT_FALSE(visitStorageType(type, []<class T>() { FAIL(); }));
        EXPECT_STREQ(getBufferTypeName(type), value == 0 ? "none" : "unknown");
        EXPECT_THROW((void)getMaxValue(type), ORLIXImageException);
    }
    try {
        (void)getMinValue(eImageBufferType());
        FAIL();
    } catch (const ORLIXImageException& exception) {
        EXPECT_STREQ(exception.what(), "Buffer type 0 has no range of values: give one from 1 to 11");
    }
}

TEST(ImageBufferType, LikeTypesAndBinaryShareTheStorageOfTheUnsignedType)
{
    EXPECT_TRUE(isStorageType<signed char>(eImageBufferType::Int8));
    EXPECT_TRUE(isStorageType<short>(eImageBufferType::Int16));
    EXPECT_TRUE(isStorageType<int>(eImageBufferType::Int32));
    EXPECT_TRUE(isStorageType<float>(eImageBufferType::Real32));
    for (const auto type :
         {eImageBufferType::UInt8, eImageBufferType::eBufferBinary, eImageBufferType::eBufferUInt8Like}) {
        EXPECT_TRUE(isStorageType<unsigned char>(type));
        EXPECT_FALSE(isStorageType<signed char>(type));
    }
    for (const auto type : {eImageBufferType::UInt16, eImageBufferType::eBufferUInt16Like}) {
        EXPECT_TRUE(isStorageType<unsigned short>(type));
    }
    for (const auto type : {eImageBufferType::UInt32, eImageBufferType::eBufferUInt32Like}) {
        EXPECT_TRUE(isStorageType<unsigned int>(type));
        EXPECT_FALSE(isStorageType<float>(type));
    }
}

TEST(ImageBufferType, TableOrderPutsElevenBeforeNine)
{
    std::string order;
    for (const auto type : g_allBufferTypes) {
        order += std::to_string(static_cast<int>(type)) + " ";
    }
    EXPECT_EQ(order, "1 2 3 4 5 6 7 8 11 9 10 ");
}

TEST(ImageBufferType, NamesAreListedInTableOrderWithoutNone)
{
    using Names = EnumerationNames<eImageBufferType>;
    std::string names;
    for (const eImageBufferType type : Names::g_values) {
        names += std::string(Names::nameOf(type)) + " ";
    }
    EXPECT_EQ(names, "Int8 UInt8 Int16 UInt16 Int32 UInt32 Real32 Binary UInt8Like UInt16Like UInt32Like ");
}

} // namespace
} // namespace orlix::image
