// Our annotation of OME-XML holds what OME-XML can't say; where the two part, the annotation is stale.
#include "ORLIXImageIO/TestFiles.h"
#include "ORLIXImageIO/TinyPages.h"

using namespace orlix;
using namespace orlix::image;
using namespace orlix::image::io;
using namespace orlix::image::io::test;

namespace {

// Two plans of UInt16 in `sizes`, with an annotation of `type` and of pixels of 2 x 2 x 2 in `unit` around (5, 6, 7).
ImagePtr imageWith(const std::string& sizes, const std::string& unit, const std::string& type)
{
    std::string text = ome("SizeZ=\"2\" SizeC=\"1\" SizeT=\"1\" " + sizes);
    const std::string numbers = "PixelSizeX=\"2\" PixelSizeY=\"2\" PixelSizeZ=\"2\" OriginX=\"5\" OriginY=\"6\" "
                                "OriginZ=\"7\" RotationX=\"0\" RotationY=\"0\" RotationZ=\"0\"";
    text.insert(text.find("</OME>"), "<StructuredAnnotations><XMLAnnotation Namespace=\"orlix/image\"><Value>"
                                     "<OrlixImage ElementType=\"" +
                                         type + "\" Calibration=\"3d\" Unit=\"" + unit + "\" " + numbers +
                                         "/></Value></XMLAnnotation></StructuredAnnotations>");
    return imageOf({.description = text, .pages = 2});
}

boost::shared_ptr<const GeometricCalibration> calibrationWith(const std::string& sizes, const std::string& unit)
{
    return imageWith(sizes, unit, "UInt16")->getGeometricCalibration();
}

std::string sizesIn(const std::string& x, const std::string& y, const std::string& z)
{
    return "PhysicalSizeX=\"2\" PhysicalSizeXUnit=\"" + x + "\" PhysicalSizeY=\"2\" PhysicalSizeYUnit=\"" + y +
           "\" PhysicalSizeZ=\"2\" PhysicalSizeZUnit=\"" + z + "\"";
}

} // namespace

TEST(OmeAnnotationTest, IsFollowedWhereBothAgree)
{
    for (const std::string unit : {"mm", "millimeter"}) {
        const auto calibration = calibrationWith(sizesIn("mm", "mm", "mm"), unit);
        ASSERT_TRUE(calibration);
        EXPECT_EQ(unit, calibration->getUnit());
        EXPECT_EQ(5.f, calibration->getOriginX());
        EXPECT_EQ(7.f, calibration->getOriginZ());
    }
    // Nothing is told beside it.
    EXPECT_EQ(6.f, calibrationWith("", "mm")->getOriginY());
}

TEST(OmeAnnotationTest, IsNotFollowedWhereTheUnitChanged)
{
    const auto calibration = calibrationWith(sizesIn("nm", "nm", "nm"), "mm");
    ASSERT_TRUE(calibration);
    EXPECT_EQ("nm", calibration->getUnit());
    EXPECT_EQ(0.f, calibration->getOriginX());
}

TEST(OmeAnnotationTest, IsNotFollowedWhereAxesGotUnitsThatDontConvert)
{
    EXPECT_FALSE(calibrationWith(sizesIn("mm", "reference frame", "mm"), "mm"));
    const auto flat = calibrationWith(sizesIn("mm", "mm", "reference frame"), "mm");
    ASSERT_TRUE(flat);
    EXPECT_FALSE(flat->is3d());
    EXPECT_EQ(0.f, flat->getOriginX());
}

// Of the types that a file can't tell apart, the annotation's is taken; others would change the values.
TEST(OmeAnnotationTest, NamesAnotherTypeOfTheSameValuesOnly)
{
    const auto typeWith = [](const std::string& type) { return imageWith("", "mm", type)->getBufferType(); };
    EXPECT_EQ(eImageBufferType::eBufferUInt16Like, typeWith("UInt16Like"));
    for (const std::string type : {"UInt16", "Int16", "UInt8", "UInt32", "Real32", "Binary", "Double", ""}) {
        EXPECT_EQ(eImageBufferType::UInt16, typeWith(type)) << type;
    }
}
