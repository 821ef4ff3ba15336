// Everything that processor classes have in common, written once: names, version, dispatch policy, creation, archives,
// attribute storage, `set` and `getStorage`.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/AttributeValues.h"
#include "ORLIX/ORLIXBaseProcessing/BaseProcessor.h"
#include "ORLIX/ORLIXBaseProcessing/ClassStatics.h"
#include "ORLIX/ORLIXBaseProcessing/DispatchWeight.h"
#include "ORLIX/ORLIXBaseProcessing/ProcessorText.h"
#include "ORLIX/ORLIXSerialization/ClassVersion.h"
#include "ORLIX/ORLIXUtil/DynamicRegistrator.h"

#include <boost/make_shared.hpp>

#include <concepts>
#include <mutex>
#include <tuple>

namespace orlix::processor {

namespace details {

/// A static of a class, made on first use and read under the mutex that guards it.
template <class TValue, class TMake>
const TValue& guardedStatic(std::mutex& mutex, std::optional<TValue>& value, TMake&& make)
{
    const std::lock_guard<std::mutex> lock(mutex);
    if (!value) {
        value = make();
    }
    return *value;
}

/// "<nameSpace>::<name>".
ORLIXBASEPROCESSING_API std::string makeTypeName(const char* nameSpace, const char* name);
/// The default policy as that of class `name`, "get<name>StaticDispatchPolicy", with the weight of that class.
ORLIXBASEPROCESSING_API ProcessorDispatchPolicy makeDispatchPolicy(const char* name, unsigned weight);

// Asked from outside the class, so that a protected function counts as none.
template <class TProcessor>
concept StatesRule = requires(const TProcessor& processor)
{
    {
        processor.createRule()
        } -> std::same_as<RulePtr>;
};
template <class TProcessor>
concept StatesOutputInitializers = requires(const TProcessor& processor, OutputInitializerMap& initializers)
{
    processor.initOutputInitializers(initializers);
};

} // namespace details

/// `TDerived` says `static constexpr ProcessorText g_text{<name>, <tool tip in the library's catalogue>}` and, both
/// public, `RulePtr createRule() const`, which gives `none()` where there is no rule, and
/// `void initOutputInitializers(OutputInitializerMap&) const`, which does nothing where all outputs are given. `TBase`
/// is the kind of processor. `TLibrary` says `g_name`, `g_namespace` and `toolTip(id)`. `TAttributes` are the attribute
/// classes in order of creation.
template <class TDerived, class TBase, class TLibrary, class... TAttributes>
class Scaffold : public TBase
{
public:
    using Attributes = OwnAttributes<TAttributes...>;

    static const std::string& getTypeName()
    {
        return details::guardedStatic(TypeNameMutex(), accessStatics().typeName, [] {
            return details::makeTypeName(TLibrary::g_namespace, TDerived::g_text.name);
        });
    }
    /// Shares the mutex of the tool tip.
    static const std::string& getObjectNameStr()
    {
        return details::guardedStatic(ToolTipMutex(), accessStatics().objectName,
                                      [] { return std::string(TDerived::g_text.name); });
    }
    static const std::string& getToolTipStr()
    {
        return details::guardedStatic(ToolTipMutex(), accessStatics().toolTip,
                                      [] { return TLibrary::toolTip(TDerived::g_text.toolTip); });
    }
    static unsigned int getVersion()
    {
        return details::guardedStatic(VersionMutex(), accessStatics().version, [] { return 1U; });
    }
    /// Valid until the process ends; copy it at once.
    static const ProcessorDispatchPolicy& getDefaultDispatchPolicy()
    {
        return details::guardedStatic(DispatchPolicyMutex(), accessStatics().dispatchPolicy, [] {
            return details::makeDispatchPolicy(TDerived::g_text.name, dispatchWeightOf<TDerived>());
        });
    }
    static const char* getLibraryName() { return TLibrary::g_name; }

    static std::unique_ptr<BaseDynamicObject> createNewObject() { return std::make_unique<TDerived>(); }
    static boost::shared_ptr<BaseDynamicObject> createSharedObject() { return boost::make_shared<TDerived>(); }
    static boost::shared_ptr<TDerived> createProcessor() { return boost::make_shared<TDerived>(); }
    static boost::shared_ptr<BaseProcessor> createBaseProcessor() { return boost::make_shared<TDerived>(); }

    /// The mutexes of the class's statics exist from load on.
    static void createMutexes() { accessStatics(); }

    const std::string& getClassName() const override { return getTypeName(); }
    std::unique_ptr<BaseDynamicObject> createNew() const override { return createNewObject(); }
    boost::shared_ptr<BaseDynamicObject> createShared() const override { return createSharedObject(); }
    const std::string& getObjectName() const override { return getObjectNameStr(); }
    const std::string& getToolTip() const override { return getToolTipStr(); }

    /// The base's part, then the version of the class, once an archive.
    ProcessingResult<bool> write(BaseOArchive& archive) const override
    {
        ProcessingResult<bool> result = TBase::write(archive);
        return result ? writeClassVersion(archive, getTypeName(), getVersion()) : result;
    }
    /// Throws ORLIXSerializationException for a version newer than `getVersion`.
    ProcessingResult<bool> read(BaseIArchive& archive) override
    {
        ProcessingResult<bool> result = TBase::read(archive);
        return result ? readClassVersion(archive, getTypeName(), getVersion()) : result;
    }

    /// Gives an attribute its value. Throws where `init` has not been called.
    template <class TAttribute>
    void set(const typename TAttribute::StorageType& value)
    {
        this->checkInitialised();
        accessAttribute<TAttribute>()->init(value);
    }
    template <class TAttribute>
    void set(typename TAttribute::StorageType&& value)
    {
        this->checkInitialised();
        accessAttribute<TAttribute>()->init(std::move(value));
    }
    /// What an output attribute holds. Throws where `init` has not been called.
    template <class TAttribute>
    requires(TAttribute::g_bOutput) typename TAttribute::StorageType getStorage() const
    {
        this->checkInitialised();
        return accessAttribute<TAttribute>()->getStorage();
    }

protected:
    static ClassStatics& accessStatics()
    {
        static ClassStatics& g_statics = accessClassStatics(typeid(TDerived));
        return g_statics;
    }

    /// Null until `init`.
    template <class TAttribute>
    const boost::shared_ptr<TAttribute>& accessAttribute() const
    {
        return std::get<boost::shared_ptr<TAttribute>>(m_ownAttributes);
    }
    const Attributes& accessOwnAttributes() const { return m_ownAttributes; }

    ProcessingResult<bool> initDerived(AttributeVector& attributes, OutputInitializerMap& outputInitializers,
                                       ProcessorDispatchPolicy& dispatchPolicy, RulePtr& rule,
                                       const eProcessorRulePolicy& rulePolicy) override
    {
        static_assert(details::StatesRule<TDerived>,
                      "a processor class states its rule: public RulePtr createRule() const, which may give none()");
        initAttributeColl(attributes, outputInitializers);
        dispatchPolicy = TDerived::getDefaultDispatchPolicy();
        rule.reset();
        if (rulePolicy != eProcessorRulePolicy::eRulePolicySkip) {
            rule = static_cast<const TDerived&>(*this).createRule();
        }
        return true;
    }

private:
    void initAttributeColl(AttributeVector& attributes, OutputInitializerMap& outputInitializers)
    {
        static_assert(details::StatesOutputInitializers<TDerived>,
                      "a processor class states the initializers of its outputs: public void "
                      "initOutputInitializers(OutputInitializerMap&) const, which may do nothing");
        attributes.clear();
        attributes.reserve(sizeof...(TAttributes));
        (attributes.push_back(std::get<boost::shared_ptr<TAttributes>>(m_ownAttributes) =
                                  boost::make_shared<TAttributes>()),
         ...);
        outputInitializers.clear();
        static_cast<const TDerived&>(*this).initOutputInitializers(outputInitializers);
    }

    static std::mutex& TypeNameMutex() { return accessStatics().typeNameMutex; }
    static std::mutex& ToolTipMutex() { return accessStatics().toolTipMutex; }
    static std::mutex& VersionMutex() { return accessStatics().versionMutex; }
    static std::mutex& DispatchPolicyMutex() { return accessStatics().dispatchPolicyMutex; }

    Attributes m_ownAttributes;
};

} // namespace orlix::processor
