// The data items of every processor, set and had without knowing their classes.
#include "ORLIX/ORLIXBaseProcessing/DataItemAttributes.h"
#include "ORLIX/ORLIXUtil/BaseException.h"
#include "ORLIXIPL/ORLIXIPLAttributes/ORLIXIPLAttributes.h"
#include "ORLIXIPLUtility/RegisteredProcessors.h"
#include "support/Images.h"

#include <boost/make_shared.hpp>

namespace orlix::imaproc::util {
namespace {

using processor::BaseAttribute;
using ItemPtr = boost::shared_ptr<BaseDataItem>;

/// One of every class that an attribute of this library holds.
std::vector<ItemPtr> makeItems()
{
    return {boost::make_shared<attr::ImgComparisonTolerance>(),
            boost::make_shared<attr::CompareResult>(),
            boost::make_shared<attr::Coords2dColl>(),
            boost::make_shared<attr::Coords3dColl>(),
            boost::make_shared<attr::PlanIndexedCoords2dColl>(),
            boost::make_shared<attr::PlanIndexedCoords3dColl>(),
            boost::make_shared<attr::ImageValueExtractionMethod>(),
            boost::make_shared<attr::Doubles>(),
            boost::make_shared<attr::PlanIndexedDoubles>(),
            boost::make_shared<attr::Pixels2d>(),
            boost::make_shared<attr::Voxels3d>(),
            boost::make_shared<attr::Range>(),
            boost::make_shared<attr::GaussianParameter>(),
            boost::make_shared<attr::Img2dOffset>(),
            boost::make_shared<attr::Img3dOffset>(),
            boost::make_shared<attr::Img2dSize>(),
            boost::make_shared<attr::Img3dSize>()};
}

/// As what the attribute is.
ProcessingResult<bool> setItem(BaseAttribute& attribute, const ItemPtr& item)
{
    return attribute.isOutput() ? attribute.setOutputItem(item) : attribute.setInputItem(item);
}
ProcessingResult<bool> setItemTheOtherWay(BaseAttribute& attribute, const ItemPtr& item)
{
    return attribute.isOutput() ? attribute.setInputItem(item) : attribute.setOutputItem(item);
}

bool contains(const std::string& text, const std::string& part)
{
    return text.find(part) != std::string::npos;
}

TEST_P(RegisteredProcessorTest, itemsAreTakenByTheAttributesOfTheirClassAlone)
{
    const auto processor = makeInitialised();
    for (const auto& attribute : processor->getAttributeColl()) {
        SCOPED_TRACE(attribute->getObjectName());
        const bool bItems = attribute->getAttributeType() == processor::eAttributeType::eDataItemAttribute;
        EXPECT_EQ(attribute->getItem(), nullptr);
        ItemPtr taken;
        std::vector<std::string> refusals;
        for (const ItemPtr& item : makeItems()) {
            const boost::shared_ptr<const BaseDataItem> before = attribute->getItem();
            const ProcessingResult<bool> result = setItem(*attribute, item);
            if (result) {
                EXPECT_EQ(taken, nullptr) << "of two classes";
                taken = item;
                EXPECT_EQ(attribute->getItem(), item);
                EXPECT_TRUE(attribute->isHeld());
            } else {
                EXPECT_EQ(attribute->getItem(), before);
                EXPECT_EQ(attribute->isSet(), before != nullptr);
                EXPECT_TRUE(contains(result.getMessage(), attribute->getObjectName())) << result.getMessage();
                EXPECT_TRUE(!bItems || contains(result.getMessage(), item->getClassName())) << result.getMessage();
                EXPECT_FALSE(result.getMessage().getNumber().empty());
                refusals.push_back(result.getMessage());
            }
        }
        EXPECT_EQ(taken != nullptr, bItems);
        for (const std::string& text : refusals) {
            EXPECT_TRUE(taken == nullptr || contains(text, "of class " + taken->getClassName() + ", the item")) << text;
        }
    }
}

TEST_P(RegisteredProcessorTest, nullItemsAreNullPointers)
{
    const auto processor = makeInitialised();
    for (const auto& attribute : processor->getAttributeColl()) {
        if (setItem(*attribute, nullptr)) {
            EXPECT_TRUE(attribute->isSet() && attribute->isNull()) << attribute->getObjectName();
            EXPECT_EQ(attribute->getItem(), nullptr);
        } else {
            EXPECT_FALSE(attribute->isSet());
        }
        EXPECT_FALSE(setItemTheOtherWay(*attribute, nullptr));
    }
}

TEST_P(RegisteredProcessorTest, inputsAreNotGivenAsOutputsNorOutputsAsInputs)
{
    const auto processor = makeInitialised();
    for (const auto& attribute : processor->getAttributeColl()) {
        for (const ItemPtr& item : makeItems()) {
            const ProcessingResult<bool> result = setItemTheOtherWay(*attribute, item);
            EXPECT_FALSE(result);
            EXPECT_FALSE(attribute->isSet());
            EXPECT_TRUE(contains(result.getMessage(), attribute->getObjectName())) << result.getMessage();
            if (attribute->getAttributeType() == processor::eAttributeType::eDataItemAttribute) {
                EXPECT_TRUE(contains(result.getMessage(), attribute->isOutput() ? "setOutputItem" : "setInputItem"));
            }
        }
    }
}

/// All that is known of the processor is its name.
TEST(ProcessorItems, leadThroughARun)
{
    const auto compare =
        processor::ProcessorFactory::getInstance().createProcessor("orlix::imaproc::util::CompareImgLvl1");
    ASSERT_TRUE(compare->init(processor::eProcessorRulePolicy::eRulePolicyCheck));
    const ImagePtr image = testing::makeRandom(*image::geometry2d(image::eImageBufferType::UInt8, 9, 7));
    const ImagePtr near = testing::plainCopy(*image);
    auto& pixel = reinterpret_cast<unsigned char&>(*near->accessRow(3, 0, 0, 0));
    pixel = pixel < 100 ? pixel + 2 : pixel - 2;
    for (const auto& [name, value] : {std::pair("InImg1", image), std::pair("InImg2", near)}) {
        dynamic_cast<BaseInputImageAttribute&>(compare->getAttribute(name)).init(value);
    }
    BaseAttribute& tolerance = compare->getAttribute("InOptImgComparisonTolerance");
    BaseAttribute& output = compare->getAttribute("OutCompareResult");
    for (const double allowed : {1.0, 2.0}) {
        const ItemPtr given = boost::make_shared<attr::CompareResult>();
        EXPECT_TRUE(tolerance.setInputItem(attr::createImgComparisonTolerance(allowed, 0)));
        EXPECT_TRUE(output.setOutputItem(given));
        processor::executeSyncRun(compare);
        EXPECT_EQ(output.getItem(), given) << "the given one was written";
        EXPECT_EQ(dynamic_cast<const attr::CompareResult&>(*output.getItem()).nbDifferentPixels, allowed < 2 ? 1u : 0u);
    }
}

} // namespace
} // namespace orlix::imaproc::util
