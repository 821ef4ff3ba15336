// Makes processors by name, and knows what each is.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseProcessor.h"
#include "ORLIX/ORLIXUtil/RelativePath.h"

#include <boost/function.hpp>

#include <mutex>

namespace orlix::processor {

/// Knows the processors of every loaded library. All functions may be called from any thread.
class ORLIXBASEPROCESSING_API ProcessorFactory
{
public:
    struct ProcessorInfo
    {
        std::string objectName;
        std::string toolTip;
        std::string libraryName;
        boost::filesystem::path headerPath; ///< as it is included
        boost::function<boost::shared_ptr<BaseProcessor>()> creator;
    };

    ProcessorFactory();
    ~ProcessorFactory();
    static ProcessorFactory& getInstance();

    /// Fails if the name is taken; the first registration stays.
    ProcessingResult<bool> registerProcessor(const std::string& name, const ProcessorInfo& info);
    /// Does nothing if the name is unknown.
    void unRegisterProcessor(const std::string& name);
    /// Registers a class by its own statics.
    template <class TProcessor>
    ProcessingResult<bool> registerProcessor();

    /// All names, sorted.
    std::vector<std::string> getProcessorNames() const;
    bool isRegistered(const std::string& name) const;
    /// Both throw ORLIXBaseProcessingException if the name is unknown.
    ProcessorInfo getProcessorInfo(const std::string& name) const;
    /// A fresh processor on which `init` has not been called.
    boost::shared_ptr<BaseProcessor> createProcessor(const std::string& name) const;

    /// Cuts a header path, as the compiler spells it, to the part behind the repository's include folder.
    static boost::filesystem::path cutHeaderPath(const boost::filesystem::path& path);

private:
    mutable std::mutex m_mutex;
    std::map<std::string, ProcessorInfo> m_processors;
};

template <class TProcessor>
ProcessingResult<bool> ProcessorFactory::registerProcessor()
{
    ProcessorInfo info;
    info.objectName = TProcessor::getObjectNameStr();
    info.toolTip = TProcessor::getToolTipStr();
    info.libraryName = TProcessor::getLibraryName();
    info.headerPath = cutHeaderPath(TProcessor::g_text.header);
    info.creator = &TProcessor::createBaseProcessor;
    return registerProcessor(TProcessor::getTypeName(), info);
}

/// Registers a class for as long as it lives.
template <class TProcessor>
class ProcessorRegistrator
{
public:
    ProcessorRegistrator() : m_bRegistered(ProcessorFactory::getInstance().registerProcessor<TProcessor>().getValue())
    {}
    ~ProcessorRegistrator()
    {
        if (m_bRegistered) {
            ProcessorFactory::getInstance().unRegisterProcessor(TProcessor::getTypeName());
        }
    }
    ProcessorRegistrator(const ProcessorRegistrator&) = delete;
    ProcessorRegistrator& operator=(const ProcessorRegistrator&) = delete;

private:
    bool m_bRegistered;
};

} // namespace orlix::processor
