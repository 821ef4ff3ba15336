// Shape and element type of an image, without its pixels.
#pragma once

#include "ORLIXIPL/ORLIXImage/Export.h"
#include "ORLIXIPL/ORLIXImage/ImageBufferType.h"

#include <boost/shared_ptr.hpp>

#include <string>
#include <vector>

namespace orlix::image {

/// z axis: one plan, or a volume. A volume of one plan differs from a plan.
class VolumeGeometry
{
public:
    void init2d() { *this = {}; }
    void init3d(unsigned long sizeZ) { m_b3d = true, m_sizeZ = sizeZ; }

    bool is3d() const { return m_b3d; }
    unsigned long getSizeZ() const { return m_sizeZ; }
    friend bool operator==(const VolumeGeometry&, const VolumeGeometry&) = default;

private:
    bool m_b3d = false;
    unsigned long m_sizeZ = 1;
};

/// Channel axis: grey, or several channels.
class ColorGeometry
{
public:
    void initGrey() { *this = {}; }
    void initChannels(unsigned long sizeC) { m_sizeC = sizeC; }

    unsigned long getSizeC() const { return m_sizeC; }
    friend bool operator==(const ColorGeometry&, const ColorGeometry&) = default;

private:
    unsigned long m_sizeC = 1;
};

/// Time axis: a single image, or a sequence. A sequence of one step differs from a single image.
class TemporalGeometry
{
public:
    void initSingle() { *this = {}; }
    void initSequence(unsigned long sizeT) { m_bSequence = true, m_sizeT = sizeT; }

    bool isSequence() const { return m_bSequence; }
    unsigned long getSizeT() const { return m_sizeT; }
    friend bool operator==(const TemporalGeometry&, const TemporalGeometry&) = default;

private:
    bool m_bSequence = false;
    unsigned long m_sizeT = 1;
};

/// Five sizes (x, y, z, c, t), any of which may be 0, and one element type per time step, which is the same for all
/// steps unless the geometry was made from a vector that differs. A value: copied freely, no thread shares it in
/// writing.
class ORLIXIMAGE_API BaseImageGeometry
{
public:
    BaseImageGeometry() = default;
    BaseImageGeometry(const eImageBufferType& type, unsigned long sizeX, unsigned long sizeY,
                      const VolumeGeometry& volume, const ColorGeometry& color, const TemporalGeometry& temporal)
        : m_type(type), m_sizeX(sizeX), m_sizeY(sizeY), m_volume(volume), m_color(color), m_temporal(temporal)
    {}
    /// `types` has one entry per time step. Throws ORLIXImageException where their number is not the size of t.
    BaseImageGeometry(const std::vector<eImageBufferType>& types, unsigned long sizeX, unsigned long sizeY,
                      const VolumeGeometry& volume, const ColorGeometry& color, const TemporalGeometry& temporal);

    eImageBufferType getBufferType() const { return m_type; } ///< type of time step 0
    eImageBufferType getBufferType(unsigned long t) const { return m_types ? (*m_types)[t] : m_type; }
    bool hasUniformBufferType() const { return !m_types; }
    std::vector<eImageBufferType> getBufferTypeVector() const; ///< one entry per time step

    unsigned long getSizeX() const { return m_sizeX; }
    unsigned long getSizeY() const { return m_sizeY; }
    unsigned long getSizeZ() const { return m_volume.getSizeZ(); }
    unsigned long getSizeC() const { return m_color.getSizeC(); }
    unsigned long getSizeT() const { return m_temporal.getSizeT(); }
    const VolumeGeometry& getVolumeGeometry() const { return m_volume; }
    const ColorGeometry& getColorGeometry() const { return m_color; }
    const TemporalGeometry& getTemporalGeometry() const { return m_temporal; }

    /// z * c * t, 0 where any of them is 0; throws ORLIXImageException where the product overflows.
    unsigned long getNbPlans() const;
    /// Product of the five sizes, 0 where any of them is 0; throws ORLIXImageException where it overflows.
    unsigned long getNbPixels() const;

    bool hasSameSizes(const BaseImageGeometry& other) const ///< compares the five sizes
    {
        return getSizeX() == other.getSizeX() && getSizeY() == other.getSizeY() && getSizeZ() == other.getSizeZ() &&
               getSizeC() == other.getSizeC() && getSizeT() == other.getSizeT();
    }
    /// Compares the types step by step; two geometries of one type each are the same whatever their sizes of t.
    bool hasSameBufferTypes(const BaseImageGeometry& other) const ///< compares the types of all steps
    {
        const bool bBothUniform = !m_types && !other.m_types;
        return bBothUniform ? m_type == other.m_type : hasSameBufferTypeVector(other);
    }
    std::string toString() const; ///< "512x256x1x1x1 UInt8"; types that change between steps are joined by "/"

private:
    friend class BaseImage;

    bool hasSameBufferTypeVector(const BaseImageGeometry& other) const;

    eImageBufferType m_type;
    unsigned long m_sizeX = 0;
    unsigned long m_sizeY = 0;
    VolumeGeometry m_volume;
    ColorGeometry m_color;
    TemporalGeometry m_temporal;
    boost::shared_ptr<const std::vector<eImageBufferType>> m_types; ///< null where all steps have m_type
};

ORLIXIMAGE_API boost::shared_ptr<BaseImageGeometry> geometry2d(const eImageBufferType& type, unsigned long sizeX,
                                                               unsigned long sizeY);
ORLIXIMAGE_API boost::shared_ptr<BaseImageGeometry> geometry3d(const eImageBufferType& type, unsigned long sizeX,
                                                               unsigned long sizeY, unsigned long sizeZ);
/// `sizeZ` 1 gives a 2d volume geometry, `sizeT` 1 a single image.
ORLIXIMAGE_API boost::shared_ptr<BaseImageGeometry> geometry5d(const eImageBufferType& type, unsigned long sizeX,
                                                               unsigned long sizeY, unsigned long sizeZ,
                                                               unsigned long sizeC, unsigned long sizeT);

} // namespace orlix::image
