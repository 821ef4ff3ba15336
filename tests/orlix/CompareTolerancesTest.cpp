// The tolerances that orlix compare takes and refuses.
#include "orlix/support/NoiseImages.h"
#include "orlix/support/Program.h"
#include "orlix/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace orlix::test {
namespace {

using image::eImageBufferType;

class CompareTolerancesTest : public ::testing::Test
{
protected:
    /// Compares two images of one pixel: 0, and what is `difference` larger.
    ProgramResult compare(eImageBufferType type, double difference, const std::vector<std::string>& options)
    {
        for (const char* file : {"one.tif", "two.tif"}) {
            const ImagePtr image = image::createImage(*image::geometry2d(type, 1, 1));
            const double value = file == std::string("one.tif") ? 0 : difference;
            image::visitStorageType(type,
                                    [&]<class T>() { *image::planData<T>(*image, 0, 0, 0) = static_cast<T>(value); });
            image::io::writeImage(m_folder / file, image);
        }
        std::vector<std::string> arguments{"compare", m_folder / "one.tif", m_folder / "two.tif"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return runOrlix(arguments);
    }
    /// What the one line says.
    std::string refusal(eImageBufferType type, const std::vector<std::string>& options)
    {
        const ProgramResult result = compare(type, 1, options);
        EXPECT_EQ(result.exitCode, 2);
        EXPECT_EQ(result.out, "");
        return result.err;
    }

    const TemporaryFolder m_folder;
};

TEST_F(CompareTolerancesTest, WhatIsNoTolerance)
{
    for (const auto type : {eImageBufferType::UInt16, eImageBufferType::Real32}) {
        for (const std::string option : {"--absolute", "--relative"}) {
            for (const std::string value :
                 {"nan", "-nan", "inf", "-inf", "-1", "-0.001", "1e39", " 1", "few", "0x10"}) {
                EXPECT_EQ(refusal(type, {option + "=" + value}),
                          "orlix: " + option + ": expected a number from 0 to 3.4028235e+38, found \"" + value +
                              "\"; `orlix compare --help` tells more\n");
            }
        }
    }
}

struct Limit
{
    eImageBufferType::domain type;
    const char* held;    ///< the largest tolerance that is held
    const char* beyond;  ///< the next one
    const char* largest; ///< as the message tells it
};

/// Integers of 16 and 32 bits; those of 32 bits end where the next number of single precision is 2^31 or 2^32.
TEST_F(CompareTolerancesTest, WhatTheTypeCannotHold)
{
    for (const Limit& limit : {Limit{eImageBufferType::Int8, "32767.9", "32768", "32767"},
                               Limit{eImageBufferType::UInt8, "65535.9", "65536", "65535"},
                               Limit{eImageBufferType::eBufferBinary, "65535", "65536", "65535"},
                               Limit{eImageBufferType::eBufferUInt8Like, "65535", "65536", "65535"},
                               Limit{eImageBufferType::Int16, "2147483520", "2147483647", "2147483520"},
                               Limit{eImageBufferType::UInt16, "2147483520", "2147483647", "2147483520"},
                               Limit{eImageBufferType::eBufferUInt16Like, "2147483520", "3e9", "2147483520"},
                               Limit{eImageBufferType::Int32, "2147483520", "3e9", "2147483520"},
                               Limit{eImageBufferType::UInt32, "4294967040", "4294967295", "4294967040"},
                               Limit{eImageBufferType::eBufferUInt32Like, "4294967040", "5e9", "4294967040"}}) {
        const std::string name = image::getBufferTypeName(limit.type);
        const ProgramResult held = compare(limit.type, 1, {"--absolute", limit.held});
        EXPECT_EQ(held.exitCode, 0) << name << held.err;
        EXPECT_EQ(refusal(limit.type, {"--absolute", limit.beyond}), "orlix: --absolute " + std::string(limit.beyond) +
                                                                         ": tolerances on " + name + " go from 0 to " +
                                                                         limit.largest + "\n");
        EXPECT_EQ(compare(limit.type, 1, {"--relative", limit.beyond}).exitCode, 0) << "a part is held by every type";
    }
    EXPECT_EQ(compare(eImageBufferType::Real32, 1, {"--absolute", "3.4028235e38"}).exitCode, 0);
}

TEST_F(CompareTolerancesTest, WhatIsHeldCounts)
{
    EXPECT_EQ(compare(eImageBufferType::UInt8, 200, {"--absolute", "199"}).exitCode, 1);
    EXPECT_EQ(compare(eImageBufferType::UInt8, 200, {"--absolute", "200"}).exitCode, 0);
    EXPECT_EQ(compare(eImageBufferType::Int32, 2000000000, {"--absolute", "1.9e9"}).exitCode, 1);
    EXPECT_EQ(compare(eImageBufferType::UInt32, 4e9, {"--absolute", "3.9e9"}).exitCode, 1);
    EXPECT_EQ(compare(eImageBufferType::UInt32, 4e9, {"--absolute", "4e9"}).exitCode, 0);
    EXPECT_EQ(compare(eImageBufferType::UInt16, 60000, {"--relative", "0.99"}).exitCode, 1);
    EXPECT_EQ(compare(eImageBufferType::UInt16, 60000, {"--relative", "1"}).exitCode, 0);
}

TEST_F(CompareTolerancesTest, RunTakesThemByName)
{
    EXPECT_EQ(compare(eImageBufferType::UInt8, 200, {}).exitCode, 1);
    const auto run = [this](const std::string& tolerance) {
        return runOrlix({"run", "CompareImgLvl1", "InImg1=" + (m_folder / "one.tif"),
                         "InImg2=" + (m_folder / "two.tif"), "InOptImgComparisonTolerance=" + tolerance});
    };
    EXPECT_NE(run("mode=1,absoluteTolerance=199").out.find("nbDifferentPixels: 1"), std::string::npos);
    EXPECT_NE(run("absoluteTolerance=200,mode=1").out.find("nbDifferentPixels: 0"), std::string::npos);
    EXPECT_NE(run("mode=2,relativeTolerance=1").out.find("nbDifferentPixels: 0"), std::string::npos);
    const std::pair<std::string, std::string> refused[] = {
        {"mode=1,absoluteTolerance=nan", "absoluteTolerance: expected a number from 0 to 3.4028235e+38, found nan"},
        {"mode=3,absoluteTolerance=-1", "absoluteTolerance: expected a number from 0 to 3.4028235e+38, found -1"},
        {"mode=2,relativeTolerance=inf", "relativeTolerance: expected a number from 0 to 3.4028235e+38, found inf"},
        {"mode=4", "mode: expected 0 (equal), 1 (absolute), 2 (relative) or 3 (either), found 4"},
        {"absoluteTolerance=2", "absoluteTolerance counts in modes 1 and 3 alone: give one of them with it"},
        {"mode=1,relativeTolerance=2", "relativeTolerance counts in modes 2 and 3 alone: give one of them with it"},
        {"mode=1,tolerance=2", "there is no tolerance: give mode="}};
    for (const auto& [text, reason] : refused) {
        const ProgramResult result = run(text);
        EXPECT_EQ(result.exitCode, 2) << text;
        EXPECT_EQ(result.err.find("orlix: InOptImgComparisonTolerance: " + reason), 0U) << result.err;
    }
}

} // namespace
} // namespace orlix::test
