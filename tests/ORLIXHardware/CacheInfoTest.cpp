// Cache sizes: what the system tells, what is made of it, and what stands in where it tells nothing.
#include "ORLIX/ORLIXHardware/CacheInfo.h"

#include "ORLIX/ORLIXHardware/CacheSizes.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include <unistd.h>

namespace orlix::hard {
namespace {

namespace fs = std::filesystem;

class CacheFolder : public testing::Test
{
protected:
    CacheFolder() : m_directory(fs::temp_directory_path() / ("orlix-caches-" + std::to_string(getpid())))
    {
        fs::remove_all(m_directory);
    }
    ~CacheFolder() override { fs::remove_all(m_directory); }

    void addCache(const std::string& type, int level, const std::string& size)
    {
        const fs::path cache = m_directory / ("index" + std::to_string(m_nbCaches++));
        fs::create_directories(cache);
        std::ofstream(cache / "type") << type << '\n';
        std::ofstream(cache / "level") << level << '\n';
        std::ofstream(cache / "size") << size << '\n';
        std::ofstream(cache / "coherency_line_size") << "128\n";
    }

    fs::path m_directory;
    int m_nbCaches = 0;
};

TEST(CacheInfo, isPlausible)
{
    EXPECT_GE(getCacheLineBytes(), 16u);
    EXPECT_EQ(getCacheLineBytes() & (getCacheLineBytes() - 1), 0u) << "a power of two";
    EXPECT_GE(getL2CacheBytes(), 64u << 10);
    EXPECT_GE(getLastLevelCacheBytes(), getL2CacheBytes());
    EXPECT_LE(getLastLevelCacheBytes(), 8UL << 30);
}

TEST(CacheInfo, sizesAreReadWithTheirUnit)
{
    EXPECT_EQ(details::parseCacheSize("48K"), 49152u);
    EXPECT_EQ(details::parseCacheSize("2M"), 2097152u);
    EXPECT_EQ(details::parseCacheSize("64"), 64u);
    for (const char* text : {"", "K", "12Q", "-1", "99999999999999999999K", "4 K"}) {
        EXPECT_EQ(details::parseCacheSize(text), 0u) << text;
    }
}

TEST_F(CacheFolder, givesDataCachesOfTheRightLevel)
{
    addCache("Data", 1, "48K");
    addCache("Instruction", 1, "32K");
    addCache("Unified", 2, "2048K");
    addCache("Unified", 3, "33792K");
    const details::CacheSizes sizes = details::readCacheSizesIn(m_directory.string());
    EXPECT_EQ(sizes.line, 128u);
    EXPECT_EQ(sizes.level2, 2048u << 10);
    EXPECT_EQ(sizes.lastLevel, 33792u << 10);
}

TEST_F(CacheFolder, withoutLevel3TheLastLevelIsL2)
{
    addCache("Data", 1, "32K");
    addCache("Unified", 2, "512K");
    EXPECT_EQ(details::readCacheSizesIn(m_directory.string()).lastLevel, 512u << 10);
}

TEST_F(CacheFolder, mayBeMissing)
{
    const details::CacheSizes sizes = details::readCacheSizesIn(m_directory.string());
    EXPECT_EQ(sizes.line + sizes.level2 + sizes.lastLevel, 0u);
}

TEST(CacheInfo, secondSourceAndCommonSizesFillGaps)
{
    const auto nothing = details::completeCacheSizes({}, {});
    EXPECT_EQ(nothing.line, 64u);
    EXPECT_EQ(nothing.level2, 1u << 20);
    EXPECT_EQ(nothing.lastLevel, 8u << 20);

    const auto mixed = details::completeCacheSizes({0, 4096, 0}, {32, 8192, 65536});
    EXPECT_EQ(mixed.line, 32u);
    EXPECT_EQ(mixed.level2, 4096u);
    EXPECT_EQ(mixed.lastLevel, 65536u);

    EXPECT_EQ(details::completeCacheSizes({64, 1u << 18, 0}, {}).lastLevel, 1u << 18);
    EXPECT_EQ(details::completeCacheSizes({64, 1u << 20, 4096}, {}).lastLevel, 1u << 20) << "never below L2";
}

} // namespace
} // namespace orlix::hard
