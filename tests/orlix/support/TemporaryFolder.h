// A folder of its own for each test.
#pragma once

#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>

#include <stdlib.h>

namespace orlix::test {

class TemporaryFolder
{
public:
    TemporaryFolder()
    {
        std::string name = (std::filesystem::temp_directory_path() / "orlix-test-XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr) {
            throw std::runtime_error("no temporary folder");
        }
        m_path = name;
    }
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::string getPath() const { return m_path.string(); }
    std::string operator/(const std::string& name) const { return (m_path / name).string(); }

    std::set<std::string> getNames() const
    {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(m_path)) {
            names.insert(entry.path().filename().string());
        }
        return names;
    }

private:
    std::filesystem::path m_path;
};

inline std::string contentOf(const std::string& file)
{
    std::ifstream in(file, std::ios::binary);
    std::ostringstream content;
    content << in.rdbuf();
    return content.str();
}

inline void writeText(const std::string& file, const std::string& text)
{
    std::ofstream(file, std::ios::binary) << text;
}

} // namespace orlix::test
