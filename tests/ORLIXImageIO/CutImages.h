// Regions of files against the same regions cut out of the whole image by plain loops.
#pragma once

#include "ORLIXImageIO/FilledImages.h"
#include "ORLIXImageIO/TestFiles.h"

#include <array>
#include <random>

namespace orlix::image::io::test {

using FiveNumbers = std::array<unsigned long, 5>; ///< x, y, z, c, t

inline FiveNumbers sizesOf(const BaseImage& image)
{
    return {image.getSizeX(), image.getSizeY(), image.getSizeZ(), image.getSizeC(), image.getSizeT()};
}

inline RegionOffsets offsetsOf(const FiveNumbers& n)
{
    return {n[0], n[1], n[2], n[3], n[4]};
}

inline RegionSizes regionSizesOf(const FiveNumbers& n)
{
    return {n[0], n[1], n[2], n[3], n[4]};
}

/// The elements of `whole` from `first` on.
inline ImagePtr cut(const BaseImage& whole, const FiveNumbers& first, const FiveNumbers& sizes)
{
    VolumeGeometry volume = whole.getGeometry().getVolumeGeometry();
    if (volume.is3d()) {
        volume.init3d(sizes[2]);
    }
    TemporalGeometry temporal = whole.getGeometry().getTemporalGeometry();
    if (temporal.isSequence()) {
        temporal.initSequence(sizes[4]);
    }
    ColorGeometry color;
    color.initChannels(sizes[3]);
    const ImagePtr part = createImage({whole.getBufferType(), sizes[0], sizes[1], volume, color, temporal});
    const unsigned long bytes = elementSize(whole.getBufferType());
    for (unsigned long t = 0; t < sizes[4]; ++t) {
        for (unsigned long c = 0; c < sizes[3]; ++c) {
            for (unsigned long z = 0; z < sizes[2]; ++z) {
                for (unsigned long y = 0; y < sizes[1]; ++y) {
                    std::memcpy(part->accessRow(y, z, c, t),
                                whole.accessRow(y + first[1], z + first[2], c + first[3], t + first[4]) +
                                    first[0] * bytes,
                                sizes[0] * bytes);
                }
            }
        }
    }
    return part;
}

/// Sizes, types, kinds of axes and pixels.
inline ::testing::AssertionResult areSameButForCalibration(const BaseImage& expected, const BaseImage& found)
{
    if (const auto pixels = orlix::testing::sameImages(expected, found); !pixels) {
        return pixels;
    }
    const BaseImageGeometry& a = expected.getGeometry();
    const BaseImageGeometry& b = found.getGeometry();
    return a.getVolumeGeometry() == b.getVolumeGeometry() && a.getTemporalGeometry() == b.getTemporalGeometry()
               ? ::testing::AssertionSuccess()
               : ::testing::AssertionFailure() << "kinds of axes differ";
}

/// `readPart` gives, for the whole, its last pixel and regions drawn from a seed, some of them of whole rows, what
/// `cut` makes of `whole`.
template <class TReadPart>
::testing::AssertionResult regionsAreCuts(const BaseImage& whole, TReadPart&& readPart)
{
    const FiveNumbers sizes = sizesOf(whole);
    std::mt19937 random(7);
    for (int turn = 0; turn < 12; ++turn) {
        const bool bWholeRows = turn > 7;
        FiveNumbers first{}, part = sizes;
        for (std::size_t axis = bWholeRows ? 1 : 0; axis < 5 && turn > 0; ++axis) {
            first[axis] = turn == 1 ? sizes[axis] - 1 : random() % sizes[axis];
            part[axis] = turn == 1 ? 1 : 1 + random() % (sizes[axis] - first[axis]);
        }
        const auto same = areSameButForCalibration(*cut(whole, first, part), *readPart(first, part));
        if (!same) {
            return ::testing::AssertionFailure() << "at " << ::testing::PrintToString(first) << ", of "
                                                 << ::testing::PrintToString(part) << ": " << same.message();
        }
    }
    return ::testing::AssertionSuccess();
}

inline ::testing::AssertionResult regionsOfFileAreCuts(const boost::filesystem::path& file)
{
    return regionsAreCuts(*readImage(file), [&](const FiveNumbers& first, const FiveNumbers& sizes) {
        return readRegion(file, offsetsOf(first), regionSizesOf(sizes));
    });
}

/// Of a TIFF or PNG file in memory.
inline ::testing::AssertionResult regionsAreCuts(const std::string& content)
{
    const bool bPng = content.starts_with("\x89PNG");
    const auto bytes = bytesOf(content);
    return regionsAreCuts(*(bPng ? readPng(bytes) : readTiff(bytes)),
                          [&](const FiveNumbers& first, const FiveNumbers& sizes) {
                              const RegionOffsets offsets = offsetsOf(first);
                              return bPng ? readPngRegion(bytes, offsets, regionSizesOf(sizes))
                                          : readTiffRegion(bytes, offsets, regionSizesOf(sizes));
                          });
}

} // namespace orlix::image::io::test
