// What holds for every dynamic object unless its class says otherwise.
#include "ORLIX/ORLIXUtil/BaseDynamicObject.h"

#include "ORLIX/ORLIXUtil/Logger/ORLIXUtilLogMessages.h"
#include "ORLIX/ORLIXUtil/Raise.h"

namespace orlix {

BaseDynamicObject::~BaseDynamicObject() = default;

bool BaseDynamicObject::hasCopySupport() const
{
    return false;
}

std::unique_ptr<BaseDynamicObject> BaseDynamicObject::duplicate() const
{
    raise<eORLIXUtilErrors>(ORLIX_HERE, eORLIXUtilErrors::eNoCopySupport, getClassName());
}

boost::shared_ptr<BaseDynamicObject> BaseDynamicObject::duplicateShared() const
{
    raise<eORLIXUtilErrors>(ORLIX_HERE, eORLIXUtilErrors::eNoCopySupport, getClassName());
}

void BaseDynamicObject::initCtorCopy(const BaseDynamicObject&) {}

void BaseDynamicObject::copy(const BaseDynamicObject&)
{
    raise<eORLIXUtilErrors>(ORLIX_HERE, eORLIXUtilErrors::eNoCopySupport, getClassName());
}

ProcessingResult<bool> BaseDynamicObject::write(BaseOArchive&) const
{
    return BoolResult::success();
}

ProcessingResult<bool> BaseDynamicObject::read(BaseIArchive&)
{
    return BoolResult::success();
}

} // namespace orlix
