// How operators that look at each pixel by itself are called: on images, and on arrays of any shape.
#pragma once

#include "ArrayBlocks.h"
#include "PyImage.h"
#include "WalkedArrays.h"
#include "Watch.h"

#include <optional>

namespace orlix::python {

bool haveSameSizes(PyArrayObject* one, PyArrayObject* other);
std::string shapeText(nb::handle array);

/// The array to write to: `out`, checked against input and type, or a new one.
nb::object outputFor(nb::handle array, nb::handle out, const image::eImageBufferType& type);
/// The image of an orlix.Image that was given as `out`, null for None.
ImagePtr imageOutput(nb::handle out);

/// Does the operator on images in the caller's frame, where that takes neither a processor nor a look at Ctrl-C. False:
/// nothing has been done.
template <class TProcessor, class... TValues>
[[nodiscard]] bool runStraight(const Watch& watch, const TValues&... values)
{
    if (watch.isWatched()) {
        return false;
    }
    const LongWork work(watch.getBytes());
    return processor::runStraight<TProcessor>(values...);
}

/// Runs `operation(blocks, watch)` on each block of arrays of the same sizes, the last of which is written.
template <class TOperation>
void applyToBlocks(std::span<const nb::object> arrays, nb::handle progress, const TOperation& operation)
{
    const nb::object& output = arrays.back();
    ArrayBlocks blocks(arrays, true);
    requireDistinct(asArray(output));
    Watch watch(progress, blocks.getSize() * static_cast<unsigned long>(PyArray_ITEMSIZE(asArray(output))));
    while (blocks.next()) {
        Watch ofBlock(nb::none(), blocks.getBlockBytes());
        operation(blocks, ofBlock);
        blocks.bringBack();
        watch.lookBetween(blocks.getDone(), blocks.getSize());
    }
}

/// Runs the operator from `image` to `out`: on an Image, where it makes an output that is not given itself, or on an
/// array. `type` is that of an array's output, the input's where there is none.
template <class TProcessor, class TInput, class TOutput, class... TValues>
nb::object applyPixelwise(nb::handle image, nb::handle out, const std::optional<image::eImageBufferType>& type,
                          nb::handle progress, const TValues&... values)
{
    using processor::with;
    // Arrays first: they may be so small that asking for an Image takes longer than the work.
    if (const PyImage* const given = isArray(image) ? nullptr : findImage(image)) {
        Watch watch(progress, bytesOf(*given->image));
        if (const ImagePtr output = imageOutput(out)) {
            run<TProcessor>(watch, with<TInput>(given->image), values..., with<TOutput>(output));
            return nb::borrow(out);
        }
        return toPython(runForOutput<TProcessor, TOutput>(watch, with<TInput>(given->image), values...), given->axes);
    }
    const nb::object array = takeArray(image, "image");
    nb::object output = outputFor(array, out, type ? *type : elementTypeOf(asArray(array)));
    if (PyArray_SIZE(asArray(array)) == 0) {
        return output;
    }
    const auto runOn = [&](Watch& watch, const ImagePtr& in, const ImagePtr& written) {
        run<TProcessor>(watch, with<TInput>(in), values..., with<TOutput>(written));
    };
    const WalkedArrays walked({array, output});
    if (!walked.isWrapped()) {
        const std::array<nb::object, 2> arrays = {array, output};
        applyToBlocks(arrays, progress, [&](const ArrayBlocks& blocks, Watch& watch) {
            runOn(watch, blocks.imageOf(0), blocks.imageOf(1));
        });
        return output;
    }
    Watch watch(progress, static_cast<unsigned long>(PyArray_NBYTES(asArray(array))));
    image::WrappedImage in = walked.wrap(0);
    image::WrappedImage written = walked.wrap(1);
    if (!runStraight<TProcessor>(watch, with<TInput>(in.lend()), values..., with<TOutput>(written.lend()))) {
        runOn(watch, walked.imageOf(0), walked.imageOf(1));
    }
    return output;
}

} // namespace orlix::python
