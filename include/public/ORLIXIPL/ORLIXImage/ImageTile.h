// A tile: a rectangle or box of pixels, also beyond the border of its image.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"

namespace orlix::image {

/// Lines of pixels, each side by side in memory: the image's own where it has them so, else a copy. Lives no longer
/// than the image that it was taken from. Filled by ImageTileExtractor, as often as wanted; keeps its memory.
class BaseImageTile
{
public:
    BaseImageTile() = default;
    BaseImageTile(const BaseImageTile&) = delete;
    BaseImageTile& operator=(const BaseImageTile&) = delete;
    BaseImageTile(BaseImageTile&&) = default;
    BaseImageTile& operator=(BaseImageTile&&) = default;

    eImageBufferType getImageBufferType() const { return m_type; }
    unsigned long getSizeX() const { return m_sizeX; }
    unsigned long getSizeY() const { return m_sizeY; }

    /// Makes room for a tile of so many pixels, none of them filled. Throws std::bad_alloc.
    void resize(const eImageBufferType& type, unsigned long sizeX, unsigned long sizeY, unsigned long sizeZ)
    {
        m_type = type;
        m_sizeX = sizeX;
        m_sizeY = sizeY;
        m_sizeZ = sizeZ;
        m_lines.resize(sizeY * sizeZ);
    }
    /// Line `line` lies there.
    void setLine(unsigned long line, const std::byte* first) { m_lines[line] = first; }
    /// Room for a copy of all lines, one behind the other.
    std::byte* accessCopy()
    {
        m_copy.resize(m_lines.size() * m_sizeX * elementSize(m_type));
        return m_copy.data();
    }

protected:
    const std::byte* getLine(unsigned long line) const { return m_lines[line]; }
    unsigned long getNbPlans() const { return m_sizeZ; }

private:
    eImageBufferType m_type;
    unsigned long m_sizeX = 0;
    unsigned long m_sizeY = 0;
    unsigned long m_sizeZ = 0;
    std::vector<const std::byte*> m_lines;
    std::vector<std::byte> m_copy;
};

/// A rectangle of a plan.
class BaseImageTile2d : public BaseImageTile
{
public:
    /// First element of line `line` of the tile.
    const void* accessBuffer(unsigned long line) const { return getLine(line); }
};
class InputImageTile2d : public BaseImageTile2d
{};

/// A box of a volume.
class BaseImageTile3d : public BaseImageTile
{
public:
    unsigned long getSizeZ() const { return getNbPlans(); }
    /// First element of line `line` of plan `plan` of the tile.
    const void* accessBuffer(unsigned long line, unsigned long plan) const { return getLine(plan * getSizeY() + line); }
};
class InputImageTile3d : public BaseImageTile3d
{};

} // namespace orlix::image
