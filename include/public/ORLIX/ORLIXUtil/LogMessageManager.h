// Texts of one library's message catalogues.
#pragma once

#include "ORLIX/ORLIXUtil/Export.h"

#include <map>
#include <mutex>
#include <string>
#include <utility>

namespace orlix {

/// Holds texts under (catalogue key, id). A catalogue's key is `typeid(TEnum::domain).name()`. All functions may be
/// called from any thread at any time, also from static initialisers.
class ORLIXUTIL_API LogMessageManager
{
public:
    explicit LogMessageManager(std::string name);
    LogMessageManager(const LogMessageManager&) = delete;
    LogMessageManager& operator=(const LogMessageManager&) = delete;
    ~LogMessageManager();

    /// The manager of that name, made on first use; lives as long as the process.
    static LogMessageManager& getInstance(const std::string& name);

    const std::string& getName() const { return m_name; }

    /// Adding the same text again changes nothing; another text under a known (key, id) raises ORLIXUtilException.
    void addMessage(const std::string& key, int id, const std::string& text);
    /// Forgets the texts of a catalogue; does nothing if the key is unknown.
    void removeMessages(const std::string& key);
    bool hasMessage(const std::string& key, int id) const;
    /// A copy of the unformatted text; raises ORLIXUtilException if there is none.
    std::string getMessage(const std::string& key, int id) const;

private:
    using MessageId = std::pair<std::string, int>;

    const std::string m_name;
    mutable std::mutex m_mutex;
    std::map<MessageId, std::string> m_texts;
};

} // namespace orlix
