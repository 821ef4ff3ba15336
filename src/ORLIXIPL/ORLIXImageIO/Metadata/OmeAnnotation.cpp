// Writing and reading our annotation of OME-XML.
#include "ORLIXIPL/ORLIXImageIO/Metadata/OmeAnnotation.h"

#include "ORLIXIPL/ORLIXImageIO/Metadata/LengthUnit.h"
#include "ORLIXIPL/ORLIXImageIO/Metadata/TextNumber.h"
#include "ORLIXIPL/ORLIXImageIO/Metadata/XmlNames.h"

#include <boost/make_shared.hpp>

#include <array>
#include <cstring>

namespace orlix::image::io {

namespace {

constexpr const char* g_namespace = "orlix/image";
constexpr const char* g_element = "OrlixImage";
constexpr std::array g_numbers = {"PixelSizeX", "PixelSizeY", "PixelSizeZ", "OriginX",  "OriginY",
                                  "OriginZ",    "RotationX",  "RotationY",  "RotationZ"};

std::array<float, g_numbers.size()> numbersOf(const GeometricCalibration& calibration)
{
    return {calibration.getPixelSizeX(), calibration.getPixelSizeY(), calibration.getPixelSizeZ(),
            calibration.getOriginX(),    calibration.getOriginY(),    calibration.getOriginZ(),
            calibration.getRotationX(),  calibration.getRotationY(),  calibration.getRotationZ()};
}

CalibrationPtr calibrationFrom(pugi::xml_node element)
{
    std::array<float, g_numbers.size()> n{};
    for (std::size_t i = 0; i < n.size(); ++i) {
        const auto number = numberFrom<float>(element.attribute(g_numbers[i]).value());
        if (!number) {
            return nullptr;
        }
        n[i] = *number;
    }
    const std::string unit = element.attribute("Unit").value();
    auto calibration = boost::make_shared<GeometricCalibration>();
    if (std::strcmp(element.attribute("Calibration").value(), "3d") == 0) {
        calibration->init3d(unit, n[0], n[1], n[2], n[3], n[4], n[5], n[6], n[7], n[8]);
    } else {
        calibration->init2d(unit, n[0], n[1], n[3], n[4], n[8]);
    }
    return calibration;
}

// Sizes that OME-XML can't hold (0, infinite, not a number) are missing there, so there is nothing to contradict.
bool agree(const GeometricCalibration& annotated, const CalibrationPtr& told)
{
    return !told || (annotated.getPixelSizeX() == told->getPixelSizeX() &&
                     annotated.getPixelSizeY() == told->getPixelSizeY() && annotated.is3d() == told->is3d() &&
                     (!annotated.is3d() || annotated.getPixelSizeZ() == told->getPixelSizeZ()) &&
                     omeUnitOf(annotated.getUnit()) == omeUnitOf(told->getUnit()));
}

// Binary is told by its samples of one bit alone: a file's bytes may hold any value.
eImageBufferType annotatedType(const std::string& name, const eImageBufferType& stored)
{
    for (const eImageBufferType::domain type : g_allBufferTypes) {
        if (name == getBufferTypeName(type) && type != eImageBufferType::eBufferBinary &&
            stored != eImageBufferType::eBufferBinary && elementSize(type) == elementSize(stored) &&
            getMinValue(type) == getMinValue(stored)) {
            return type;
        }
    }
    return stored;
}

pugi::xml_node findAnnotation(pugi::xml_node ome)
{
    const pugi::xml_node annotations = childNamed(ome, "StructuredAnnotations");
    for (const pugi::xml_node annotation : annotations.children()) {
        if (std::strcmp(annotation.attribute("Namespace").value(), g_namespace) == 0) {
            return childNamed(childNamed(annotation, "Value"), g_element);
        }
    }
    return {};
}

} // namespace

void addAnnotation(pugi::xml_node ome, const BaseImageGeometry& geometry, const CalibrationPtr& calibration)
{
    pugi::xml_node annotation = ome.append_child("StructuredAnnotations").append_child("XMLAnnotation");
    annotation.append_attribute("ID") = "Annotation:0";
    annotation.append_attribute("Namespace") = g_namespace;
    pugi::xml_node element = annotation.append_child("Value").append_child(g_element);
    element.append_attribute("ElementType") = getBufferTypeName(geometry.getBufferType());
    element.append_attribute("Volume") = geometry.getVolumeGeometry().is3d();
    element.append_attribute("Sequence") = geometry.getTemporalGeometry().isSequence();
    if (calibration) {
        element.append_attribute("Calibration") = calibration->is3d() ? "3d" : "2d";
        element.append_attribute("Unit") = calibration->getUnit().c_str();
        const auto numbers = numbersOf(*calibration);
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            element.append_attribute(g_numbers[i]) = numberText(numbers[i]).c_str();
        }
    }
}

void followAnnotation(pugi::xml_node ome, ImageMetadata& metadata)
{
    const pugi::xml_node element = findAnnotation(ome);
    if (!element) {
        return;
    }
    metadata.type = annotatedType(element.attribute("ElementType").value(), metadata.type);
    if (element.attribute("Volume").as_bool() && metadata.volume.getSizeZ() == 1) {
        metadata.volume.init3d(1);
    }
    if (element.attribute("Sequence").as_bool() && metadata.temporal.getSizeT() == 1) {
        metadata.temporal.initSequence(1);
    }
    const CalibrationPtr calibration = calibrationFrom(element);
    if (calibration && metadata.ignoredUnits.empty() && agree(*calibration, metadata.calibration)) {
        metadata.calibration = calibration;
    }
}

} // namespace orlix::image::io
