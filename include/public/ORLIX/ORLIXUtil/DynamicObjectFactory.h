// Makes objects by the name of their class.
#pragma once

#include "ORLIX/ORLIXUtil/BaseDynamicObject.h"

#include <map>
#include <mutex>
#include <vector>

namespace orlix {

/// Knows every class that a loaded library has registered. All functions may be called from any thread.
class ORLIXUTIL_API DynamicObjectFactory
{
public:
    using NewCreator = std::unique_ptr<BaseDynamicObject> (*)();
    using SharedCreator = boost::shared_ptr<BaseDynamicObject> (*)();

    DynamicObjectFactory();
    DynamicObjectFactory(const DynamicObjectFactory&) = delete;
    DynamicObjectFactory& operator=(const DynamicObjectFactory&) = delete;
    ~DynamicObjectFactory();

    /// The one that libraries register with.
    static DynamicObjectFactory& getInstance();

    /// Fails if the name is taken; the first registration stays.
    ProcessingResult<bool> registerClass(const std::string& name, NewCreator newCreator, SharedCreator sharedCreator);
    /// Does nothing if the name is unknown.
    void unRegisterClass(const std::string& name);

    bool isRegistered(const std::string& name) const;
    /// All names, sorted.
    std::vector<std::string> getClassNames() const;

    /// A fresh object; raises ORLIXUtilException if the name is unknown.
    std::unique_ptr<BaseDynamicObject> createNew(const std::string& name) const;
    boost::shared_ptr<BaseDynamicObject> createShared(const std::string& name) const;

private:
    struct Creators
    {
        NewCreator newCreator;
        SharedCreator sharedCreator;
    };

    Creators getCreators(const std::string& name) const;

    mutable std::mutex m_mutex;
    std::map<std::string, Creators> m_classes;
};

} // namespace orlix
