// The version record that a class leaves in an archive.
#include "ORLIX/ORLIXSerialization/ClassVersion.h"

#include "ORLIX/ORLIXSerialization/ArchiveSectionManager.h"
#include "ORLIX/ORLIXSerialization/Logger/ORLIXSerializationLogMessages.h"
#include "ORLIX/ORLIXSerialization/SerializationIItem.h"
#include "ORLIX/ORLIXSerialization/SerializationOItem.h"
#include "ORLIX/ORLIXUtil/Raise.h"

namespace orlix {

ProcessingResult<bool> writeClassVersion(BaseOArchive& archive, const std::string& className, unsigned int version)
{
    if (!archive.isClassVersionRegistred(className)) {
        ArchiveSectionManager section(archive, className);
        archive << SerializationOItem<unsigned int>("version", version);
        archive.registerClassVersion(className, version);
        section.close();
    }
    return BoolResult::success();
}

ProcessingResult<bool> readClassVersion(BaseIArchive& archive, const std::string& className, unsigned int newestVersion)
{
    if (!archive.isClassVersionRegistred(className)) {
        ArchiveSectionManager section(archive, className);
        unsigned int version = 0;
        archive >> SerializationIItem<unsigned int>("version", version);
        if (version > newestVersion) {
            raise<eORLIXSerializationMessage>(ORLIX_HERE, eORLIXSerializationMessage::eNewerClassVersion, className,
                                              newestVersion);
        }
        archive.registerClassVersion(className, version);
        section.close();
    }
    return BoolResult::success();
}

} // namespace orlix
