// Root of everything that can be made by class name, copied through a base pointer, and kept in an archive.
#pragma once

#include "ORLIX/ORLIXUtil/Export.h"
#include "ORLIX/ORLIXUtil/ProcessingResult.h"

#include <boost/shared_ptr.hpp>

#include <memory>
#include <string>

namespace orlix {

class BaseOArchive;
class BaseIArchive;

class ORLIXUTIL_API BaseDynamicObject
{
public:
    virtual ~BaseDynamicObject();

    /// Full name with namespaces, "orlix::imaproc::util::CopyImgLvl3" for example; the key of DynamicObjectFactory.
    virtual const std::string& getClassName() const = 0;

    /// A fresh default object of the same class, not a copy.
    virtual std::unique_ptr<BaseDynamicObject> createNew() const = 0;
    virtual boost::shared_ptr<BaseDynamicObject> createShared() const = 0;

    /// May `duplicate`, `duplicateShared` and `copy` be called? False unless a class says otherwise.
    virtual bool hasCopySupport() const;
    /// An independent copy. Raises ORLIXUtilException for a class without copy support.
    virtual std::unique_ptr<BaseDynamicObject> duplicate() const;
    virtual boost::shared_ptr<BaseDynamicObject> duplicateShared() const;
    /// Called on a copy that was just constructed from `source`, for what a copy constructor can't do. Does nothing
    /// here.
    virtual void initCtorCopy(const BaseDynamicObject& source);
    /// Takes over the state of `source`, an object of the same class. Raises ORLIXUtilException for a class without
    /// copy support.
    virtual void copy(const BaseDynamicObject& source);

    /// Writes the state into the archive; a derived class calls its base first. This class has no state.
    virtual ProcessingResult<bool> write(BaseOArchive& archive) const;
    /// Takes the state from the archive, in the order of `write`.
    virtual ProcessingResult<bool> read(BaseIArchive& archive);

protected:
    BaseDynamicObject() = default;
    BaseDynamicObject(const BaseDynamicObject&) = default;
    BaseDynamicObject& operator=(const BaseDynamicObject&) = default;
};

} // namespace orlix
