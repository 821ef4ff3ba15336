// Locales that write numbers in another way than texts of the family are to have them.
#pragma once

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <locale>
#include <string>

#include <unistd.h>

namespace orlix::testing {

/// "1.234.567,5", for the scope, wherever a stream follows the C++ locale of the program.
class ScopedCppLocale
{
public:
    ScopedCppLocale() : m_former(std::locale::global(std::locale(std::locale::classic(), new Marks))) {}
    ~ScopedCppLocale() { std::locale::global(m_former); }
    ScopedCppLocale(const ScopedCppLocale&) = delete;
    ScopedCppLocale& operator=(const ScopedCppLocale&) = delete;

private:
    class Marks final : public std::numpunct<char>
    {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };

    std::locale m_former;
};

/// A decimal comma, for the scope, wherever the C library follows its locale. Where the system has no such locale one
/// is made out of the sources of Debian's package locales; none where these are missing, too.
class ScopedCLocale
{
public:
    ScopedCLocale() : m_former(std::setlocale(LC_ALL, nullptr))
    {
        for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "fr_FR.utf8", "de_DE", "fr_FR"}) {
            m_bFound = m_bFound || std::setlocale(LC_ALL, name) != nullptr;
        }
        m_bFound = m_bFound || makeOne();
    }
    ~ScopedCLocale()
    {
        std::setlocale(LC_ALL, m_former.c_str());
        if (!m_folder.empty()) {
            unsetenv("LOCPATH");
            std::filesystem::remove_all(m_folder);
        }
    }
    ScopedCLocale(const ScopedCLocale&) = delete;
    ScopedCLocale& operator=(const ScopedCLocale&) = delete;

    bool isFound() const { return m_bFound; }

private:
    bool makeOne()
    {
        m_folder = std::filesystem::temp_directory_path() / ("orlix-locale-" + std::to_string(getpid()));
        std::filesystem::create_directory(m_folder);
        const std::string command =
            "localedef -i de_DE -f UTF-8 '" + m_folder.string() + "/de_DE.UTF-8' > /dev/null 2>&1";
        return std::system(command.c_str()) == 0 && setenv("LOCPATH", m_folder.c_str(), 1) == 0 &&
               std::setlocale(LC_ALL, "de_DE.UTF-8") != nullptr;
    }

    std::string m_former;
    std::filesystem::path m_folder;
    bool m_bFound = false;
};

} // namespace orlix::testing
