// What holds of every processor of this library as an object: names, creation by name, archives, misuse.
#include "ORLIXIPLUtility/RegisteredProcessors.h"
#include "ORLIX/ORLIXSerialization/ORLIXSerializationException.h"
#include "ORLIX/ORLIXSerialization/TextIArchive.h"
#include "ORLIX/ORLIXSerialization/TextOArchive.h"
#include "ORLIX/ORLIXUtil/DynamicObjectFactory.h"
#include "ORLIX/ORLIXUtil/ORLIXUtilException.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"

#include <typeinfo>

namespace orlix::imaproc::util {
namespace {

using processor::BaseProcessor;
using processor::ProcessorFactory;

/// One row per class, in the order of the factory.
const std::vector<RegisteredProcessor> g_rows = {
    {"AppendSeqImgLvl1",
     "AppendSeqImg",
     "Concatenation of 2 image sequences algorithm level 1",
     {"InImg1", "InImg2", "OutImg"}},
    {"BasicThresholdImgGpuLvl3",
     "BasicThresholdImg",
     "Level 2 algorithm: binary basic threshold on one image on Gpu",
     {"InSubGpuImg", "InThresholdMin", "InThresholdMax", "OutBinImg"}},
    {"BasicThresholdImgLvl1",
     "BasicThresholdImg",
     "Level 1 algorithm: binary basic threshold on one image",
     {"InImg", "InThresholdMin", "InThresholdMax", "OutBinImg"}},
    {"BasicThresholdImgLvl2",
     "BasicThresholdImg",
     "Level 2 algorithm: binary basic threshold on one image",
     {"InSubImg2d", "InThresholdMin", "InThresholdMax", "OutBinImg"}},
    {"BasicThresholdImgLvl3",
     "BasicThresholdImg",
     "Level 3 algorithm: binary basic threshold on one image",
     {"InYStrip2d", "InThresholdMin", "InThresholdMax", "OutBinYStrip2d"}},
    {"BuildLines2dImgLvl1",
     "BuildLines2dImg",
     "Level 1 algorithm: Generates a binary image with oriented lines",
     {"InOutputImg2dSize", "InTheta", "InOffset", "OutBinImg"}},
    {"BuildLines2dImgLvl2",
     "BuildLines2dImg",
     "Level 2 algorithm: Generates a binary image with oriented lines",
     {"InTheta", "InOffset", "OutBinImg"}},
    {"BuildLines2dImgLvl3",
     "BuildLines2dImg",
     "Level 3 algorithm: Generates a binary image with oriented lines",
     {"InTheta", "InOffset", "OutBinYStrip2d"}},
    {"BuildLines3dImgLvl1",
     "BuildLines3dImg",
     "Level 1 algorithm: Generates a 3D binary image with oriented lines",
     {"InOutputImg3dSize", "InTheta", "InPhi", "InAlpha", "InOffset", "OutBinImg3d"}},
    {"BuildLines3dImgLvl2",
     "BuildLines3dImg",
     "Level 2 algorithm: Generates a 3D binary image with oriented lines",
     {"InTheta", "InPhi", "InAlpha", "InOffset", "OutSubBinImg3d"}},
    {"BuildLines3dImgLvl3",
     "BuildLines3dImg",
     "Level 3 algorithm: Generates a 3D binary image with oriented lines",
     {"InTheta", "InPhi", "InAlpha", "InOffset", "OutBinZStrip3d"}},
    {"CompareImgLvl1",
     "CompareImg",
     "Image comparison algorithm level 1",
     {"InImg1", "InImg2", "InOptImgComparisonTolerance", "OutCompareResult"}},
    {"CompareImgLvl2",
     "CompareImg",
     "Image comparison algorithm level 2",
     {"InSubImg2d1", "InSubImg2d2", "InImgComparisonTolerance", "OutCompareResult"}},
    {"CompareImgLvl3",
     "CompareImg",
     "Image comparison algorithm level 3",
     {"InYStrip2d1", "InYStrip2d2", "InImgComparisonTolerance", "OutCompareResult"}},
    {"ConvertImgGpuLvl3",
     "ConvertImg",
     "Image data type conversion algorithm level 2 on Gpu",
     {"InSubGpuImg", "OutImg"}},
    {"ConvertImgLvl1",
     "ConvertImg",
     "Image data type conversion algorithm level 1",
     {"InImg", "InConvertImageBufferType", "OutImg"}},
    {"ConvertImgLvl2", "ConvertImg", "Image data type conversion algorithm level 2", {"InSubImg2d", "OutImg"}},
    {"ConvertImgLvl3", "ConvertImg", "Image data type conversion algorithm level 3", {"InYStrip2d", "OutYStrip2d"}},
    {"CopyImgGpuLvl3", "CopyImg", "Image copy algorithm level 2 on Gpu", {"InSubGpuImg", "OutImg"}},
    {"CopyImgLvl1", "CopyImg", "Image copy algorithm level 1", {"InImg", "OutImg"}},
    {"CopyImgLvl2", "CopyImg", "Image copy algorithm level 2", {"InSubImg2d", "OutImg"}},
    {"CopyImgLvl3", "CopyImg", "Image copy algorithm level 3", {"InYStrip2d", "OutYStrip2d"}},
    {"EraseImgGpuLvl3", "EraseImg", "Image erasing algorithm level 2 on Gpu", {"InOptEraseValue", "OutImg"}},
    {"EraseImgLvl1", "EraseImg", "Image erasing algorithm level 1", {"InOptEraseValue", "OutImg"}},
    {"EraseImgLvl2", "EraseImg", "Image erasing algorithm level 2", {"InOptEraseValue", "OutSubImg2d"}},
    {"EraseImgLvl3", "EraseImg", "Image erasing algorithm level 3", {"InOptEraseValue", "OutYStrip2d"}},
    {"ExtractImg2dValuesLvl1",
     "ExtractImg2dValues",
     "Level 1 algorithm: extract values at specific coordinates from a 2d image",
     {"InImg", "InPICoords2dColl", "InOptInterpolationPolicy", "InOptImageValueExtractionMethod",
      "OutPIImgGreyValues"}},
    {"ExtractImg2dValuesLvl2",
     "ExtractImg2dValues",
     "Level 2 algorithm: extract values at specific coordinates from a 2d image",
     {"InSubImg2d", "InCoords2dColl", "InInterpolationPolicy", "InImageValueExtractionMethod", "OutImgGreyValues"}},
    {"ExtractImg2dValuesStripedLvl3",
     "ExtractImg2dValues",
     "Level 3 algorithm: extract values at specific coordinates from a 2d image",
     {"InKnlYStrip2d", "InInterpolationPolicy", "InOutPixels2d"}},
    {"ExtractImg2dValuesTiledLvl3",
     "ExtractImg2dValues",
     "Level 3 algorithm: extract values at specific coordinates from a 2d image",
     {"InTile2dColl", "InInterpolationPolicy", "InOutPixels2d"}},
    {"ExtractImg3dValuesLvl1",
     "ExtractImg3dValues",
     "Level 1 algorithm: extract values at specific coordinates from a 3d image",
     {"InImg3d", "InPICoords3dColl", "InOptInterpolationPolicy", "InOptImageValueExtractionMethod",
      "OutPIImgGreyValues"}},
    {"ExtractImg3dValuesLvl2",
     "ExtractImg3dValues",
     "Level 2 algorithm: extract values at specific coordinates from a 3d image",
     {"InSubImg3d", "InCoords3dColl", "InInterpolationPolicy", "InImageValueExtractionMethod", "OutImgGreyValues"}},
    {"ExtractImg3dValuesStripedLvl3",
     "ExtractImg3dValues",
     "Level 3 algorithm: extract values at specific coordinates from a 3d image",
     {"InKnlZStrip3d", "InInterpolationPolicy", "InOutVoxels3d"}},
    {"ExtractImg3dValuesTiledLvl3",
     "ExtractImg3dValues",
     "Level 3 algorithm: extract values at specific coordinates from a 3d image",
     {"InTile3dColl", "InInterpolationPolicy", "InOutVoxels3d"}},
    {"GaussianRandomImgLvl1",
     "GaussianRandomImg",
     "Level 1 algorithm: initialization of an image with random values generated using a normal law",
     {"InGaussianParameter", "OutImg"}},
    {"GaussianRandomImgLvl2",
     "GaussianRandomImg",
     "Level 2 algorithm: initialization of an image with random values generated using a normal law",
     {"InGaussianParameter", "OutSubImg2d"}},
    {"GaussianRandomImgLvl3",
     "GaussianRandomImg",
     "Level 3 algorithm: initialization of an image with random values generated using a normal law",
     {"InGaussianParameter", "OutYStrip2d"}},
    {"GetROI2dImgLvl1",
     "GetROI2dImg",
     "Image 2d ROI extraction algorithm level 1",
     {"InImg", "InInputImg2dOffset", "InOutputImg2dSize", "OutImg"}},
    {"GetROI2dImgLvl2",
     "GetROI2dImg",
     "Image 2d ROI extraction algorithm level 2",
     {"InSubImg2d", "InInputImg2dOffset", "InOutputImg2dSize", "OutImg"}},
    {"GetROI2dImgLvl3",
     "GetROI2dImg",
     "Image 2d ROI extraction algorithm level 3",
     {"InYStrip2d", "InInputImg2dOffset", "InOutputImg2dSize", "OutYStrip2d"}},
    {"GetROI3dImgLvl1",
     "GetROI3dImg",
     "Image 3d ROI extraction algorithm level 1",
     {"InImg3d", "InInputImg3dOffset", "InOutputImg3dSize", "OutImg"}},
    {"GetROI3dImgLvl2",
     "GetROI3dImg",
     "Image 3d ROI extraction algorithm level 2",
     {"InSubImg3d", "InInputImg3dOffset", "InOutputImg3dSize", "OutImg"}},
    {"GetROI3dImgLvl3",
     "GetROI3dImg",
     "Image 3d ROI extraction algorithm level 3",
     {"InZStrip3d", "InInputImg3dOffset", "InOutputImg3dSize", "OutZStrip3d"}},
    {"GetSlice3dImgLvl1",
     "GetSlice3dImg",
     "Level 1 algorithm: Creates a 2D image from a slice along a given axis (x, y, or z) of a 3D image",
     {"InImg3d", "InAxis", "InSliceIndex", "OutImg2d"}},
    {"GetSlice3dImgLvl2",
     "GetSlice3dImg",
     "Level 2 algorithm: Creates a 2D image from a slice along a given axis (x, y, or z) of a 3D image",
     {"InSubImg3d", "InAxis", "InSliceIndex", "OutImg2d"}},
    {"GetSlice3dImgLvl3",
     "GetSlice3dImg",
     "Level 3 algorithm: Creates a 2D image from a slice along a given axis (x, y, or z) of a 3D image",
     {"InSubImg3d", "InAxis", "InSliceIndex", "OutYStrip2d"}},
    {"PutROI2dImgLvl1",
     "PutROI2dImg",
     "Image 2d ROI insertion algorithm level 1",
     {"InImg", "InROIImg", "InInputImg2dOffset", "OutImg"}},
    {"PutROI2dImgLvl2",
     "PutROI2dImg",
     "Image 2d ROI insertion algorithm level 2",
     {"InSubImg2d", "InSubROIImg2d", "InInputImg2dOffset", "OutImg"}},
    {"PutROI2dImgLvl3",
     "PutROI2dImg",
     "Image 2d ROI insertion algorithm level 3",
     {"InYStrip2d", "InInputImg2dOffset", "OutYStrip2d"}},
    {"PutROI3dImgLvl1",
     "PutROI3dImg",
     "Image 3d ROI insertion algorithm level 1",
     {"InImg3d", "InROIImg3d", "InInputImg3dOffset", "OutImg"}},
    {"PutROI3dImgLvl2",
     "PutROI3dImg",
     "Image 3d ROI insertion algorithm level 2",
     {"InSubImg3d", "InSubROIImg3d", "InInputImg3dOffset", "OutImg"}},
    {"PutROI3dImgLvl3",
     "PutROI3dImg",
     "Image 3d ROI insertion algorithm level 3",
     {"InZStrip3d", "InInputImg3dOffset", "InOutZStrip3d"}},
    {"PutSlice3dImgLvl1",
     "PutSlice3dImg",
     "Level 1 algorithm: Copies a 2D image in a 3D image as a slice in the input slice index along x, y or z",
     {"InImg3d", "InImg2d", "InAxis", "InSliceIndex", "OutImg"}},
    {"PutSlice3dImgLvl2",
     "PutSlice3dImg",
     "Level 2 algorithm: Copies a 2D image in a 3D image as a slice in the input slice index along x, y or z",
     {"InSubImg3d", "InSubImg2d", "InAxis", "InSliceIndex", "OutImg"}},
    {"PutSlice3dImgLvl3",
     "PutSlice3dImg",
     "Level 3 algorithm: Copies a 2D image in a 3D image as a slice in the input slice index along x, y or z",
     {"InSubImg3d", "InYStrip2d", "InAxis", "InSliceIndex", "OutImg"}},
    {"RandomImgLvl1",
     "RandomImg",
     "Level 1 algorithm: initialization of an image with random values generated using a uniform law on interval "
     "[RandomMin; RandomMax]",
     {"InOptOutputRange", "OutImg"}},
    {"RandomImgLvl2",
     "RandomImg",
     "Level 2 algorithm: initialization of an image with random values generated using a uniform law on interval "
     "[RandomMin; RandomMax]",
     {"InOutputRange", "OutSubImg2d"}},
    {"RandomImgLvl3",
     "RandomImg",
     "Level 3 algorithm: initialization of an image with random values generated using a uniform law on interval "
     "[RandomMin; RandomMax]",
     {"InOutputRange", "OutYStrip2d"}}};

/// Those that the factory knows of this library.
std::vector<std::string> registeredNames()
{
    std::vector<std::string> names;
    for (const std::string& name : ProcessorFactory::getInstance().getProcessorNames()) {
        if (ProcessorFactory::getInstance().getProcessorInfo(name).libraryName == "ORLIXIPLUtility") {
            names.push_back(name);
        }
    }
    return names;
}

TEST(RegisteredProcessorsTest, areThoseOfTheTable)
{
    std::vector<std::string> expected;
    for (const RegisteredProcessor& row : g_rows) {
        expected.push_back(std::string("orlix::imaproc::util::") + row.name);
    }
    EXPECT_EQ(registeredNames(), expected) << "a processor and its row come and go together";
}

INSTANTIATE_TEST_SUITE_P(Every, RegisteredProcessorTest, ::testing::ValuesIn(g_rows),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_P(RegisteredProcessorTest, isKnownToTheFactory)
{
    const ProcessorFactory::ProcessorInfo info = ProcessorFactory::getInstance().getProcessorInfo(typeName());
    const std::string name = GetParam().name;
    EXPECT_EQ(info.objectName, name);
    EXPECT_EQ(info.toolTip, GetParam().toolTip);
    EXPECT_EQ(info.headerPath.string(),
              std::string("ORLIXIPL/ORLIXIPLUtility/Processor/") + GetParam().operatorName + "/" + name + ".h");
}

TEST_P(RegisteredProcessorTest, tellsItsNames)
{
    const auto processor = make();
    EXPECT_EQ(processor->getClassName(), typeName());
    EXPECT_EQ(processor->getObjectName(), GetParam().name);
    EXPECT_EQ(processor->getToolTip(), GetParam().toolTip);
}

TEST_P(RegisteredProcessorTest, isMadeByBothFactoriesAndByItself)
{
    const auto made = make();
    const auto byName = DynamicObjectFactory::getInstance().createShared(typeName());
    ASSERT_NE(byName, nullptr);
    const std::unique_ptr<BaseDynamicObject> fresh = made->createNew();
    const boost::shared_ptr<BaseDynamicObject> shared = made->createShared();
    for (const BaseDynamicObject* const other : {byName.get(), fresh.get(), shared.get()}) {
        EXPECT_NE(other, made.get());
        const BaseDynamicObject& same = *made;
        EXPECT_EQ(typeid(*other), typeid(same));
        const auto* const processor = dynamic_cast<const BaseProcessor*>(other);
        ASSERT_NE(processor, nullptr);
        EXPECT_FALSE(processor->isInitialised());
    }
    const auto initialised = boost::dynamic_pointer_cast<BaseProcessor>(byName);
    ASSERT_TRUE(initialised->init(processor::eProcessorRulePolicy::eRulePolicyCheck));
    EXPECT_EQ(initialised->getAttributeNameColl(), GetParam().attributes);
}

TEST_P(RegisteredProcessorTest, cannotBeCopied)
{
    const auto processor = make();
    EXPECT_FALSE(processor->hasCopySupport());
    EXPECT_THROW(static_cast<void>(processor->duplicate()), ORLIXUtilException);
    EXPECT_THROW(static_cast<void>(processor->duplicateShared()), ORLIXUtilException);
    EXPECT_THROW(processor->copy(*make()), ORLIXUtilException);
}

TEST_P(RegisteredProcessorTest, writesItsVersionOncePerArchiveAndReadsIt)
{
    TextOArchive archive;
    std::string once, twice;
    ASSERT_TRUE(make()->write(archive) && archive.saveToString(once));
    EXPECT_NE(once.find("\"" + typeName() + "\""), std::string::npos);
    ASSERT_TRUE(make()->write(archive) && archive.saveToString(twice));
    EXPECT_EQ(twice, once);
    EXPECT_NE(once.find("name=\"version\" value=\"1\""), std::string::npos) << once;
    TextIArchive reader;
    ASSERT_TRUE(reader.loadFromString(once));
    EXPECT_TRUE(make()->read(reader));
}

TEST_P(RegisteredProcessorTest, readsVersionsUpToItsOwn)
{
    const auto read = [&](const char* version) {
        TextIArchive archive;
        EXPECT_TRUE(archive.loadFromString("<orlix_archive format=\"1\"><section name=\"" + typeName() +
                                           "\"><uint32 name=\"version\" value=\"" + version +
                                           "\"/></section></orlix_archive>"));
        return make()->read(archive).getValue();
    };
    EXPECT_TRUE(read("0"));
    EXPECT_TRUE(read("1"));
    EXPECT_THROW(read("2"), ORLIXSerializationException);
}

TEST_P(RegisteredProcessorTest, hasNoUseBeforeItsInit)
{
    const auto processor = make();
    EXPECT_FALSE(processor->isInitialised());
    EXPECT_TRUE(processor->getAttributeColl().empty());
    EXPECT_EQ(testing::messageOf([&] { static_cast<void>(failureOf(*processor)); }),
              std::string("Processor ") + GetParam().name +
                  " has not been initialised: call init before its attributes are used");
}

} // namespace
} // namespace orlix::imaproc::util
