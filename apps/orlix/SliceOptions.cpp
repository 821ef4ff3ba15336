// Reading and checking slice options.
#include "SliceOptions.h"

#include "CommandMessages.h"

#include "ORLIX/ORLIXUtil/Raise.h"

#include <boost/make_shared.hpp>

#include <charconv>

namespace orlix::cli {

namespace {

using imaproc::eAxis;

std::optional<std::string> readIndex(const std::string& text, GivenValue<long>& index)
{
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, index.value);
    if (error != std::errc() || stop != end) {
        return formatMessage<eCommandMessage>(eCommandMessage::eBadOption, "a whole number", text, "");
    }
    index.text = text;
    return std::nullopt;
}

} // namespace

void addSliceOptions(OptionList& list, SliceOptions& options)
{
    list.addChoice(
            "--axis", {"x", "y", "z"},
            [&options](std::size_t index) { options.axis = static_cast<eAxis::domain>(index); },
            "Axis that the slice is perpendicular to, needed")
        .required();
    list.add(
            "--index", [&options](const std::string& text) { return readIndex(text, options.index); },
            "Number of the slice on that axis, from 0; -1 is the last, -2 the\n"
            "one before; needed")
        .valueName("N")
        .required();
    list.setFooter([] {
        return std::string("The two axes that stay keep their order:\n"
                           "  --axis x   a slice has y across and z down\n"
                           "  --axis y   a slice has x across and z down\n"
                           "  --axis z   a slice has x across and y down: it is a plan\n"
                           "Every channel and time step of the volume has its slice.");
    });
}

SliceAxis sliceAxis(const SliceOptions& options, const image::BaseImageGeometry& geometry)
{
    return options.axis == eAxis::eX   ? SliceAxis{"x", geometry.getSizeX()}
           : options.axis == eAxis::eY ? SliceAxis{"y", geometry.getSizeY()}
                                       : SliceAxis{"z", geometry.getSizeZ()};
}

unsigned long sliceIndex(const SliceOptions& options, const image::BaseImageGeometry& geometry, const std::string& file)
{
    if (!geometry.getVolumeGeometry().is3d()) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eNoVolume, file, geometry.toString());
    }
    const auto [name, size] = sliceAxis(options, geometry);
    const long index = options.index.value;
    const unsigned long fromEnd = 0ul - static_cast<unsigned long>(index);
    if (index < 0 ? fromEnd > size : static_cast<unsigned long>(index) >= size) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eIndexBeyond, options.index.text, file, geometry.toString(),
                               name, size - 1, size);
    }
    return index < 0 ? size - fromEnd : static_cast<unsigned long>(index);
}

boost::shared_ptr<const image::GeometricCalibration>
calibrationOfSlice(const boost::shared_ptr<const image::GeometricCalibration>& volume, const eAxis& axis)
{
    if (!volume || (axis != eAxis::eZ && !volume->is3d())) {
        return nullptr;
    }
    const bool bAlongX = axis == eAxis::eX, bAlongZ = axis == eAxis::eZ;
    auto slice = boost::make_shared<image::GeometricCalibration>();
    slice->init2d(volume->getUnit(), bAlongX ? volume->getPixelSizeY() : volume->getPixelSizeX(),
                  bAlongZ ? volume->getPixelSizeY() : volume->getPixelSizeZ(),
                  bAlongX ? volume->getOriginY() : volume->getOriginX(),
                  bAlongZ ? volume->getOriginY() : volume->getOriginZ());
    return slice;
}

} // namespace orlix::cli
