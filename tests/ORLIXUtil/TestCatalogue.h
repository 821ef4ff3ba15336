// A message catalogue of the tests' own, with a logger and a manager that no library uses.
#pragma once

#include "ORLIX/ORLIXUtil/BaseException.h"
#include "ORLIX/ORLIXUtil/Enumeration.h"
#include "ORLIX/ORLIXUtil/LogMessageManager.h"
#include "ORLIX/ORLIXUtil/Logger/LibraryLog.h"
#include "ORLIX/ORLIXUtil/MessageCatalogue.h"

namespace orlix::test {

class TestException : public BaseException
{
public:
    using BaseException::BaseException;
};

struct eTestMessage
{
    enum domain { ePlain = 0, eSizes = 7, eHandedOn = 8, eUnknown = 99 };
    ORLIX_ENUMERATION(eTestMessage, ePlain);
};

inline int g_nbTextsAsked = 0;

} // namespace orlix::test

namespace orlix {

template <>
struct MessageCatalogue<test::eTestMessage>
{
    using Exception = test::TestException;
    static LibraryLog& log()
    {
        static LibraryLog g_log("UtilTests");
        return g_log;
    }
    static const std::vector<MessageText>& texts()
    {
        static const std::vector<MessageText> g_texts = {{test::eTestMessage::ePlain, "Nothing to add"},
                                                         {test::eTestMessage::eSizes, "%s is %d wide and %f high"},
                                                         {test::eTestMessage::eHandedOn, "%s"}};
        ++test::g_nbTextsAsked;
        return g_texts;
    }
};

} // namespace orlix
