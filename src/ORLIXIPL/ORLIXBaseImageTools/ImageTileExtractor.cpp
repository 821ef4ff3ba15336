#include "ORLIXIPL/ORLIXBaseImageTools/ImageTileExtractor.h"

#include "ORLIXIPL/ORLIXBaseImageTools/Logger/ORLIXBaseImageToolsLogMessages.h"
#include "ORLIXIPL/ORLIXImage/PixelRun.h"

#include <cstring>

namespace orlix::image {

using tools::eORLIXBaseImageToolsMessage;

namespace {

template <class... TArgs>
ProcessingResult<bool> failure(eORLIXBaseImageToolsMessage::domain id, const TArgs&... args)
{
    return ProcessingResult<bool>::failure(formatMessage<eORLIXBaseImageToolsMessage>(id, args...));
}

bool canExist(const Tile3dCoords& coords, const eImageBufferType& type)
{
    unsigned long bytes = elementSize(type) + sizeof(void*); // of an element and, at worst, its line
    return !__builtin_mul_overflow(bytes, coords.sizeX == 0 ? 1 : coords.sizeX, &bytes) &&
           !__builtin_mul_overflow(bytes, coords.sizeY, &bytes) &&
           !__builtin_mul_overflow(bytes, coords.sizeZ, &bytes) && bytes <= ~0UL >> 1;
}

/// Copies a line of the tile pixel by pixel: part of it lies beyond the border.
template <class TWord>
void copyLine(const std::byte* row, long stride, unsigned long sizeX, const Tile3dCoords& coords, BorderFunction border,
              std::byte* to)
{
    const auto pixelBytes = stride * static_cast<long>(sizeof(TWord));
    for (unsigned long i = 0; i < coords.sizeX; ++i) {
        std::memcpy(to + i * sizeof(TWord), row + static_cast<long>(border(coords.originX + i, sizeX)) * pixelBytes,
                    sizeof(TWord));
    }
}

ProcessingResult<bool> extract(const BaseImage& image, const Tile3dCoords& coords, const Border3dPolicy& policy,
                               BaseImageTile& tile)
{
    const unsigned long sizeX = image.getSizeX();
    const unsigned long sizeY = image.getSizeY();
    const unsigned long sizeZ = image.getSizeZ();
    if (sizeX == 0 || sizeY == 0 || sizeZ == 0) {
        return failure(eORLIXBaseImageToolsMessage::eNoPixels, image.getGeometry().toString());
    }
    if (!image.getPixelLayout().first) {
        return failure(eORLIXBaseImageToolsMessage::eNoHostPixels, image.getGeometry().toString());
    }
    const eImageBufferType type = image.getBufferType();
    if (!canExist(coords, type)) {
        return failure(eORLIXBaseImageToolsMessage::eTileTooLarge, coords.sizeX, coords.sizeY, coords.sizeZ);
    }
    const unsigned long size = elementSize(type);
    const long stride = image.getPixelStride(0);
    const bool bWithinLines = coords.originX < sizeX && coords.sizeX <= sizeX - coords.originX;
    const bool bWholeLines = bWithinLines && stride == 1;
    tile.resize(type, coords.sizeX, coords.sizeY, coords.sizeZ);
    std::byte* copy = bWholeLines ? nullptr : tile.accessCopy();
    for (unsigned long plan = 0; plan < coords.sizeZ; ++plan) {
        const unsigned long z = policy.z(coords.originZ + plan, sizeZ);
        for (unsigned long line = 0; line < coords.sizeY; ++line) {
            const std::byte* const row = image.accessRow(policy.y(coords.originY + line, sizeY), z, 0, 0);
            const unsigned long index = plan * coords.sizeY + line;
            if (bWholeLines) {
                tile.setLine(index, row + coords.originX * size);
                continue;
            }
            if (bWithinLines) {
                copyRun(copy, 1, row + static_cast<long>(coords.originX * size) * stride, stride, coords.sizeX, size);
            } else if (size == 1) {
                copyLine<std::uint8_t>(row, stride, sizeX, coords, policy.x, copy);
            } else if (size == 2) {
                copyLine<std::uint16_t>(row, stride, sizeX, coords, policy.x, copy);
            } else {
                copyLine<std::uint32_t>(row, stride, sizeX, coords, policy.x, copy);
            }
            tile.setLine(index, copy);
            copy += coords.sizeX * size;
        }
    }
    return true;
}

} // namespace

ProcessingResult<bool> ImageTileExtractor::extractInputTile2d(const BaseImage& image, const Tile2dCoords& coords,
                                                              const Border2dPolicy& policy, InputImageTile2d& tile)
{
    if (image.getSizeZ() > 1 || image.getSizeC() != 1 || image.getSizeT() != 1) {
        return failure(eORLIXBaseImageToolsMessage::eNotOnePlan, image.getGeometry().toString());
    }
    return extract(image, {coords.originX, coords.originY, 0, coords.sizeX, coords.sizeY, 1},
                   {policy.x, policy.y, &mirorPosition}, tile);
}

ProcessingResult<bool> ImageTileExtractor::extractInputTile3d(const BaseImage& image, const Tile3dCoords& coords,
                                                              const Border3dPolicy& policy, InputImageTile3d& tile)
{
    if (image.getSizeC() != 1 || image.getSizeT() != 1) {
        return failure(eORLIXBaseImageToolsMessage::eNotOneVolume, image.getGeometry().toString());
    }
    return extract(image, coords, policy, tile);
}

} // namespace orlix::image
