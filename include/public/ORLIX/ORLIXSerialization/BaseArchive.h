// What archives that are written and archives that are read have in common: sections and class versions.
#pragma once

#include "ORLIX/ORLIXSerialization/Export.h"

#include <cstddef>
#include <map>
#include <string>

namespace orlix {

/// Largest archive in bytes of text, unless a limit is given.
inline constexpr std::size_t g_maxArchiveBytes = 1024UL << 20;

/// An archive is a sequence of named items and named sections, and sections hold the same again. It is read in the
/// order in which it was written. For use by one thread at a time.
class ORLIXSERIALIZATION_API BaseArchive
{
public:
    BaseArchive(const BaseArchive&) = delete;
    BaseArchive& operator=(const BaseArchive&) = delete;
    virtual ~BaseArchive();

    /// Use ArchiveSectionManager rather than these three. `leaveSection` closes without a check, for a section that was
    /// not finished; `bFailed` marks what was written as incomplete.
    virtual void openSection(const std::string& name) = 0;
    virtual void closeSection() = 0;
    virtual void leaveSection(bool bFailed) noexcept = 0;

    /// Has the version of this class been written to, or read from, this archive?
    bool isClassVersionRegistred(const std::string& className) const;
    /// Raises ORLIXSerializationException if the class is registered with another version.
    void registerClassVersion(const std::string& className, unsigned int version);
    /// Raises ORLIXSerializationException if the class isn't registered.
    unsigned int getRegisterClassVersion(const std::string& className) const;

protected:
    BaseArchive();
    void clearClassVersions();

private:
    std::map<std::string, unsigned int> m_classVersions;
};

} // namespace orlix
