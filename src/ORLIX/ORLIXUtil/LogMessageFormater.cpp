// Builds the text of one catalogue message from its arguments.
#include "ORLIX/ORLIXUtil/LogMessageFormater.h"

#include "ORLIX/ORLIXUtil/LogMessageManager.h"
#include "ORLIX/ORLIXUtil/Logger/ORLIXUtilLogMessages.h"
#include "ORLIX/ORLIXUtil/NumberText.h"
#include "ORLIX/ORLIXUtil/Raise.h"

#include <boost/format.hpp>

#include <locale>
#include <sstream>

namespace orlix {

namespace {

/// What the format library is given in place of an argument: itself, but for a floating number, of which its streams
/// would print six digits where the directive asks for no form.
template <class T>
const T& printable(const T& value)
{
    return value;
}

template <std::floating_point T>
struct Floating
{
    T value;

    friend std::ostream& operator<<(std::ostream& stream, const Floating& number)
    {
        const bool bForm = (stream.flags() & std::ios_base::floatfield) != 0;
        return bForm ? stream << number.value : stream << numberText(number.value);
    }
};

template <std::floating_point T>
Floating<T> printable(const T& value)
{
    return {value};
}

} // namespace

LogMessageFormater::LogMessageFormater(const LogMessageManager& manager) : m_manager(manager) {}

LogMessageFormater::~LogMessageFormater() = default;

void LogMessageFormater::setMsgId(const std::string& key, int id)
{
    m_key = key;
    m_id = id;
    m_arguments.clear();
}

void LogMessageFormater::appendStreamed(const void* value, void (*print)(std::ostream&, const void*))
{
    std::ostringstream stream;
    stream.imbue(std::locale::classic());
    print(stream, value);
    m_arguments.emplace_back(stream.str());
}

std::string LogMessageFormater::string() const
{
    const std::string text = m_manager.getMessage(m_key, m_id);
    std::string reason;
    try {
        boost::format format(text, std::locale::classic());
        for (const Argument& argument : m_arguments) {
            std::visit([&format](const auto& value) { format % printable(value); }, argument);
        }
        return format.str();
    } catch (const boost::io::format_error& error) {
        reason = error.what();
    }
    raise<eORLIXUtilErrors>(ORLIX_HERE, eORLIXUtilErrors::eWrongArguments, m_id, m_key, text, m_arguments.size(),
                            reason);
}

} // namespace orlix
