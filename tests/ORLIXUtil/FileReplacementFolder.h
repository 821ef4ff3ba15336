// A folder of a test's own for files that are replaced.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <unistd.h>

namespace orlix::testing {

namespace fs = std::filesystem;

class FileReplacementFolder : public ::testing::Test
{
protected:
    FileReplacementFolder() : m_folder(fs::temp_directory_path() / ("orlix-replacement-" + std::to_string(getpid())))
    {
        fs::remove_all(m_folder);
        fs::create_directories(m_folder);
    }
    ~FileReplacementFolder() override { fs::remove_all(m_folder); }

    std::string file(const std::string& name) const { return (m_folder / name).string(); }
    static void put(const std::string& path, const std::string& text) { std::ofstream(path) << text; }
    static std::string get(const std::string& path)
    {
        std::ifstream stream(path);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    long nbFiles() const { return std::distance(fs::directory_iterator(m_folder), fs::directory_iterator()); }

    fs::path m_folder;
};

constexpr uid_t g_nobody = 65534;

} // namespace orlix::testing
