// What holds of the attributes of every processor of this library, unset, set, null and cleared.
#include "ORLIX/ORLIXUtil/BaseException.h"
#include "ORLIXIPL/ORLIXImageProcessing/BaseStripAttributes.h"
#include "ORLIXIPL/ORLIXImageProcessing/MarginStripAttributes.h"
#include "ORLIXIPL/ORLIXImageProcessing/TileCollAttributes.h"
#include "ORLIXIPL/ORLIXImageProcessing/ZStripAttributes.h"
#include "ORLIXIPLUtility/RegisteredProcessors.h"
#include "support/Images.h"

#include <boost/make_shared.hpp>

#include <set>

namespace orlix::imaproc::util {
namespace {

using processor::BaseAttribute;

TEST_P(RegisteredProcessorTest, attributesAreNamedForWhatTheyAre)
{
    const auto processor = makeInitialised();
    EXPECT_EQ(processor->getAttributeNameColl(), GetParam().attributes);
    std::set<std::string> names;
    for (const auto& attribute : processor->getAttributeColl()) {
        const std::string& name = attribute->getObjectName();
        SCOPED_TRACE(name);
        EXPECT_TRUE(names.insert(name).second) << "two attributes of one name";
        EXPECT_EQ(&processor->getAttribute(name), attribute.get());
        const bool bInOut = name.starts_with("InOut") && !name.starts_with("InOutput");
        EXPECT_EQ(attribute->isOutput(), name.starts_with("Out") || bInOut);
        EXPECT_TRUE(attribute->isOutput() || name.starts_with("In"));
        EXPECT_EQ(attribute->isOptional(), name.starts_with("InOpt"));
        EXPECT_FALSE(attribute->getToolTip().empty());
        EXPECT_NE(attribute->getToolTip(), name);
        EXPECT_FALSE(attribute->getValueKind().empty());
        EXPECT_TRUE(attribute->isOutput() || !processor->makesOutput(name)) << "an input that a run makes";
    }
    EXPECT_THROW(static_cast<void>(processor->getAttribute("InNothing")), BaseException);
}

TEST_P(RegisteredProcessorTest, newAttributesHoldTheirDefaults)
{
    const auto processor = makeInitialised();
    for (const auto& attribute : processor->getAttributeColl()) {
        EXPECT_FALSE(attribute->isSet() || attribute->isNull() || attribute->isHeld());
        EXPECT_EQ(attribute->getValueText(), attribute->getDefaultText()) << attribute->getObjectName();
    }
}

/// A text that an attribute takes: the first of a list, or a number.
std::string textFor(const BaseAttribute& attribute)
{
    const std::string kind = attribute.getValueKind();
    const std::string list = "one of ";
    return kind.starts_with(list) ? kind.substr(list.size(), kind.find(',') - list.size()) : "1";
}

template <class TAttribute, class TValue>
bool tryToSet(BaseAttribute& attribute, const TValue& value)
{
    auto* const found = dynamic_cast<TAttribute*>(&attribute);
    if (found != nullptr) {
        found->init(value);
    }
    return found != nullptr;
}

/// False for a kind of attribute that has no value here.
bool setSomething(BaseAttribute& attribute, const ImagePtr& image)
{
    return tryToSet<BaseInputImageAttribute>(attribute, image) ||
           tryToSet<BaseOutputImageAttribute>(attribute, image) ||
           tryToSet<BaseInputYStrip2dAttribute>(attribute,
                                                boost::make_shared<image::InputImageYStrip2d>(*image, 0, 1)) ||
           tryToSet<BaseOutputYStrip2dAttribute>(attribute,
                                                 boost::make_shared<image::OutputImageYStrip2d>(*image, 0, 1)) ||
           tryToSet<BaseInputZStrip3dAttribute>(attribute,
                                                boost::make_shared<image::InputImageZStrip3d>(*image, 0, 1)) ||
           tryToSet<BaseOutputZStrip3dAttribute>(attribute,
                                                 boost::make_shared<image::OutputImageZStrip3d>(*image, 0, 1)) ||
           tryToSet<BaseInOutZStrip3dAttribute>(attribute,
                                                boost::make_shared<image::InOutImageZStrip3d>(*image, 0, 1)) ||
           tryToSet<BaseInputYStrip2dWithKernelAttribute>(
               attribute, boost::make_shared<image::InputImageYStrip2dWithKernel>(*image, 0, 1, image::Margin(),
                                                                                  image::Margin())) ||
           tryToSet<BaseInputZStrip3dWithKernelAttribute>(
               attribute, boost::make_shared<image::InputImageZStrip3dWithKernel>(*image, 0, 1, image::Margin(),
                                                                                  image::Margin())) ||
           tryToSet<BaseInputTile2dCollAttribute>(attribute, boost::make_shared<image::InputImageTile2dColl>(
                                                                 *image, nullptr, 0, image::mirorBorder2d())) ||
           tryToSet<BaseInputTile3dCollAttribute>(attribute, boost::make_shared<image::InputImageTile3dColl>(
                                                                 *image, nullptr, 0, image::mirorBorder3d())) ||
           (attribute.takesText() && attribute.setFromText(textFor(attribute)));
}

TEST_P(RegisteredProcessorTest, inputsAndOutputsAreClearedByThemselves)
{
    const auto processor = makeInitialised();
    const ImagePtr image = testing::makeRandom(*image::geometry2d(image::eImageBufferType::UInt8, 4, 4));
    std::vector<BaseAttribute*> set;
    for (const auto& attribute : processor->getAttributeColl()) {
        if (setSomething(*attribute, image)) {
            EXPECT_TRUE(attribute->isHeld()) << attribute->getObjectName();
            set.push_back(attribute.get());
        } else {
            EXPECT_EQ(attribute->getAttributeType(), processor::eAttributeType::eDataItemAttribute)
                << attribute->getObjectName() << ": teach setSomething to set it";
        }
    }
    EXPECT_FALSE(set.empty());
    processor->clearInputData();
    for (const BaseAttribute* const attribute : set) {
        EXPECT_EQ(attribute->isSet(), attribute->isOutput()) << attribute->getObjectName();
        EXPECT_TRUE(attribute->isOutput() || attribute->getValueText() == attribute->getDefaultText());
    }
    processor->clearOutputData();
    for (const BaseAttribute* const attribute : set) {
        EXPECT_FALSE(attribute->isSet()) << attribute->getObjectName();
    }
    EXPECT_EQ(image.use_count(), 1) << "what is cleared is let go";
}

TEST_P(RegisteredProcessorTest, aRunWithoutAttributesNamesTheFirstThatIsNeeded)
{
    const auto processor = makeInitialised();
    const BaseAttribute* const needed = firstNeeded(*processor);
    ASSERT_NE(needed, nullptr);
    const std::string& name = needed->getObjectName();
    const std::string text =
        std::string(GetParam().name) + ": attribute " + name + " has not been set: set " + name + " before the run";
    EXPECT_EQ(failureOf(*processor), text);
    EXPECT_EQ(failureOf(*processor), text) << "a failed run changes nothing";
    const auto running = makeInitialised();
    EXPECT_TRUE(running->run(core::eSynchroType::eSynchroAsync));
    EXPECT_EQ(running->wait().getMessage(), text);
}

TEST_P(RegisteredProcessorTest, aNullPointerIsRefusedByTheNameOfItsAttribute)
{
    for (const std::string& name : GetParam().attributes) {
        const auto processor = makeInitialised();
        const ImagePtr image = testing::makeRandom(*image::geometry2d(image::eImageBufferType::UInt8, 4, 4));
        bool bAllSet = true; // of those before it
        for (const auto& attribute : processor->getAttributeColl()) {
            if (attribute->getObjectName() == name) {
                break;
            }
            bAllSet = (setSomething(*attribute, image) || attribute->isOptional()) && bAllSet;
        }
        BaseAttribute& attribute = processor->getAttribute(name);
        const bool bPointer =
            tryToSet<BaseInputImageAttribute>(attribute, ImageConstPtr()) ||
            tryToSet<BaseOutputImageAttribute>(attribute, ImagePtr()) ||
            tryToSet<BaseInputYStrip2dAttribute>(attribute, BaseInputYStrip2dAttribute::StorageType()) ||
            tryToSet<BaseOutputYStrip2dAttribute>(attribute, BaseOutputYStrip2dAttribute::StorageType()) ||
            tryToSet<BaseInputZStrip3dAttribute>(attribute, BaseInputZStrip3dAttribute::StorageType()) ||
            tryToSet<BaseOutputZStrip3dAttribute>(attribute, BaseOutputZStrip3dAttribute::StorageType()) ||
            tryToSet<BaseInOutZStrip3dAttribute>(attribute, BaseInOutZStrip3dAttribute::StorageType());
        if (bPointer && bAllSet) {
            EXPECT_TRUE(attribute.isSet() && attribute.isNull() && !attribute.isHeld());
            EXPECT_EQ(failureOf(*processor), std::string(GetParam().name) + ": attribute " + name +
                                                 " holds a null pointer: give it an object that exists");
        }
    }
}

TEST_P(RegisteredProcessorTest, mayBeInitialisedAgain)
{
    const auto processor = makeInitialised();
    const std::string failure = failureOf(*processor);
    for (const auto& policy :
         {processor::eProcessorRulePolicy::eRulePolicySkip, processor::eProcessorRulePolicy::eRulePolicyCheck}) {
        EXPECT_TRUE(processor->init(policy));
        EXPECT_EQ(processor->getAttributeNameColl(), GetParam().attributes);
        for (const auto& attribute : processor->getAttributeColl()) {
            EXPECT_FALSE(attribute->isSet());
        }
        EXPECT_EQ(failureOf(*processor), failure);
    }
}

} // namespace
} // namespace orlix::imaproc::util
