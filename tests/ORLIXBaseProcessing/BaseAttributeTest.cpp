// Attributes: names, set or not, null or not, defaults, and the references that rules hold.
#include "ORLIX/ORLIXBaseProcessing/BaseAttribute.h"

#include "ORLIXBaseProcessing/TestLibrary.h"

#include <gtest/gtest.h>

namespace orlix::processor::test {
namespace {

class InKind final : public NamedAttribute<InKind, IPEnumAttribute<eAttributeType>>
{
public:
    static constexpr const char* g_name = "InKind";
    static constexpr const char* g_toolTip = "A kind of attribute";
    InKind() : NamedAttribute(eAttributeType::eDataItemAttribute) {}
};

TEST(ValueAttribute, HoldsItsDefaultUntilItIsSet)
{
    InOptNumber attribute;
    EXPECT_FALSE(attribute.isSet());
    EXPECT_TRUE(attribute.isOptional());
    EXPECT_EQ(attribute.getValue(), 5);
    attribute.init(7);
    EXPECT_TRUE(attribute.isSet());
    EXPECT_FALSE(attribute.isNull());
    EXPECT_EQ(attribute.accessValue(), 7);
    attribute.clear();
    EXPECT_FALSE(attribute.isSet());
    EXPECT_EQ(attribute.getValue(), 5);
}

TEST(ValueAttribute, IsAMandatoryInputUnlessItsClassSaysOtherwise)
{
    const InNumber attribute;
    EXPECT_FALSE(attribute.isOptional());
    EXPECT_FALSE(attribute.isOutput());
    EXPECT_FALSE(InNumber::g_bOutput);
    EXPECT_EQ(attribute.getAttributeType(), eAttributeType::eValueAttribute);
    EXPECT_EQ(attribute.getValue(), 0);
    EXPECT_EQ(attribute.getObjectName(), "InNumber");
    EXPECT_EQ(attribute.getToolTip(), "A number");
    EXPECT_EQ(InNumber::getObjectNameStr(), "InNumber");
    EXPECT_EQ(InNumber::getToolTipStr(), "A number");
}

TEST(EnumAttribute, HoldsAnEnumerationOfTheFamily)
{
    InKind attribute;
    EXPECT_EQ(attribute.getValue(), eAttributeType::eDataItemAttribute);
    attribute.init(eAttributeType::eImageProcessingAttribute);
    EXPECT_EQ(attribute.getValue(), eAttributeType::eImageProcessingAttribute);
}

template <class TAttribute>
void expectPointerBehaviour(bool bOutput)
{
    TAttribute attribute;
    EXPECT_EQ(attribute.isOutput(), bOutput);
    EXPECT_EQ(TAttribute::g_bOutput, bOutput);
    EXPECT_EQ(attribute.getAttributeType(), eAttributeType::eDataItemAttribute);
    EXPECT_FALSE(attribute.isSet());
    EXPECT_FALSE(attribute.isNull());
    EXPECT_FALSE(attribute.getStorage());

    attribute.init(typename TAttribute::StorageType());
    EXPECT_TRUE(attribute.isSet());
    EXPECT_TRUE(attribute.isNull());

    const auto numbers = boost::make_shared<Numbers>(3, 1.5);
    attribute.init(numbers);
    EXPECT_TRUE(attribute.isSet());
    EXPECT_FALSE(attribute.isNull());
    EXPECT_EQ(attribute.getStorage(), numbers);
    EXPECT_EQ(&attribute.getDataItemNode(), numbers.get());
    EXPECT_EQ(numbers.use_count(), 2);

    attribute.clear();
    EXPECT_FALSE(attribute.isSet());
    EXPECT_FALSE(attribute.isNull());
    EXPECT_EQ(numbers.use_count(), 1);
}

TEST(DataItemAttribute, TellsUnsetFromNull)
{
    expectPointerBehaviour<InNumbers>(false);
    expectPointerBehaviour<OutNumbers>(true);
}

TEST(AttributeRef, NeitherKeepsAliveNorDangles)
{
    EXPECT_EQ(AttributeRef<const BaseAttribute>().access(), nullptr);
    auto attribute = boost::make_shared<InNumber>();
    const AttributeRef<const BaseAttribute> fromShared(attribute);
    const AttributeRef<const BaseAttribute> fromWeak{boost::weak_ptr<InNumber>(attribute)};
    EXPECT_EQ(fromShared.access(), attribute.get());
    EXPECT_EQ(fromWeak.access(), attribute.get());
    EXPECT_EQ(attribute.use_count(), 1);
    attribute.reset();
    EXPECT_EQ(fromShared.access(), nullptr);
    EXPECT_EQ(fromWeak.access(), nullptr);
    EXPECT_EQ((AttributeRef<const BaseAttribute>(boost::weak_ptr<InNumber>()).access()), nullptr);
}

} // namespace
} // namespace orlix::processor::test
