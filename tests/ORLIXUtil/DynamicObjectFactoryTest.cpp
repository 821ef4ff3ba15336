// Objects by class name, and the registration of classes.
#include "ORLIX/ORLIXUtil/DynamicObjectFactory.h"

#include "ORLIX/ORLIXUtil/DynamicRegistrator.h"
#include "ORLIX/ORLIXUtil/ORLIXUtilException.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <algorithm>
#include <thread>

namespace orlix {
namespace {

class Thing : public BaseDynamicObject
{
public:
    static const std::string& getTypeName()
    {
        static const std::string g_name = "orlix::Thing";
        return g_name;
    }
    static std::unique_ptr<BaseDynamicObject> createNewObject() { return std::make_unique<Thing>(); }
    static boost::shared_ptr<BaseDynamicObject> createSharedObject() { return boost::make_shared<Thing>(); }

    const std::string& getClassName() const override { return getTypeName(); }
    std::unique_ptr<BaseDynamicObject> createNew() const override { return createNewObject(); }
    boost::shared_ptr<BaseDynamicObject> createShared() const override { return createSharedObject(); }
};

TEST(DynamicObjectFactory, makesRegisteredClasses)
{
    DynamicObjectFactory factory;
    ASSERT_TRUE(factory.registerClass("orlix::Thing", &Thing::createNewObject, &Thing::createSharedObject));
    EXPECT_TRUE(factory.isRegistered("orlix::Thing"));
    EXPECT_EQ(factory.createNew("orlix::Thing")->getClassName(), "orlix::Thing");
    const auto first = factory.createShared("orlix::Thing");
    EXPECT_EQ(first->getClassName(), "orlix::Thing");
    EXPECT_NE(first, factory.createShared("orlix::Thing"));
}

TEST(DynamicObjectFactory, raisesForAnUnknownClass)
{
    const DynamicObjectFactory factory;
    EXPECT_THROW(factory.createNew("orlix::Thing"), ORLIXUtilException);
    try {
        factory.createShared("orlix::Thnig");
        FAIL();
    } catch (const ORLIXUtilException& exception) {
        EXPECT_EQ(exception.getMessage(), "Class orlix::Thnig is unknown to the object factory: check the name and "
                                          "load the library that the class is in");
    }
}

TEST(DynamicObjectFactory, refusesASecondClassOfTheSameName)
{
    DynamicObjectFactory factory;
    ASSERT_TRUE(factory.registerClass("orlix::Thing", &Thing::createNewObject, &Thing::createSharedObject));
    const auto second = factory.registerClass("orlix::Thing", &Thing::createNewObject, &Thing::createSharedObject);
    EXPECT_FALSE(second);
    EXPECT_EQ(second.getMessage(),
              "Class orlix::Thing is registered with the object factory already: give each class a name of its own");
}

TEST(DynamicObjectFactory, forgetsClasses)
{
    DynamicObjectFactory factory;
    ASSERT_TRUE(factory.registerClass("orlix::Thing", &Thing::createNewObject, &Thing::createSharedObject));
    factory.unRegisterClass("orlix::Thing");
    EXPECT_FALSE(factory.isRegistered("orlix::Thing"));
    factory.unRegisterClass("orlix::Thing");
    EXPECT_TRUE(factory.registerClass("orlix::Thing", &Thing::createNewObject, &Thing::createSharedObject));
}

TEST(DynamicObjectFactory, listsNamesInOrder)
{
    DynamicObjectFactory factory;
    for (const char* name : {"b", "c", "a"}) {
        ASSERT_TRUE(factory.registerClass(name, &Thing::createNewObject, &Thing::createSharedObject));
    }
    EXPECT_EQ(factory.getClassNames(), (std::vector<std::string>{"a", "b", "c"}));
}

TEST(DynamicObjectFactory, servesManyThreads)
{
    DynamicObjectFactory factory;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&factory, name = "class" + std::to_string(i)] {
            for (int round = 0; round < 100; ++round) {
                EXPECT_TRUE(factory.registerClass(name, &Thing::createNewObject, &Thing::createSharedObject));
                EXPECT_NE(factory.createShared(name), nullptr);
                factory.unRegisterClass(name);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_TRUE(factory.getClassNames().empty());
}

TEST(DynamicRegistrator, registersForAsLongAsItLives)
{
    DynamicObjectFactory& factory = DynamicObjectFactory::getInstance();
    {
        const DynamicRegistrator<Thing> registrator;
        EXPECT_TRUE(registrator.isRegistered());
        EXPECT_EQ(factory.createShared("orlix::Thing")->getClassName(), "orlix::Thing");
    }
    EXPECT_FALSE(factory.isRegistered("orlix::Thing"));
}

TEST(DynamicRegistrator, leavesTheFirstRegistrationAlone)
{
    DynamicObjectFactory& factory = DynamicObjectFactory::getInstance();
    const DynamicRegistrator<Thing> first;
    {
        const DynamicRegistrator<Thing> second;
        EXPECT_FALSE(second.isRegistered());
    }
    EXPECT_TRUE(factory.isRegistered("orlix::Thing"));
}

} // namespace
} // namespace orlix
