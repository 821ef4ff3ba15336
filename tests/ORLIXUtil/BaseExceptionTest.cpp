// What an exception tells, and how it carries its cause.
#include "ORLIX/ORLIXUtil/BaseException.h"

#include "ORLIX/ORLIXUtil/ORLIXUtilException.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <type_traits>

namespace orlix {
namespace {

TEST(BaseException, tellsMessageAndPlace)
{
    const BaseException exception("no room", "void f(int)", "f.cpp", 12);
    EXPECT_STREQ(exception.what(), "no room");
    EXPECT_EQ(exception.getMessage(), "no room");
    EXPECT_EQ(exception.getFunction(), "void f(int)");
    EXPECT_EQ(exception.getFile(), "f.cpp");
    EXPECT_EQ(exception.getLine(), 12);
    EXPECT_FALSE(exception.hasCause());
    EXPECT_EQ(exception.getCause(), "");
}

TEST(BaseException, takesThePlaceOfALine)
{
    const BaseException exception("no room", ORLIX_HERE);
    EXPECT_NE(exception.getFunction().find("takesThePlaceOfALine"), std::string::npos);
    EXPECT_EQ(exception.getFile(), __FILE__);
    EXPECT_EQ(exception.getLine(), __LINE__ - 3);
}

TEST(BaseException, carriesAStandardCause)
{
    const BaseException exception("no room", "f", "f.cpp", 12, std::runtime_error("disk full"));
    EXPECT_STREQ(exception.what(), "no room");
    EXPECT_TRUE(exception.hasCause());
    EXPECT_EQ(exception.getCause(), "disk full");
}

TEST(BaseException, listsTheCausesOfItsCause)
{
    const BaseException inner("can't write", "g", "g.cpp", 1, std::runtime_error("disk full"));
    const BaseException outer("no room", "f", "f.cpp", 2, inner);
    EXPECT_EQ(outer.getCause(), "can't write\ndisk full");
    const std::exception& hidden = inner;
    EXPECT_EQ(BaseException("no room", "f", "f.cpp", 2, hidden).getCause(), "can't write\ndisk full");
}

TEST(BaseException, knowsACauseWithoutText)
{
    const UnHandleException unknown;
    EXPECT_STREQ(unknown.what(), "");
    const BaseException exception("no room", "f", "f.cpp", 2, unknown);
    EXPECT_TRUE(exception.hasCause());
    EXPECT_EQ(exception.getCause(), "");
}

TEST(BaseException, copiesWithoutThrowing)
{
    static_assert(std::is_nothrow_copy_constructible_v<BaseException>);
    static_assert(std::is_nothrow_copy_assignable_v<BaseException>);
    BaseException copy("other", "g", "g.cpp", 1);
    {
        const BaseException exception("no room", "f", "f.cpp", 2, std::runtime_error("disk full"));
        copy = exception;
    }
    EXPECT_STREQ(copy.what(), "no room");
    EXPECT_EQ(copy.getCause(), "disk full");
}

TEST(BaseException, isCaughtByItsBases)
{
    EXPECT_THROW(throw ORLIXUtilException("no room", ORLIX_HERE), BaseException);
    EXPECT_THROW(throw UnHandleException(), std::exception);
}

} // namespace
} // namespace orlix
