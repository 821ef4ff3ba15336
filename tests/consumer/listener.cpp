// Hears through log4cplus what the libraries log.
#include "ORLIX/ORLIXUtil/Logger/BaseLogger.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPL/ORLIXImage/ORLIXImage.h"

#include <log4cplus/appender.h>
#include <log4cplus/logger.h>
#include <log4cplus/spi/loggingevent.h>

#include <cstdio>
#include <string>

namespace {

class Listener final : public log4cplus::Appender
{
public:
    ~Listener() override { destructorImpl(); }
    void close() override { closed = true; }

    std::string m_heard;

protected:
    void append(const log4cplus::spi::InternalLoggingEvent& event) override
    {
        m_heard += event.getLoggerName() + ": " + event.getMessage() + "\n";
    }
};

} // namespace

int main()
{
    using namespace orlix;
    const log4cplus::SharedAppenderPtr listener(new Listener);
    getBaseLogger().addAppender(listener);
    std::string thrown;
    try {
        imaproc::util::copyImg(image::createImage(*image::geometry2d(image::eImageBufferType::UInt8, 5, 4)),
                               image::createImage(*image::geometry2d(image::eImageBufferType::UInt8, 5, 3)));
    } catch (const processor::ORLIXBaseProcessingException& error) {
        thrown = error.getMessage();
    }
    const std::string& heard = static_cast<Listener&>(*listener).m_heard;
    std::printf("thrown: %s\nheard: %s", thrown.c_str(), heard.c_str());
    return !thrown.empty() && heard == "ORLIX.ORLIXBaseProcessing: " + thrown + "\n" ? 0 : 1;
}
