// A section of an archive that is open for as long as this object lives.
#include "ORLIX/ORLIXSerialization/ArchiveSectionManager.h"

#include <exception>

namespace orlix {

ArchiveSectionManager::ArchiveSectionManager(BaseArchive& archive, const std::string& name)
    : m_archive(archive), m_exceptionsAtStart(std::uncaught_exceptions())
{
    m_archive.openSection(name);
}

ArchiveSectionManager::~ArchiveSectionManager()
{
    if (m_bOpen) {
        m_archive.leaveSection(std::uncaught_exceptions() > m_exceptionsAtStart);
    }
}

void ArchiveSectionManager::close()
{
    m_archive.closeSection();
    m_bOpen = false;
}

} // namespace orlix
