#include "ORLIX/ORLIXBaseProcessing/Scaffold.h"

namespace orlix::processor::details {

std::string makeTypeName(const char* nameSpace, const char* name)
{
    return std::string(nameSpace) + "::" + name;
}

ProcessorDispatchPolicy makeDispatchPolicy(const char* name, unsigned weight)
{
    ProcessorDispatchPolicy policy;
    policy.initDefault();
    policy.initWeight(weight);
    policy.initName("get" + std::string(name) + "StaticDispatchPolicy");
    return policy;
}

} // namespace orlix::processor::details
