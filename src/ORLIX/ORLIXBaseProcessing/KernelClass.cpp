#include "ORLIX/ORLIXBaseProcessing/KernelClass.h"

#include <map>
#include <mutex>

namespace orlix::processor {

KernelClass& accessKernelClass(const std::string& typeName)
{
    static std::mutex g_mutex;
    static std::map<std::string, KernelClass> g_classes;
    const std::lock_guard<std::mutex> lock(g_mutex);
    return g_classes[typeName];
}

} // namespace orlix::processor
