// An image of up to five axes, and how its pixels are reached.
#pragma once

#include "ORLIX/ORLIXMath/Simd/MemoryPlace.h"
#include "ORLIX/ORLIXUtil/ProcessingResult.h"
#include "ORLIXIPL/ORLIXImage/Export.h"
#include "ORLIXIPL/ORLIXImage/GeometricCalibration.h"
#include "ORLIXIPL/ORLIXImage/ImageGeometry.h"
#include "ORLIXIPL/ORLIXImage/ImageKind.h"

#include <boost/shared_ptr.hpp>

#include <cstddef>
#include <utility>
#include <vector>

namespace orlix::image {

/// Distances in elements from a row, plan, channel or time step to the next; a row's elements lie side by side.
struct BufferStrides
{
    unsigned long y, z, c, t;
};

/// Distances in elements from a pixel to the next one along each axis. Negative where that lies before it in memory.
struct ElementStrides
{
    long x, y, z, c, t;

    /// All five are given: four of them would be BufferStrides.
    constexpr ElementStrides(long alongX, long alongY, long alongZ, long alongC, long alongT)
        : x(alongX), y(alongY), z(alongZ), c(alongC), t(alongT)
    {}
};

/// Where one time step lies.
struct StepLayout;

/// What an image knows of the memory under it. Plans are addressed by byte distances. Where time steps don't follow one
/// pattern, since they differ in type or lie in different memory, a table tells where each of them lies; the distances
/// are then those of step 0. Any distance may be negative or, where pixels are only read, 0.
struct PixelLayout
{
    std::byte* first = nullptr; ///< element (0, 0, 0, 0, 0); null for an image without host pixels
    long pixelStride = 1;       ///< in elements, from a pixel of a row to the next; 1 where rows have one pixel or none
    long rowBytes = 0;          ///< from a row to the next
    long planBytes = 0;         ///< from a plan to the next
    long channelBytes = 0;      ///< from a channel to the next
    long stepBytes = 0;         ///< from a time step to the next; meaningless where there is a table
    boost::shared_ptr<const std::vector<StepLayout>> steps; ///< the table, null where one pattern says all
    bool bDense = true;                                     ///< rows touch, and so do their pixels
    bool bRoomBehindPlans = false;                          ///< 64 elements behind each plan may be read and written
    simd::eMemoryPlace place = simd::eMemoryPlace::secondLevelCache; ///< of the whole buffer, as far as its size tells
    eImageType imageType;                                            ///< whose memory it is
    boost::shared_ptr<void> owner;                                   ///< keeps the memory alive; of step 0
};

/// An image: geometry, optional calibration, pixels. Reading from several threads is safe; writing is the affair of
/// whoever holds a non-const image, on bytes that no other thread touches. A host image unless `isGpuImage()`.
class ORLIXIMAGE_API BaseImage
{
public:
    virtual ~BaseImage();
    BaseImage(const BaseImage&) = delete;
    BaseImage& operator=(const BaseImage&) = delete;

    eImageBufferType getBufferType() const { return m_geometry.getBufferType(); } ///< type of time step 0
    eImageBufferType getBufferType(unsigned long t) const { return m_geometry.getBufferType(t); }
    unsigned long getSizeX() const { return m_geometry.getSizeX(); }
    unsigned long getSizeY() const { return m_geometry.getSizeY(); }
    unsigned long getSizeZ() const { return m_geometry.getSizeZ(); }
    unsigned long getSizeC() const { return m_geometry.getSizeC(); }
    unsigned long getSizeT() const { return m_geometry.getSizeT(); }
    const BaseImageGeometry& getGeometry() const { return m_geometry; }

    bool hasGeometricCalibration() const { return m_calibration != nullptr; }
    /// Null where there is none.
    const boost::shared_ptr<const GeometricCalibration>& getGeometricCalibration() const { return m_calibration; }
    void setGeometricCalibration(const boost::shared_ptr<const GeometricCalibration>& calibration)
    {
        m_calibration = calibration;
    }

    eImageType getImageType() const { return m_layout.imageType; }
    eImageBaseType getImageBaseType() const
    {
        return isGpuImage() ? eImageBaseType::eGpuImage : eImageBaseType::eHostImage;
    }
    virtual bool isGpuImage() const { return false; }
    /// Asked of an output: must the input's place in memory be left out when elements are given to threads?
    virtual bool needsUnlocalizedInput() const { return false; }

    const PixelLayout& getPixelLayout() const { return m_layout; }
    /// First element of row y of plan (z, c, t), whose others follow by `getPixelStride(t)`. No bounds are checked.
    /// Null for an image without host pixels.
    std::byte* accessRow(unsigned long y, unsigned long z, unsigned long c, unsigned long t) const
    {
        if (m_layout.steps) {
            return accessRowOfStep(y, z, c, t);
        }
        return m_layout.first + static_cast<long>(y) * m_layout.rowBytes + static_cast<long>(z) * m_layout.planBytes +
               static_cast<long>(c) * m_layout.channelBytes + static_cast<long>(t) * m_layout.stepBytes;
    }
    /// Elements from a pixel of a row of time step t to the next; anything but 1 says that they don't lie side by side.
    long getPixelStride(unsigned long t) const { return m_layout.steps ? pixelStrideOfStep(t) : m_layout.pixelStride; }
    /// True where both are views of exactly the same pixels: same first element, same distances along axes longer than
    /// 1, same sizes and types. Two sub-image objects over one plan are.
    bool sharesPixelsWith(const BaseImage& other) const;

    /// Gives the image another geometry in place: the old time steps with more of them behind the last. No pixel moves,
    /// so whatever views or points to the old steps stays as it is; the elements of the new steps are undefined. Fails,
    /// changing nothing, for an image that doesn't own its pixels in host memory, a view of any image among them, and
    /// for a geometry that differs in more than added steps. Throws ORLIXImageException where the new steps can't be
    /// made, as `createImage` does; nothing is changed then either. No other thread may use the image meanwhile.
    [[nodiscard]] virtual ProcessingResult<bool> reinitialize(const BaseImageGeometry& geometry);

protected:
    BaseImage(BaseImageGeometry geometry, PixelLayout layout)
        : m_geometry(std::move(geometry)), m_layout(std::move(layout))
    {}
    /// View of part of `parent`: plans [z, z + sizeZ), channels [c, c + sizeC), steps [t, t + sizeT), whole in x and y.
    BaseImage(const BaseImage& parent, BaseImageGeometry geometry, unsigned long z, unsigned long c, unsigned long t);
    /// View of the time steps of all parts, in order.
    BaseImage(const std::vector<const BaseImage*>& parts, BaseImageGeometry geometry);

    void setGeometryAndLayout(BaseImageGeometry geometry, PixelLayout layout)
    {
        m_geometry = std::move(geometry);
        m_layout = std::move(layout);
    }

private:
    long pixelStrideOfStep(unsigned long t) const;
    std::byte* accessRowOfStep(unsigned long y, unsigned long z, unsigned long c, unsigned long t) const;

    BaseImageGeometry m_geometry;
    PixelLayout m_layout;
    boost::shared_ptr<const GeometricCalibration> m_calibration;
};

using ImagePtr = boost::shared_ptr<BaseImage>;
using ImageConstPtr = boost::shared_ptr<const BaseImage>;

} // namespace orlix::image

namespace orlix {
using image::ImageConstPtr;
using image::ImagePtr;
} // namespace orlix
