// Writing OME-XML.
#include "ORLIXIPL/ORLIXImageIO/Metadata/OmeWriter.h"

#include "ORLIXIPL/ORLIXImageIO/Metadata/Calibration.h"
#include "ORLIXIPL/ORLIXImageIO/Metadata/LengthUnit.h"
#include "ORLIXIPL/ORLIXImageIO/Metadata/OmeAnnotation.h"
#include "ORLIXIPL/ORLIXImageIO/Metadata/TextNumber.h"

#include <sstream>

namespace orlix::image::io {

namespace {

const char* omeTypeOf(const eImageBufferType& type)
{
    switch (static_cast<eImageBufferType::domain>(type)) {
    case eImageBufferType::Int8: return "int8";
    case eImageBufferType::Int16: return "int16";
    case eImageBufferType::Int32: return "int32";
    case eImageBufferType::UInt16:
    case eImageBufferType::eBufferUInt16Like: return "uint16";
    case eImageBufferType::UInt32:
    case eImageBufferType::eBufferUInt32Like: return "uint32";
    case eImageBufferType::Real32: return "float";
    case eImageBufferType::eBufferBinary: return "bit";
    default: return "uint8";
    }
}

// OME-XML has no place for a size that is not above 0; the annotation keeps it.
void addPixelSizes(pugi::xml_node pixels, const GeometricCalibration& calibration)
{
    const std::string unit = omeUnitOf(calibration.getUnit());
    const auto add = [&](const char* name, const char* unitName, float size) {
        if (isPixelSize(size)) {
            pixels.append_attribute(name) = numberText(size).c_str();
            pixels.append_attribute(unitName) = unit.c_str();
        }
    };
    add("PhysicalSizeX", "PhysicalSizeXUnit", calibration.getPixelSizeX());
    add("PhysicalSizeY", "PhysicalSizeYUnit", calibration.getPixelSizeY());
    if (calibration.is3d()) {
        add("PhysicalSizeZ", "PhysicalSizeZUnit", calibration.getPixelSizeZ());
    }
}

void addSizes(pugi::xml_node pixels, const BaseImage& image)
{
    const auto add = [&](const char* name, unsigned long size) {
        pixels.append_attribute(name) = static_cast<unsigned long long>(size);
    };
    add("SizeX", image.getSizeX());
    add("SizeY", image.getSizeY());
    add("SizeZ", image.getSizeZ());
    add("SizeC", image.getSizeC());
    add("SizeT", image.getSizeT());
}

void addChannels(pugi::xml_node pixels, unsigned long channels, unsigned long samples)
{
    for (unsigned long c = 0; c < channels; c += samples) {
        pugi::xml_node channel = pixels.append_child("Channel");
        channel.append_attribute("ID") = ("Channel:0:" + std::to_string(c / samples)).c_str();
        channel.append_attribute("SamplesPerPixel") = static_cast<unsigned long long>(samples);
    }
}

} // namespace

std::string omeXmlOf(const BaseImage& image, unsigned long samples, bool bBigEndian)
{
    pugi::xml_document document;
    pugi::xml_node declaration = document.append_child(pugi::node_declaration);
    declaration.append_attribute("version") = "1.0";
    declaration.append_attribute("encoding") = "UTF-8";
    pugi::xml_node ome = document.append_child("OME");
    ome.append_attribute("xmlns") = "http://www.openmicroscopy.org/Schemas/OME/2016-06";
    pugi::xml_node imageNode = ome.append_child("Image");
    imageNode.append_attribute("ID") = "Image:0";
    pugi::xml_node pixels = imageNode.append_child("Pixels");
    pixels.append_attribute("ID") = "Pixels:0";
    pixels.append_attribute("DimensionOrder") = "XYZCT";
    pixels.append_attribute("Type") = omeTypeOf(image.getBufferType());
    pixels.append_attribute("BigEndian") = bBigEndian;
    pixels.append_attribute("Interleaved") = samples > 1;
    addSizes(pixels, image);
    const CalibrationPtr calibration = image.getGeometricCalibration();
    if (calibration) {
        addPixelSizes(pixels, *calibration);
    }
    addChannels(pixels, image.getSizeC(), samples);
    pugi::xml_node tiffData = pixels.append_child("TiffData");
    tiffData.append_attribute("IFD") = 0;
    tiffData.append_attribute("PlaneCount") =
        static_cast<unsigned long long>(image.getSizeZ() * (image.getSizeC() / samples) * image.getSizeT());
    addAnnotation(ome, image.getGeometry(), calibration);

    std::ostringstream text;
    document.save(text, "", pugi::format_raw);
    return text.str();
}

} // namespace orlix::image::io
