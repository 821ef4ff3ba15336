// Reading axes and calibration out of OME-XML.
#include "ORLIXIPL/ORLIXImageIO/Metadata/OmeMetadata.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImageIO/Logger/ORLIXImageIOLogMessages.h"
#include "ORLIXIPL/ORLIXImageIO/Metadata/Calibration.h"
#include "ORLIXIPL/ORLIXImageIO/Metadata/OmeAnnotation.h"
#include "ORLIXIPL/ORLIXImageIO/Metadata/OmePlanes.h"
#include "ORLIXIPL/ORLIXImageIO/Metadata/TextNumber.h"
#include "ORLIXIPL/ORLIXImageIO/Metadata/XmlNames.h"

#include <algorithm>

namespace orlix::image::io {

namespace {

OmeAxes axesOf(pugi::xml_node pixels, const PageFacts& facts)
{
    OmeAxes axes;
    axes.order = pixels.attribute("DimensionOrder").as_string("XYZCT");
    std::string letters = axes.order;
    std::ranges::sort(letters);
    if (letters != "CTXYZ" || !axes.order.starts_with("XY")) {
        refuseOme(facts, "DimensionOrder must be XY and then Z, C and T in some order, but is \"" + axes.order + "\"");
    }
    axes.sizeZ = numberAttribute(pixels, "SizeZ", 1, facts);
    axes.sizeT = numberAttribute(pixels, "SizeT", 1, facts);
    const unsigned long channels = numberAttribute(pixels, "SizeC", facts.samples, facts);
    if (channels % facts.samples != 0) {
        refuseOme(facts, "SizeC is " + std::to_string(channels) + ", but each page has " +
                             std::to_string(facts.samples) + " channels");
    }
    axes.sizeC = channels / facts.samples;
    return axes;
}

void checkSize(pugi::xml_node pixels, const char* name, unsigned long found, const PageFacts& facts)
{
    const unsigned long told = numberAttribute(pixels, name, found, facts);
    if (told != found) {
        refuseOme(facts, std::string(name) + " is " + std::to_string(told) + ", but in the pages it is " +
                             std::to_string(found));
    }
}

std::string unitOf(pugi::xml_node pixels, const std::string& axis)
{
    return pixels.attribute(("PhysicalSize" + axis + "Unit").c_str()).as_string("\u00b5m");
}

// The pixel size along an axis times `factor`; nothing where it is no number.
std::optional<float> pixelSize(pugi::xml_node pixels, const std::string& axis, double factor)
{
    const char* const text = pixels.attribute(("PhysicalSize" + axis).c_str()).value();
    if (factor == 1) {
        return numberFrom<float>(text);
    }
    const auto value = numberFrom<double>(text);
    return value ? std::optional(static_cast<float>(*value * factor)) : std::nullopt;
}

CalibrationPtr calibrationFrom(pugi::xml_node pixels, std::string& ignoredUnits)
{
    const bool bTellsY = pixels.attribute("PhysicalSizeY"), bTellsZ = pixels.attribute("PhysicalSizeZ");
    const std::string unit = unitOf(pixels, "X");
    const UnitFactors factors =
        unitFactors(unit, bTellsY ? unitOf(pixels, "Y") : unit, bTellsZ ? unitOf(pixels, "Z") : unit);
    ignoredUnits = factors.ignored;
    if (!factors.y) {
        return nullptr;
    }
    const auto sizeX = pixelSize(pixels, "X", 1);
    const auto sizeY = bTellsY ? pixelSize(pixels, "Y", *factors.y) : sizeX;
    const bool b3d = bTellsZ && factors.z;
    const auto sizeZ = b3d ? pixelSize(pixels, "Z", *factors.z) : std::nullopt;
    if (!sizeX || !sizeY || (b3d && !sizeZ)) {
        return nullptr;
    }
    return calibrationOf(unit == "pixel" ? "px" : unit, *sizeX, *sizeY, sizeZ);
}

// Of the image to read.
pugi::xml_node pixelsOfImage(pugi::xml_node ome, const OmeIdentity& identity)
{
    const auto isHere = [&](pugi::xml_node image) {
        const pugi::xml_node pixels = childNamed(image, "Pixels");
        return hasName(image, "Image") &&
               (!childNamed(pixels, "TiffData") || pixels.find_child([&](pugi::xml_node child) {
                   return hasName(child, "TiffData") && identity.isOwn(child);
               }));
    };
    const pugi::xml_node image = ome.find_child(isHere);
    return childNamed(image ? image : childNamed(ome, "Image"), "Pixels");
}

} // namespace

bool isOmeDescription(std::string_view text)
{
    const auto root = text.find_first_not_of("\xef\xbb\xbf \t\r\n");
    return root != text.npos && text[root] == '<' && (text.find("<OME") != text.npos || text.find(":OME") != text.npos);
}

std::string uuidOfOme(std::string_view text)
{
    pugi::xml_document document;
    document.load_buffer(text.data(), text.size());
    return childNamed(document, "OME").attribute("UUID").value();
}

ImageMetadata metadataOfOme(std::string_view text, const PageFacts& facts, OmeFiles* files)
{
    pugi::xml_document document;
    const pugi::xml_parse_result result = document.load_buffer(text.data(), text.size());
    if (!result) {
        refuseOme(facts, std::string("it is no XML, at character ") + std::to_string(result.offset) + ": " +
                             result.description());
    }
    const pugi::xml_node ome = childNamed(document, "OME");
    if (const pugi::xml_node binaryOnly = childNamed(ome, "BinaryOnly")) {
        raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eOutsideFile, facts.file,
                                    binaryOnly.attribute("MetadataFile").value(),
                                    "that file has the description of the axes: read it, if it is a TIFF file");
    }
    const OmeIdentity identity(ome, facts);
    const pugi::xml_node pixels = pixelsOfImage(ome, identity);
    if (!pixels) {
        refuseOme(facts, "it tells of no image");
    }
    checkSize(pixels, "SizeX", facts.sizeX, facts);
    checkSize(pixels, "SizeY", facts.sizeY, facts);

    const OmeAxes axes = axesOf(pixels, facts);
    ImageMetadata metadata;
    metadata.kind = "OME-XML";
    metadata.type = facts.type;
    metadata.sizeC = axes.sizeC * facts.channels;
    if (axes.sizeZ > 1) {
        metadata.volume.init3d(axes.sizeZ);
    }
    if (axes.sizeT > 1) {
        metadata.temporal.initSequence(axes.sizeT);
    }
    const auto isImage = [](pugi::xml_node child) { return hasName(child, "Image"); };
    metadata.furtherImages =
        static_cast<unsigned long>(std::ranges::count_if(ome.children(), isImage)) - 1; // there is one at least
    metadata.calibration = calibrationFrom(pixels, metadata.ignoredUnits);
    metadata.places = placesOfPlanes(pixels, axes, identity, facts, files);
    followAnnotation(ome, metadata);
    return metadata;
}

} // namespace orlix::image::io
