// Loads and unloads the operators beside lower layers that stay: what they entered there has to go with them, also what
// threads that live on keep.
#include "Check.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorFactory.h"
#include "ORLIX/ORLIXUtil/DynamicObjectFactory.h"
#include "ORLIX/ORLIXUtil/LogMessageManager.h"

#include <algorithm>

#include <dlfcn.h>

namespace {

using orlix::test::check;

constexpr const char* g_class = "orlix::imaproc::util::CopyImgLvl1";
constexpr const char* g_catalogue = "N5orlix7imaproc4util17eProcessorMessage6domainE";

void checkEntries(bool bThere, const std::string& when)
{
    const auto& manager = orlix::LogMessageManager::getInstance("ORLIXIPLUtility");
    check(orlix::DynamicObjectFactory::getInstance().isRegistered(g_class) == bThere, "object factory " + when);
    check(orlix::processor::ProcessorFactory::getInstance().isRegistered(g_class) == bThere,
          "processor factory " + when);
    check(manager.hasMessage(g_catalogue, 22) == bThere, "message catalogue " + when);
    const auto names = orlix::processor::ProcessorFactory::getInstance().getProcessorNames();
    const auto nbUtil = std::count_if(names.begin(), names.end(),
                                      [](const std::string& name) { return name.find("orlix::imaproc::util::") == 0; });
    check((nbUtil != 0) == bThere, "names in the processor factory " + when);
}

void useOnce(const char* user, const char* operators)
{
    void* const library = ::dlopen(operators, RTLD_NOW | RTLD_LOCAL);
    void* const userLibrary = ::dlopen(user, RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr || userLibrary == nullptr) {
        check(false, ::dlerror());
        return;
    }
    checkEntries(true, "while loaded");
    const auto use = reinterpret_cast<bool (*)(unsigned long, unsigned long)>(::dlsym(userLibrary, "useOperators"));
    check(use(40, 30), "a use on the loading thread");
    check(use(3000, 2000), "a use by several threads");
    check(::dlclose(userLibrary) == 0, "closing what uses the operators");
    checkEntries(true, "while one handle is open");
    const auto places = orlix::test::findMapped("libORLIXIPLUtility");
    check(::dlclose(library) == 0, "closing the operators");
    checkEntries(false, "after unloading");
    check(!orlix::test::isMapped("libORLIXIPLUtility"), "the operators are still there after they were unloaded");
    orlix::test::block(places);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fputs("usage: unloadOperators <library that uses the operators> <their library>\n", stderr);
        return 2;
    }
    checkEntries(false, "before loading");
    for (int round = 0; round < 3; ++round) {
        useOnce(argv[1], argv[2]);
    }
    return orlix::test::g_nbFailures == 0 ? 0 : 1;
}
