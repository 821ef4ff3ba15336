// A folder of its own for a test's files.
#pragma once

#include <boost/filesystem.hpp>

#include <algorithm>
#include <string>
#include <vector>

namespace orlix::image::io::test {

/// Made anew, removed with all it holds.
class TestFolder
{
public:
    TestFolder()
        : m_path(boost::filesystem::temp_directory_path() / boost::filesystem::unique_path("orlix-io-%%%%-%%%%-%%%%"))
    {
        boost::filesystem::create_directory(m_path);
    }
    ~TestFolder()
    {
        boost::system::error_code ignored;
        boost::filesystem::remove_all(m_path, ignored);
    }
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;

    const boost::filesystem::path& getPath() const { return m_path; }
    boost::filesystem::path operator/(const std::string& name) const { return m_path / name; }

    /// Names of all that the folder holds, in order.
    std::vector<std::string> getNames() const
    {
        std::vector<std::string> names;
        for (const auto& entry : boost::filesystem::directory_iterator(m_path)) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }

private:
    boost::filesystem::path m_path;
};

} // namespace orlix::image::io::test
