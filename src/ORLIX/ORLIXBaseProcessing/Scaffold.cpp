#include "ORLIX/ORLIXBaseProcessing/Scaffold.h"

namespace orlix::processor::details {

std::string makeTypeName(const char* nameSpace, const char* name)
{
    return std::string(nameSpace) + "::" + name;
}

ProcessorDispatchPolicy makeDispatchPolicy(const char* name)
{
    ProcessorDispatchPolicy policy;
    policy.initDefault();
    policy.initName("get" + std::string(name) + "StaticDispatchPolicy");
    return policy;
}

} // namespace orlix::processor::details
