#include "ORLIX/ORLIXBaseProcessing/ClassStatics.h"

#include "ORLIX/ORLIXCore/ProcessEnding.h"

#include <map>
#include <memory>
#include <sstream>

namespace orlix::processor {

namespace {

/// Goes with this library, but not with the process: its threads may still run when it ends.
struct Registry
{
    std::mutex mutex;
    std::map<std::string, ClassStatics>* classes = nullptr;
};

Registry& accessRegistry()
{
    constinit static Registry g_registry;
    return g_registry;
}

[[gnu::destructor]] void endClassStatics()
{
    if (!core::isProcessEnding()) {
        const std::unique_ptr<std::map<std::string, ClassStatics>> classes(accessRegistry().classes);
        accessRegistry().classes = nullptr;
    }
}

} // namespace

std::string details::makeClassKey(const std::type_info& type)
{
    const std::string name = type.name();
    if (name.find("_GLOBAL__N_") == std::string::npos) {
        return name;
    }
    std::ostringstream key;
    key << name << '@' << static_cast<const void*>(&type);
    return key.str();
}

ClassStatics& accessClassStatics(const std::type_info& type)
{
    const std::string key = details::makeClassKey(type);
    Registry& registry = accessRegistry();
    const std::lock_guard<std::mutex> lock(registry.mutex);
    if (registry.classes == nullptr) {
        registry.classes = std::make_unique<std::map<std::string, ClassStatics>>().release();
    }
    return (*registry.classes)[key];
}

} // namespace orlix::processor
