// What is written into an archive comes out of it again, byte for byte.
#include "ORLIX/ORLIXSerialization/ArchiveSectionManager.h"
#include "ORLIX/ORLIXSerialization/ORLIXSerializationException.h"
#include "ORLIX/ORLIXSerialization/SerializationIItem.h"
#include "ORLIX/ORLIXSerialization/SerializationOItem.h"
#include "ORLIX/ORLIXSerialization/TextIArchive.h"
#include "ORLIX/ORLIXSerialization/TextOArchive.h"
#include "ORLIX/ORLIXUtil/NumericLimits.h"
#include "support/ScopedLocale.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <bit>
#include <cstring>
#include <limits>

namespace orlix {
namespace {

template <class T>
T passThrough(const T& value)
{
    TextOArchive output;
    output << SerializationOItem<T>("value", value);
    std::string text;
    EXPECT_TRUE(output.saveToString(text));
    TextIArchive input;
    const auto loaded = input.loadFromString(text);
    EXPECT_TRUE(loaded) << loaded.getMessage();
    T read{};
    input >> SerializationIItem<T>("value", read);
    input.checkEnd();
    return read;
}

template <class T>
bool hasSameBits(T left, T right)
{
    return std::memcmp(&left, &right, sizeof(T)) == 0;
}

template <class T>
class TextArchiveInteger : public ::testing::Test
{};

using Integers = ::testing::Types<char, signed char, unsigned char, short, unsigned short, int, unsigned int, long,
                                  unsigned long, long long, unsigned long long>;
TYPED_TEST_SUITE(TextArchiveInteger, Integers);

TYPED_TEST(TextArchiveInteger, keepsItsWholeRange)
{
    for (const TypeParam value : {NumericLimits<TypeParam>::s_min, TypeParam(0), TypeParam(1), TypeParam(100),
                                  NumericLimits<TypeParam>::s_max}) {
        EXPECT_EQ(passThrough(value), value);
    }
}

template <class T>
class TextArchiveReal : public ::testing::Test
{};

using Reals = ::testing::Types<float, double>;
TYPED_TEST_SUITE(TextArchiveReal, Reals);

TYPED_TEST(TextArchiveReal, keepsEveryBit)
{
    using Limits = std::numeric_limits<TypeParam>;
    const TypeParam third = TypeParam(1) / 3;
    for (const TypeParam value :
         {TypeParam(0), -TypeParam(0), third, -third, TypeParam(1e10), Limits::max(), Limits::lowest(), Limits::min(),
          Limits::denorm_min(), Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN(), -Limits::quiet_NaN()}) {
        EXPECT_TRUE(hasSameBits(passThrough(value), value)) << value;
    }
}

TEST(TextArchive, keepsThePayloadOfNotANumber)
{
    EXPECT_EQ(std::bit_cast<std::uint64_t>(passThrough(std::bit_cast<double>(0xFFF8000012345678UL))),
              0xFFF8000012345678UL);
    EXPECT_EQ(std::bit_cast<std::uint32_t>(passThrough(std::bit_cast<float>(0x7FC12345U))), 0x7FC12345U);
}

TEST(TextArchive, keepsTruthValuesAndTexts)
{
    EXPECT_TRUE(passThrough(true));
    EXPECT_FALSE(passThrough(false));
    const std::string awkward[] = {"",
                                   " ",
                                   " leading and trailing ",
                                   "<tag attribute=\"'&amp;'\"/>]]>",
                                   "tab\tline\nreturn\r\n",
                                   std::string("zero\0inside", 11),
                                   "back\\slash \\x41 \\\\",
                                   "\x01\x1f\x7f",
                                   "\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80",
                                   "\xff\xfe broken \xc3 \xe2\x82 \xc0\x80 \xed\xa0\x80 \xf4\x90\x80\x80",
                                   std::string(100000, 'x')};
    for (const std::string& text : awkward) {
        EXPECT_EQ(passThrough(text), text);
    }
}

TEST(TextArchive, keepsAwkwardNames)
{
    const std::string name = std::string("orlix::PlanIndexedColl<A> \"&'\\\n\xff", 32) + '\0';
    TextOArchive output;
    {
        ArchiveSectionManager section(output, name);
        output << SerializationOItem<int>(name, 4);
    }
    std::string text;
    ASSERT_TRUE(output.saveToString(text));
    TextIArchive input;
    ASSERT_TRUE(input.loadFromString(text));
    int value = 0;
    ArchiveSectionManager section(input, name);
    input >> SerializationIItem<int>(name, value);
    section.close();
    EXPECT_EQ(value, 4);
}

TEST(TextArchive, isXmlThatPeopleCanRead)
{
    TextOArchive output;
    {
        ArchiveSectionManager section(output, "orlix::A");
        output << SerializationOItem<unsigned int>("version", 1U) << SerializationOItem<double>("scale", 0.1);
        section.close();
    }
    output << SerializationOItem<std::string>("title", "A & B");
    std::string text;
    ASSERT_TRUE(output.saveToString(text));
    EXPECT_EQ(text, "<?xml version=\"1.0\"?>\n"
                    "<orlix_archive format=\"1\" crc32=\"3eeb77df\">\n"
                    "  <section name=\"orlix::A\">\n"
                    "    <uint32 name=\"version\" value=\"1\" />\n"
                    "    <real64 name=\"scale\" value=\"0.1\" />\n"
                    "  </section>\n"
                    "  <string name=\"title\" value=\"A &amp; B\" />\n"
                    "</orlix_archive>\n");
}

TEST(TextArchive, doesNotDependOnTheLocale)
{
    const orlix::testing::ScopedCppLocale scope;
    EXPECT_EQ(passThrough(1234567.5), 1234567.5);
    EXPECT_EQ(passThrough(1234567L), 1234567);
    TextOArchive archive;
    archive << SerializationOItem<double>("real", 1234567.5) << SerializationOItem<long>("whole", 1234567);
    std::string text;
    ASSERT_TRUE(archive.saveToString(text));
    EXPECT_NE(text.find("value=\"1234567.5\""), std::string::npos) << text;
    EXPECT_NE(text.find("value=\"1234567\""), std::string::npos) << text;
}

TEST(TextArchive, mayHoldNothing)
{
    std::string text;
    ASSERT_TRUE(TextOArchive().saveToString(text));
    TextIArchive input;
    ASSERT_TRUE(input.loadFromString(text));
    EXPECT_NO_THROW(input.checkEnd());
}

TEST(TextArchive, goesOnAfterASave)
{
    TextOArchive output;
    output << SerializationOItem<int>("a", 1);
    std::string first;
    ASSERT_TRUE(output.saveToString(first));
    output << SerializationOItem<int>("b", 2);
    std::string second;
    ASSERT_TRUE(output.saveToString(second));
    for (const std::string& text : {first, second}) {
        TextIArchive input;
        EXPECT_TRUE(input.loadFromString(text));
        int value = 0;
        input >> SerializationIItem<int>("a", value);
        EXPECT_EQ(value, 1);
    }
}

TEST(TextArchive, nestsUpToItsLimit)
{
    TextOArchive output;
    const auto nest = [&output](auto& self, int depth) -> void {
        if (depth > 0) {
            ArchiveSectionManager section(output, "inner");
            self(self, depth - 1);
            section.close();
        }
    };
    nest(nest, 64);
    std::string text;
    ASSERT_TRUE(output.saveToString(text));
    TextIArchive input;
    EXPECT_TRUE(input.loadFromString(text));
    EXPECT_THROW(nest(nest, 65), ORLIXSerializationException);
    EXPECT_FALSE(output.saveToString(text)) << "what an exception interrupted is incomplete";
}

RC_GTEST_PROP(TextArchive, keepsEveryDouble, (unsigned long bits))
{
    const double value = std::bit_cast<double>(bits);
    RC_ASSERT(hasSameBits(passThrough(value), value));
}

RC_GTEST_PROP(TextArchive, keepsEveryFloat, (unsigned int bits))
{
    const float value = std::bit_cast<float>(bits);
    RC_ASSERT(hasSameBits(passThrough(value), value));
}

RC_GTEST_PROP(TextArchive, keepsEveryString, (const std::string& text))
{
    RC_ASSERT(passThrough(text) == text);
}

} // namespace
} // namespace orlix
