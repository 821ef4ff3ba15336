// What a dynamic object does unless its class says otherwise.
#include "ORLIX/ORLIXUtil/BaseDynamicObject.h"

#include "ORLIX/ORLIXUtil/ORLIXUtilException.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <functional>

namespace orlix {

class BaseOArchive
{};

class BaseIArchive
{};

namespace {

class Thing final : public BaseDynamicObject
{
public:
    const std::string& getClassName() const override
    {
        static const std::string g_name = "orlix::Thing";
        return g_name;
    }
    std::unique_ptr<BaseDynamicObject> createNew() const override { return std::make_unique<Thing>(); }
    boost::shared_ptr<BaseDynamicObject> createShared() const override { return boost::make_shared<Thing>(); }
};

TEST(BaseDynamicObject, raisesWhenAClassWithoutCopySupportIsCopied)
{
    Thing thing;
    EXPECT_FALSE(thing.hasCopySupport());
    const std::function<void()> copies[] = {[&thing] { thing.duplicate(); }, [&thing] { thing.duplicateShared(); },
                                            [&thing] { thing.copy(Thing()); }};
    for (const auto& copy : copies) {
        try {
            copy();
            FAIL();
        } catch (const ORLIXUtilException& exception) {
            EXPECT_EQ(exception.getMessage(), "Objects of class orlix::Thing can't be copied: make a new one instead");
        }
    }
}

TEST(BaseDynamicObject, hasNoStateToKeep)
{
    Thing thing;
    thing.initCtorCopy(Thing());
    BaseOArchive output;
    EXPECT_TRUE(thing.write(output));
    BaseIArchive input;
    EXPECT_TRUE(thing.read(input));
}

} // namespace
} // namespace orlix
