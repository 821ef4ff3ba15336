// Class versions of an archive.
#include "ORLIX/ORLIXSerialization/BaseArchive.h"

#include "ORLIX/ORLIXSerialization/Logger/ORLIXSerializationLogMessages.h"
#include "ORLIX/ORLIXUtil/Raise.h"

namespace orlix {

BaseArchive::BaseArchive() = default;

BaseArchive::~BaseArchive() = default;

bool BaseArchive::isClassVersionRegistred(const std::string& className) const
{
    return m_classVersions.count(className) != 0;
}

void BaseArchive::registerClassVersion(const std::string& className, unsigned int version)
{
    const unsigned int known = m_classVersions.try_emplace(className, version).first->second;
    if (known != version) {
        raise<eORLIXSerializationMessage>(ORLIX_HERE, eORLIXSerializationMessage::eClassVersionConflict, className,
                                          version, known);
    }
}

unsigned int BaseArchive::getRegisterClassVersion(const std::string& className) const
{
    const auto found = m_classVersions.find(className);
    if (found == m_classVersions.end()) {
        raise<eORLIXSerializationMessage>(ORLIX_HERE, eORLIXSerializationMessage::eUnknownClassVersion, className);
    }
    return found->second;
}

void BaseArchive::clearClassVersions()
{
    m_classVersions.clear();
}

} // namespace orlix
