// Registers a class with the object factory for as long as its library is loaded.
#pragma once

#include "ORLIX/ORLIXUtil/DynamicObjectFactory.h"

namespace orlix {

namespace details {

/// Registers and tells whether that worked; a name that is taken is logged, since a static initialiser can't throw.
ORLIXUTIL_API bool registerDynamicClass(const std::string& name, DynamicObjectFactory::NewCreator newCreator,
                                        DynamicObjectFactory::SharedCreator sharedCreator) noexcept;
ORLIXUTIL_API void unRegisterDynamicClass(const std::string& name) noexcept;

} // namespace details

/// A static object of this type, one in the source file of `T`, does the registration. `T` has the static functions
/// `getTypeName`, `createNewObject` and `createSharedObject`.
template <class T>
class DynamicRegistrator
{
public:
    DynamicRegistrator()
        : m_bRegistered(details::registerDynamicClass(T::getTypeName(), newCreatorFcn, sharedCreatorFcn))
    {}
    DynamicRegistrator(const DynamicRegistrator&) = delete;
    DynamicRegistrator& operator=(const DynamicRegistrator&) = delete;
    ~DynamicRegistrator()
    {
        if (m_bRegistered) {
            details::unRegisterDynamicClass(T::getTypeName());
        }
    }

    bool isRegistered() const { return m_bRegistered; }

private:
    static std::unique_ptr<BaseDynamicObject> newCreatorFcn() { return T::createNewObject(); }
    static boost::shared_ptr<BaseDynamicObject> sharedCreatorFcn() { return T::createSharedObject(); }

    bool m_bRegistered;
};

} // namespace orlix
