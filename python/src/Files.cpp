// Image files: read, write, info.
#include "Arguments.h"
#include "ImageCalibration.h"
#include "Operators.h"
#include "Watch.h"

#include "ORLIXIPL/ORLIXImageIO/ORLIXImageIO.h"

#include <nanobind/stl/optional.h>
#include <nanobind/stl/pair.h>
#include <nanobind/stl/string.h>
#include <nanobind/stl/vector.h>

namespace orlix::python {

namespace {

using namespace image::io;
using Span = std::optional<std::pair<unsigned long, unsigned long>>;

/// Looks for Ctrl-C at every plan, and tells the progress.
ProgressFunction watchWith(Watch& watch)
{
    return [&watch](unsigned long done, unsigned long known) { return watch.look(done, known); };
}

template <class TWork>
auto withoutLock(Watch& watch, const TWork& work)
{
    try {
        const nb::gil_scoped_release release;
        return work();
    } catch (...) {
        watch.rethrow();
        throw;
    }
}

/// `region` has first and end along x, y, z, c and t; None for the whole axis.
nb::object read(const std::string& path, const std::optional<std::vector<Span>>& region, nb::handle progress)
{
    Watch watch(progress, 0);
    ReadOptions options;
    options.progress = watchWith(watch);
    const ImagePtr image = withoutLock(watch, [&] {
        if (!region) {
            return readImage(path, options);
        }
        const auto first = [&](std::size_t axis) { return region->at(axis) ? region->at(axis)->first : 0; };
        const auto size = [&](std::size_t axis) -> std::optional<unsigned long> {
            const Span& span = region->at(axis);
            return span ? std::optional(span->second - span->first) : std::nullopt;
        };
        return readRegion(path, {first(0), first(1), first(2), first(3), first(4)},
                          {size(0), size(1), size(2), size(3), size(4)}, options);
    });
    return toPython(image);
}

eTiffCompression compressionNamed(const std::string& name)
{
    constexpr std::array<std::pair<const char*, eTiffCompression::domain>, 6> names = {
        {{"none", eTiffCompression::eNone},
         {"packbits", eTiffCompression::ePackBits},
         {"lzw", eTiffCompression::eLzw},
         {"deflate", eTiffCompression::eDeflate},
         {"zstd", eTiffCompression::eZstd},
         {"lzma", eTiffCompression::eLzma}}};
    for (const auto& [known, compression] : names) {
        if (name == known) {
            return compression;
        }
    }
    const std::string text =
        "compression '" + name + "': 'none', 'packbits', 'lzw', 'deflate', 'zstd' or 'lzma' is needed";
    throw nb::value_error(text.c_str());
}

void write(const std::string& path, const PyImage& image, nb::handle compression, bool bTiled, nb::handle progress)
{
    Watch watch(progress, 0);
    WriteOptions options;
    options.compression = compressionNamed(textOf(compression, "compression"));
    options.bTiled = bTiled;
    options.progress = watchWith(watch);
    withoutLock(watch, [&] {
        writeImage(path, image.image, options);
        return true;
    });
}

/// What `orlix.FileInfo` is made of.
nb::dict info(const std::string& path)
{
    const ImageFileInfo found = [&] {
        const nb::gil_scoped_release release;
        return readImageInfo(path);
    }();
    const std::string axes = axesOf(found.geometry);
    nb::list shape;
    for (const npy_intp size : sizesOf(found.geometry, axes)) {
        shape.append(size);
    }
    nb::dict fields;
    fields["format"] = found.format == eImageFileFormat::ePng ? "PNG" : "TIFF";
    fields["axes"] = axes;
    fields["shape"] = nb::tuple(shape);
    fields["dtype"] = dtypeOf(found.geometry.getBufferType());
    fields["element_type"] = image::getBufferTypeName(found.geometry.getBufferType());
    fields["pixel_size"] = pixelSizeOf(found.calibration.get(), axes);
    fields["unit"] = nb::none();
    if (found.calibration) {
        fields["unit"] = found.calibration->getUnit();
    }
    fields["compression"] = found.compression;
    fields["metadata"] = found.metadata;
    fields["pages"] = found.pages;
    fields["bits_per_sample"] = found.bitsPerSample;
    fields["tiled"] = found.bTiled;
    fields["file_bytes"] = found.fileBytes;
    return fields;
}

} // namespace

void bindFiles(nb::module_& module)
{
    module.def("read", &read, nb::arg("path"), nb::arg("region").none(), nb::arg("progress").none());
    module.def("write", &write, nb::arg("path"), nb::arg("image"), nb::arg("compression").none(), nb::arg("tiled"),
               nb::arg("progress").none());
    module.def("info", &info);
}

} // namespace orlix::python
