#include "ORLIX/ORLIXBaseProcessing/ProcessorFactory.h"

#include "ORLIX/ORLIXBaseProcessing/Logger/ORLIXBaseProcessingLog.h"
#include "ORLIX/ORLIXBaseProcessing/Logger/ORLIXBaseProcessingLogMessages.h"
#include "ORLIX/ORLIXUtil/Raise.h"

#include <pthread.h>

namespace orlix::processor {

ProcessorFactory::ProcessorFactory() = default;
ProcessorFactory::~ProcessorFactory() = default;

ProcessorFactory& ProcessorFactory::getInstance()
{
    static ProcessorFactory g_instance;
    // A forked child finds the lock free, whichever thread of its parent held it. Who holds it may ask for a message,
    // so it is taken before the locks of the messages: handlers of a fork run in reverse order of their registration.
    static const bool g_bHeldWhileForking = [] {
        getORLIXBaseProcessingLogMessageManager();
        constexpr auto release = [] { g_instance.m_mutex.unlock(); };
        return pthread_atfork([] { g_instance.m_mutex.lock(); }, release, release) == 0;
    }();
    static_cast<void>(g_bHeldWhileForking);
    return g_instance;
}

ProcessingResult<bool> ProcessorFactory::registerProcessor(const std::string& name, const ProcessorInfo& info)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_processors.emplace(name, info).second) {
        return true;
    }
    return ProcessingResult<bool>::failure(
        formatMessage<eProcessorMessage>(eProcessorMessage::eProcessorRegisteredTwice, name));
}

void ProcessorFactory::unRegisterProcessor(const std::string& name)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_processors.erase(name);
}

std::vector<std::string> ProcessorFactory::getProcessorNames() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    std::vector<std::string> names;
    for (const auto& [name, info] : m_processors) {
        names.push_back(name);
    }
    return names;
}

bool ProcessorFactory::isRegistered(const std::string& name) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_processors.count(name) != 0;
}

ProcessorFactory::ProcessorInfo ProcessorFactory::getProcessorInfo(const std::string& name) const
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (const auto found = m_processors.find(name); found != m_processors.end()) {
            return found->second;
        }
    }
    raise<eProcessorMessage>(ORLIX_HERE, eProcessorMessage::eUnknownProcessor, name);
}

boost::shared_ptr<BaseProcessor> ProcessorFactory::createProcessor(const std::string& name) const
{
    return getProcessorInfo(name).creator();
}

boost::filesystem::path ProcessorFactory::cutHeaderPath(const boost::filesystem::path& path)
{
    for (const char* root : {"include/public", "include/partner", "include/private"}) {
        if (boost::filesystem::path cut = getRelativeFromRoot(path, root); !cut.empty()) {
            return cut;
        }
    }
    return {};
}

} // namespace orlix::processor
