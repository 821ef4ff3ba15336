// Quotas of processor time, read from files as the system shows them.
#include "ORLIX/ORLIXCore/ProcessorQuota.h"

#include <boost/filesystem.hpp>
#include <gtest/gtest.h>

#include <fstream>

namespace orlix::core {
namespace {

namespace fs = boost::filesystem;

/// A folder that stands for the root of a system.
class ProcessorQuota : public ::testing::Test
{
protected:
    void SetUp() override { m_root = fs::temp_directory_path() / fs::unique_path("orlix-quota-%%%%-%%%%-%%%%"); }
    void TearDown() override { fs::remove_all(m_root); }

    void write(const std::string& path, const std::string& text) const
    {
        fs::create_directories((m_root / path).parent_path());
        std::ofstream((m_root / path).string()) << text;
    }
    void writeUnified(const std::string& group, const std::string& text) const
    {
        write("sys/fs/cgroup" + group + "/cpu.max", text);
    }
    void writeVersion1(const std::string& group, const std::string& quota, const std::string& period) const
    {
        write("sys/fs/cgroup/cpu" + group + "/cpu.cfs_quota_us", quota);
        write("sys/fs/cgroup/cpu" + group + "/cpu.cfs_period_us", period);
    }
    unsigned long count() const { return countQuotaProcessors(m_root.string()); }

    fs::path m_root;
};

TEST_F(ProcessorQuota, IsNoneWhereThereIsNothing)
{
    EXPECT_EQ(count(), 0u);
    write("proc/self/cgroup", "0::/\n");
    EXPECT_EQ(count(), 0u);
    write("proc/self/cgroup", "nonsense\n\n::\n1:cpu:relative\n0::/nowhere/at/all\n");
    EXPECT_EQ(count(), 0u);
}

TEST_F(ProcessorQuota, OfVersion2RoundsUp)
{
    struct Case
    {
        const char* text;
        unsigned long count;
    };
    for (const Case& each : {Case{"200000 100000\n", 2}, Case{"150000 100000\n", 2}, Case{"100001 100000\n", 2},
                             Case{"50000 100000\n", 1}, Case{"1000 100000\n", 1}, Case{"300000 50000\n", 6},
                             Case{"max 100000\n", 0}, Case{"max\n", 0}, Case{"200000\n", 0}, Case{"200000 0\n", 0},
                             Case{"0 100000\n", 0}, Case{"-1 100000\n", 0}, Case{"", 0}, Case{"two one\n", 0}}) {
        writeUnified("", each.text);
        EXPECT_EQ(count(), each.count) << each.text;
    }
}

TEST_F(ProcessorQuota, OfVersion2IsTheTightestOfTheOwnGroupAndThoseAround)
{
    write("proc/self/cgroup", "0::/system/service/worker\n");
    writeUnified("/system/service/worker", "300000 100000\n");
    EXPECT_EQ(count(), 3u);
    writeUnified("/system", "200000 100000\n");
    EXPECT_EQ(count(), 2u);
    writeUnified("/system/service", "max 100000\n");
    EXPECT_EQ(count(), 2u);
    writeUnified("/system/other", "100000 100000\n");
    EXPECT_EQ(count(), 2u);
    writeUnified("", "90000 100000\n");
    EXPECT_EQ(count(), 1u);
}

TEST_F(ProcessorQuota, OfVersion1)
{
    writeVersion1("", "-1\n", "100000\n");
    EXPECT_EQ(count(), 0u);
    writeVersion1("", "250000\n", "100000\n");
    EXPECT_EQ(count(), 3u);
    write("proc/self/cgroup", "5:memory:/jobs\n4:cpuset:/sets\n3:cpu:/jobs/seven\n0::/\n");
    writeVersion1("/sets", "100000\n", "100000\n");
    EXPECT_EQ(count(), 3u) << "that of another controller";
    writeVersion1("/jobs/seven", "200000\n", "100000\n");
    EXPECT_EQ(count(), 2u);
    writeVersion1("/jobs", "50000\n", "100000\n");
    EXPECT_EQ(count(), 1u);
}

TEST_F(ProcessorQuota, OfVersion1WhereControllersShareAMount)
{
    write("proc/self/cgroup", "3:cpu,cpuacct:/jobs\n");
    write("sys/fs/cgroup/cpu,cpuacct/jobs/cpu.cfs_quota_us", "400000\n");
    write("sys/fs/cgroup/cpu,cpuacct/jobs/cpu.cfs_period_us", "100000\n");
    EXPECT_EQ(count(), 4u);
}

} // namespace
} // namespace orlix::core
