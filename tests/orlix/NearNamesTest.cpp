// Names that a mistyped one may mean.
#include "NearNames.h"

#include <gtest/gtest.h>

namespace orlix::test {
namespace {

using Names = std::vector<std::string>;

TEST(NearNamesTest, FewLettersAway)
{
    const Names names = {"Convert", "Compare", "Copy"};
    EXPECT_EQ(cli::nearNames("Conpare", names), Names{"Compare"});
    EXPECT_EQ(cli::nearNames("cpy", names), Names{"Copy"});
    EXPECT_EQ(cli::nearNames("Copyy", names), Names{"Copy"});
    EXPECT_EQ(cli::nearNames("CONVERT", names), Names{"Convert"});
    EXPECT_EQ(cli::nearNames("comapre", names), Names{"Compare"});
    EXPECT_EQ(cli::nearNames("ocpy", names), Names{"Copy"});
    EXPECT_EQ(cli::nearNames("ocyp", names), Names());
    EXPECT_EQ(cli::nearNames("Cnvrt", names), Names());
}

TEST(NearNamesTest, PartOfTheNameTheNearestFirst)
{
    EXPECT_EQ(cli::nearNames("erase", {"EraseImageLvl1", "Other", "EraseImg"}), (Names{"EraseImg", "EraseImageLvl1"}));
    EXPECT_EQ(cli::nearNames("x", {"Exchange"}), Names());
}

TEST(NearNamesTest, AtMostFive)
{
    EXPECT_EQ(cli::nearNames("aa", {"aa1", "aa2", "aa3", "aa4", "aa5", "aa6"}),
              (Names{"aa1", "aa2", "aa3", "aa4", "aa5"}));
    EXPECT_EQ(cli::nearNames("", {"a", "bcd"}), Names{"a"});
    EXPECT_EQ(cli::nearNames("a", {}), Names());
}

TEST(NearNamesTest, Hint)
{
    EXPECT_EQ(cli::nearHint("cop", {"copy", "erase"}), "; near it is copy");
    EXPECT_EQ(cli::nearHint("cop", {"copy", "coop", "erase"}), "; near it are copy, coop");
    EXPECT_EQ(cli::nearHint("cop", {"erase"}), "");
}

TEST(NearNamesTest, JoinedByCommas)
{
    EXPECT_EQ(cli::joinNames({"a", "b"}), "a, b");
    EXPECT_EQ(cli::joinNames({}), "");
}

} // namespace
} // namespace orlix::test
