#include "ORLIX/ORLIXBaseProcessing/Scaffold.h"

namespace orlix::processor::details {

std::string makeTypeName(const char* nameSpace, const char* name)
{
    return std::string(nameSpace) + "::" + name;
}

} // namespace orlix::processor::details
