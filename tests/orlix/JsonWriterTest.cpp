// JSON that the program writes.
#include "JsonWriter.h"

#include "orlix/support/JsonDocument.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <cfloat>
#include <cmath>
#include <sstream>

namespace orlix::test {
namespace {

template <class TValue>
std::string written(const TValue& value)
{
    std::ostringstream out;
    cli::JsonWriter json(out);
    json.value(value);
    return out.str();
}

TEST(JsonWriterTest, IndentsObjectsAndArrays)
{
    std::ostringstream out;
    cli::JsonWriter json(out);
    json.beginObject();
    json.member("number", 3UL);
    json.key("list");
    json.beginArray();
    json.value(true);
    json.null();
    json.endArray();
    json.key("empty");
    json.beginObject();
    json.endObject();
    json.endObject();
    EXPECT_EQ(out.str(), "{\n  \"number\": 3,\n  \"list\": [\n    true,\n    null\n  ],\n  \"empty\": {}\n}\n");
}

TEST(JsonWriterTest, EscapesAndRepairsStrings)
{
    EXPECT_EQ(written("a\"b\\c/d"), R"("a\"b\\c/d")");
    EXPECT_EQ(written("\n\t\x01\x1f\x7f"), "\"\\u000a\\u0009\\u0001\\u001f\x7f\"");
    EXPECT_EQ(written(std::string_view("\0", 1)), "\"\\u0000\"");
    EXPECT_EQ(written("\xc3\xa4\xe2\x82\xac\xf0\x9f\x98\x80"), "\"\xc3\xa4\xe2\x82\xac\xf0\x9f\x98\x80\"");
    for (const char* bad : {"\x80", "\xff", "\xc3", "\xe2\x82", "\xc0\x80", "\xe0\x80\x80", "\xed\xa0\x80",
                            "\xf4\x90\x80\x80", "\xf8\x88\x80\x80\x80"}) {
        std::string repaired = "\"";
        for (std::size_t i = 0; bad[i] != '\0'; ++i) {
            repaired += "\xef\xbf\xbd";
        }
        EXPECT_EQ(written(bad), repaired + "\"");
    }
}

TEST(JsonWriterTest, NumbersReadBackAsTheyWere)
{
    for (const float value : {0.1F, -2.5F, 1e-20F, FLT_MAX, FLT_MIN, 16777217.0F}) {
        EXPECT_EQ(std::stof(written(value)), value);
    }
    EXPECT_EQ(written(18446744073709551615UL), "18446744073709551615");
    EXPECT_EQ(written(NAN), "null");
    EXPECT_EQ(written(-INFINITY), "null");
}

RC_GTEST_PROP(JsonWriterTest, AnyBytesGiveValidJson, (const std::string& bytes))
{
    const std::string text = parseJson(written(bytes)).text;
    const bool bAscii = bytes.find_first_not_of("\"\\ abcxyz\n\t") == std::string::npos;
    RC_ASSERT(!bAscii || text == bytes);
    RC_ASSERT(text.size() >= bytes.size());
}

} // namespace
} // namespace orlix::test
