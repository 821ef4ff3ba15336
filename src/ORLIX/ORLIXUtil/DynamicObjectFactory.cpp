// Makes objects by the name of their class.
#include "ORLIX/ORLIXUtil/DynamicObjectFactory.h"

#include "ORLIX/ORLIXUtil/Logger/ORLIXUtilLog.h"
#include "ORLIX/ORLIXUtil/Logger/ORLIXUtilLogMessages.h"
#include "ORLIX/ORLIXUtil/Raise.h"

#include <pthread.h>

namespace orlix {

DynamicObjectFactory::DynamicObjectFactory() = default;

DynamicObjectFactory::~DynamicObjectFactory() = default;

DynamicObjectFactory& DynamicObjectFactory::getInstance()
{
    static DynamicObjectFactory g_factory;
    // A forked child finds the lock free, whichever thread of its parent held it. Who holds it may ask for a message,
    // so it is taken before the locks of the messages: handlers of a fork run in reverse order of their registration.
    static const bool g_bHeldWhileForking = [] {
        getORLIXUtilLogMessageManager();
        constexpr auto release = [] { g_factory.m_mutex.unlock(); };
        return pthread_atfork([] { g_factory.m_mutex.lock(); }, release, release) == 0;
    }();
    static_cast<void>(g_bHeldWhileForking);
    return g_factory;
}

ProcessingResult<bool> DynamicObjectFactory::registerClass(const std::string& name, NewCreator newCreator,
                                                           SharedCreator sharedCreator)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_classes.try_emplace(name, Creators{newCreator, sharedCreator}).second) {
        return BoolResult::failure(formatMessage<eORLIXUtilErrors>(eORLIXUtilErrors::eClassAlreadyRegistered, name));
    }
    return BoolResult::success();
}

void DynamicObjectFactory::unRegisterClass(const std::string& name)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_classes.erase(name);
}

bool DynamicObjectFactory::isRegistered(const std::string& name) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_classes.count(name) != 0;
}

std::vector<std::string> DynamicObjectFactory::getClassNames() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    std::vector<std::string> names;
    for (const auto& entry : m_classes) {
        names.push_back(entry.first);
    }
    return names;
}

std::unique_ptr<BaseDynamicObject> DynamicObjectFactory::createNew(const std::string& name) const
{
    return getCreators(name).newCreator();
}

boost::shared_ptr<BaseDynamicObject> DynamicObjectFactory::createShared(const std::string& name) const
{
    return getCreators(name).sharedCreator();
}

DynamicObjectFactory::Creators DynamicObjectFactory::getCreators(const std::string& name) const
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        const auto found = m_classes.find(name);
        if (found != m_classes.end()) {
            return found->second;
        }
    }
    raise<eORLIXUtilErrors>(ORLIX_HERE, eORLIXUtilErrors::eUnknownClass, name);
}

} // namespace orlix
