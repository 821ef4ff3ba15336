// A section of an archive that is open for as long as this object lives.
#pragma once

#include "ORLIX/ORLIXSerialization/BaseArchive.h"

namespace orlix {

class ORLIXSERIALIZATION_API ArchiveSectionManager
{
public:
    /// Opens the section. Raises ORLIXSerializationException if an archive that is read has something else there, or if
    /// sections are nested too deep. Keeps a reference to the archive.
    ArchiveSectionManager(BaseArchive& archive, const std::string& name);
    ArchiveSectionManager(const ArchiveSectionManager&) = delete;
    ArchiveSectionManager& operator=(const ArchiveSectionManager&) = delete;
    /// Closes the section if `close` wasn't called: unread entries are skipped, and what an exception interrupted
    /// makes a written archive incomplete.
    ~ArchiveSectionManager();

    /// Closes the section now. Raises ORLIXSerializationException if entries of it were not read.
    void close();

private:
    BaseArchive& m_archive;
    int m_exceptionsAtStart;
    bool m_bOpen = true;
};

} // namespace orlix
