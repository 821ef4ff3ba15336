// A processor class with a slip in its rule or its initializers, which one the command line says. It must not compile:
// the frame would run such a class without its rule, or without making its outputs.
#include "ORLIX/ORLIXBaseProcessing/Scaffold.h"

namespace orlix::processor {

struct HookLibrary
{
    static constexpr const char* g_name = "HookLibrary";
    static constexpr const char* g_namespace = "orlix::processor";
    static std::string toolTip(int) { return "A processor with hooks"; }
};

class HookProcessor final : public Scaffold<HookProcessor, BaseSyncProcessor, HookLibrary>
{
public:
    static constexpr ProcessorText g_text{"HookProcessor", 0};

#if defined(RULE_IS_PROTECTED)
protected:
    RulePtr createRule() const
    {
        return none();
    }

public:
#elif defined(RULE_IS_NOT_CONST)
    RulePtr createRule()
    {
        return none();
    }
#elif defined(RULE_IS_MISSPELT)
    RulePtr createRules() const
    {
        return none();
    }
#elif defined(RULE_GIVES_NOTHING)
    void createRule() const {}
#else
    RulePtr createRule() const
    {
        return none();
    }
#endif

#if defined(INITIALIZERS_ARE_PROTECTED)
protected:
    void initOutputInitializers(OutputInitializerMap&) const {}
#elif defined(INITIALIZERS_ARE_NOT_CONST)
    void initOutputInitializers(OutputInitializerMap&) {}
#elif defined(INITIALIZERS_ARE_MISSPELT)
    void initOutputInitialisers(OutputInitializerMap&) const {}
#else
    void initOutputInitializers(OutputInitializerMap&) const {}
#endif

protected:
    ProcessingResult<bool> mainProcess() override
    {
        return true;
    }
};

boost::shared_ptr<BaseProcessor> makeHookProcessor()
{
    return HookProcessor::createBaseProcessor();
}

} // namespace orlix::processor
