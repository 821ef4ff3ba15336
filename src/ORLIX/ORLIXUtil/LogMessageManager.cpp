// Texts of one library's message catalogues.
#include "ORLIX/ORLIXUtil/LogMessageManager.h"

#include "ORLIX/ORLIXUtil/Logger/ORLIXUtilLogMessages.h"
#include "ORLIX/ORLIXUtil/Raise.h"

#include <pthread.h>

namespace orlix {

LogMessageManager::LogMessageManager(std::string name) : m_name(std::move(name)) {}

LogMessageManager::~LogMessageManager() = default;

LogMessageManager& LogMessageManager::getInstance(const std::string& name)
{
    static std::mutex g_mutex;
    static std::map<std::string, LogMessageManager> g_managers;
    // A forked child finds the locks free, whichever thread of its parent held them.
    constexpr auto releaseAll = [] {
        for (auto& [known, manager] : g_managers) {
            manager.m_mutex.unlock();
        }
        g_mutex.unlock();
    };
    static const bool g_bHeldWhileForking = pthread_atfork(
                                                [] {
                                                    g_mutex.lock();
                                                    for (auto& [known, manager] : g_managers) {
                                                        manager.m_mutex.lock();
                                                    }
                                                },
                                                releaseAll, releaseAll) == 0;
    static_cast<void>(g_bHeldWhileForking);
    const std::lock_guard<std::mutex> lock(g_mutex);
    return g_managers.try_emplace(name, name).first->second;
}

void LogMessageManager::addMessage(const std::string& key, int id, const std::string& text)
{
    std::string known;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        known = m_texts.try_emplace(MessageId(key, id), text).first->second;
    }
    if (known != text) {
        raise<eORLIXUtilErrors>(ORLIX_HERE, eORLIXUtilErrors::eMessageConflict, id, key, m_name, known, text);
    }
}

void LogMessageManager::removeMessages(const std::string& key)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    std::erase_if(m_texts, [&key](const auto& message) { return message.first.first == key; });
}

bool LogMessageManager::hasMessage(const std::string& key, int id) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_texts.count(MessageId(key, id)) != 0;
}

std::string LogMessageManager::getMessage(const std::string& key, int id) const
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        const auto found = m_texts.find(MessageId(key, id));
        if (found != m_texts.end()) {
            return found->second;
        }
    }
    raise<eORLIXUtilErrors>(ORLIX_HERE, eORLIXUtilErrors::eUnknownMessage, id, key, m_name);
}

} // namespace orlix
