// What verbs print about an image: axes, type and calibration.
#include "DescribeImage.h"

#include "PlainText.h"

#include <array>
#include <vector>

namespace orlix::cli {

namespace {

constexpr std::array<const char*, 5> g_axes = {"x", "y", "z", "c", "t"};

std::array<unsigned long, 5> sizesOf(const image::BaseImageGeometry& geometry)
{
    return {geometry.getSizeX(), geometry.getSizeY(), geometry.getSizeZ(), geometry.getSizeC(), geometry.getSizeT()};
}

/// The values along x, y and, for a 3d calibration, z.
std::vector<float> alongAxes(const image::GeometricCalibration& calibration, float x, float y, float z)
{
    return calibration.is3d() ? std::vector<float>{x, y, z} : std::vector<float>{x, y};
}

std::vector<float> pixelSizesOf(const image::GeometricCalibration& calibration)
{
    return alongAxes(calibration, calibration.getPixelSizeX(), calibration.getPixelSizeY(),
                     calibration.getPixelSizeZ());
}

std::vector<float> originOf(const image::GeometricCalibration& calibration)
{
    return alongAxes(calibration, calibration.getOriginX(), calibration.getOriginY(), calibration.getOriginZ());
}

std::array<float, 3> rotationOf(const image::GeometricCalibration& calibration)
{
    return {calibration.getRotationX(), calibration.getRotationY(), calibration.getRotationZ()};
}

template <class TNumbers>
std::string joined(const TNumbers& numbers, const char* separator)
{
    std::string text;
    for (const float number : numbers) {
        text.append(text.empty() ? "" : separator).append(shortest(number));
    }
    return text;
}

template <class TNumbers>
void writeAlongAxes(JsonWriter& json, const char* name, const TNumbers& numbers)
{
    json.key(name);
    json.beginObject();
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        json.member(g_axes[i], numbers[i]);
    }
    json.endObject();
}

} // namespace

std::string describeAxes(const image::BaseImageGeometry& geometry)
{
    std::string text;
    const std::array<unsigned long, 5> sizes = sizesOf(geometry);
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        text.append(text.empty() ? "" : ", ").append(g_axes[i]).append(" ").append(std::to_string(sizes[i]));
    }
    return text;
}

std::string describeCalibration(const boost::shared_ptr<const image::GeometricCalibration>& calibration)
{
    if (!calibration) {
        return "none";
    }
    const std::string unit = printable(calibration->getUnit());
    std::string text = joined(pixelSizesOf(*calibration), " x ") + " " + unit + " per pixel, origin " +
                       joined(originOf(*calibration), ", ") + " " + unit;
    const std::array<float, 3> rotation = rotationOf(*calibration);
    if (rotation != std::array<float, 3>{0, 0, 0}) {
        text += ", rotated by " + joined(rotation, ", ") + " rad about x, y, z";
    }
    return text;
}

void writeImageMembers(JsonWriter& json, const image::BaseImageGeometry& geometry,
                       const boost::shared_ptr<const image::GeometricCalibration>& calibration)
{
    writeAlongAxes(json, "size", sizesOf(geometry));
    json.member("type", image::getBufferTypeName(geometry.getBufferType()));
    json.key("calibration");
    if (!calibration) {
        json.null();
        return;
    }
    json.beginObject();
    json.member("unit", calibration->getUnit());
    writeAlongAxes(json, "pixelSize", pixelSizesOf(*calibration));
    writeAlongAxes(json, "origin", originOf(*calibration));
    writeAlongAxes(json, "rotation", rotationOf(*calibration));
    json.endObject();
}

} // namespace orlix::cli
