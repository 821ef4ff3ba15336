// A library of the tests' own: its tool tips, its attributes.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseAttribute.h"
#include "ORLIX/ORLIXBaseProcessing/BaseValueAttributes.h"
#include "ORLIX/ORLIXBaseProcessing/DataItemAttributes.h"
#include "ORLIX/ORLIXBaseProcessing/Scaffold.h"
#include "ORLIX/ORLIXUtil/BaseException.h"
#include "ORLIX/ORLIXUtil/Logger/LibraryLog.h"
#include "ORLIX/ORLIXUtil/MessageCatalogue.h"

#include <vector>

namespace orlix::processor::test {

struct eTestToolTip
{
    enum domain { eRecorder = 0, eLower = 1, eAlgorithm = 2 };
    ORLIX_ENUMERATION(eTestToolTip, eRecorder);
};

struct TestLibrary
{
    static constexpr const char* g_name = "TestLibrary";
    static constexpr const char* g_namespace = "orlix::processor::test";
    static std::string toolTip(eTestToolTip::domain id) { return formatMessage<eTestToolTip>(id); }
};

/// Mandatory value.
class InNumber final : public NamedAttribute<InNumber, BaseValueAttribute<double>>
{
public:
    static constexpr const char* g_name = "InNumber";
    static constexpr const char* g_toolTip = "A number";
};

/// Optional value with a default.
class InOptNumber final : public NamedAttribute<InOptNumber, BaseValueAttribute<double>>
{
public:
    static constexpr const char* g_name = "InOptNumber";
    static constexpr const char* g_toolTip = "A number that may be left out";
    InOptNumber() : NamedAttribute(5) {}
    bool isOptional() const override { return true; }
};

using Numbers = std::vector<double>;

class InNumbers final : public NamedAttribute<InNumbers, BaseInputMandatoryDataItemAttribute<Numbers>>
{
public:
    static constexpr const char* g_name = "InNumbers";
    static constexpr const char* g_toolTip = "Numbers that come in";
};

class OutNumbers final : public NamedAttribute<OutNumbers, BaseOutputDataItemAttribute<Numbers>>
{
public:
    static constexpr const char* g_name = "OutNumbers";
    static constexpr const char* g_toolTip = "Numbers that come out";
};

} // namespace orlix::processor::test

namespace orlix {

template <>
struct MessageCatalogue<processor::test::eTestToolTip>
{
    using Exception = BaseException;
    static LibraryLog& log()
    {
        static LibraryLog g_log("TestLibrary");
        return g_log;
    }
    static const std::vector<MessageText>& texts()
    {
        using Message = processor::test::eTestToolTip;
        static const std::vector<MessageText> g_texts = {{Message::eRecorder, "Writes down what is asked of it"},
                                                         {Message::eLower, "One element"},
                                                         {Message::eAlgorithm, "Runs a kernel"}};
        return g_texts;
    }
};

} // namespace orlix
