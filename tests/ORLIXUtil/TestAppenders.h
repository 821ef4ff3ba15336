// Log4cplus appenders that show what was logged, or fail.
#pragma once

#include <log4cplus/appender.h>
#include <log4cplus/logger.h>
#include <log4cplus/spi/loggingevent.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace orlix::test {

struct LoggedEvent
{
    std::string logger;
    int level;
    std::string message;
    std::string file;
    int line;
};

class RecordingAppender final : public log4cplus::Appender
{
public:
    ~RecordingAppender() override { destructorImpl(); }
    void close() override { closed = true; }

    std::vector<LoggedEvent> m_events;

protected:
    void append(const log4cplus::spi::InternalLoggingEvent& event) override
    {
        m_events.push_back(
            {event.getLoggerName(), event.getLogLevel(), event.getMessage(), event.getFile(), event.getLine()});
    }
};

class FailingAppender final : public log4cplus::Appender
{
public:
    explicit FailingAppender(std::function<void()> fail) : m_fail(std::move(fail)) {}
    ~FailingAppender() override { destructorImpl(); }
    void close() override { closed = true; }

protected:
    void append(const log4cplus::spi::InternalLoggingEvent&) override { m_fail(); }

private:
    std::function<void()> m_fail;
};

/// Attaches an appender for as long as it lives.
template <class TAppender>
class AttachedAppender
{
public:
    template <class... TArgs>
    explicit AttachedAppender(log4cplus::Logger logger, TArgs&&... args)
        : m_logger(std::move(logger)), m_appender(new TAppender(std::forward<TArgs>(args)...))
    {
        m_logger.addAppender(m_appender);
    }
    AttachedAppender(const AttachedAppender&) = delete;
    AttachedAppender& operator=(const AttachedAppender&) = delete;
    ~AttachedAppender() { m_logger.removeAppender(m_appender); }

    TAppender& get() { return static_cast<TAppender&>(*m_appender); }

private:
    log4cplus::Logger m_logger;
    log4cplus::SharedAppenderPtr m_appender;
};

} // namespace orlix::test
