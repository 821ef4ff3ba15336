// An image in the memory of a CUDA device, and the way there and back.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"

namespace orlix::image {

class DeviceMemory;

/// An image whose pixels lie on a CUDA device. It has no host pixels: whatever reads or writes pixels on the host
/// refuses it, and `accessRow` throws ORLIXImageException. Rows touch, and every plan starts on a multiple of 256
/// bytes. A view shares the memory and keeps it alive, as it is with images of the host; the memory is given back with
/// the last of them. The layer of devices that it was made with has to live longer.
class ORLIXIMAGE_API CudaImage final : public BaseImage
{
public:
    /// A new image of undefined elements; throws as `createCudaImage`.
    CudaImage(const BaseImageGeometry& geometry, int device);
    /// View of part of `parent`: plans [z, z + sizeZ), channels [c, c + sizeC), time steps [t, t + sizeT) of it, whole
    /// in x and y. `geometry` is the view's own; no bounds are checked. Takes the parent's calibration.
    CudaImage(const CudaImage& parent, BaseImageGeometry geometry, unsigned long z, unsigned long c, unsigned long t);
    /// View of the time steps of all `parts`, in order, as one sequence. The parts agree in device and in all other
    /// sizes, `geometry` tells the type of every step; nothing is checked. Takes the first part's calibration.
    CudaImage(const std::vector<const CudaImage*>& parts, BaseImageGeometry geometry);
    ~CudaImage() override;

    bool isGpuImage() const override { return true; }
    /// Always a failure: images grow in place on the host alone.
    [[nodiscard]] ProcessingResult<bool> reinitialize(const BaseImageGeometry& geometry) override;
    /// Counts from 0.
    int getDeviceIndex() const;
    /// Where plan (z, c, t) starts on the device. No bounds are checked; null for an image without pixels.
    std::byte* getPlanAddress(unsigned long z, unsigned long c, unsigned long t) const;
    /// As `sharesPixelsWith`, which asks this for two images on devices.
    bool sharesDevicePixelsWith(const CudaImage& other) const;

    /// The addresses of all plans as a table on the device, z first, then c, then t: plan (z, c, t) is entry
    /// z + sizeZ * (c + sizeC * t). Null for an image without pixels. The table is made and uploaded when it is first
    /// asked for, is the same from then on, and lives as long as the pixels; no call leaves more memory behind than the
    /// first of its kind. Selects the image's device for the calling thread. Counts as a hold until it is dropped. May
    /// be called from any thread. Throws ORLIXImageException with the text of the device's layer where it can't be
    /// made; the next call tries again. See `tools::extractBufferDataCollToGpu`.
    void* holdPlanTable() const;
    /// Drops one hold on a table; the table stays. A null table and one whose pixels are gone are nothing to drop. May
    /// be called from any thread.
    static void dropPlanTable(const void* table);
    /// How many holds on tables of these pixels have not been dropped, those of all views together.
    unsigned long getNbPlanTableHolds() const;

private:
    friend ORLIXIMAGE_API ImagePtr toDevice(const BaseImage& image, int device);
    friend ORLIXIMAGE_API ImagePtr toHost(const BaseImage& image);

    /// A plan, as the image counts that the memory was made for.
    struct Origin
    {
        unsigned long z, c, t;
        friend bool operator==(const Origin&, const Origin&) = default;
    };

    CudaImage(const BaseImageGeometry& geometry, const boost::shared_ptr<DeviceMemory>& memory);
    /// Has every plan the address of its like? The sizes are the same.
    bool hasPlansOf(const CudaImage& other) const;

    boost::shared_ptr<DeviceMemory> m_memory;
    Origin m_origin{}; ///< of the first plan
};

/// A new image of undefined elements on a device, of any sizes, types and time steps that an image can have. Throws
/// ORLIXImageException, naming sizes, device and the text of the device's layer, where a step has no type, the bytes
/// overflow, there is no such device (or no driver, or ORLIX was built without CUDA), or the memory can't be had there.
/// Selects the device for the calling thread, as all functions here do. May be called from any thread.
ORLIXIMAGE_API ImagePtr createCudaImage(const BaseImageGeometry& geometry, int device = 0);

/// A new image of undefined elements in the memory that `image` lies in: on its device, or of the host. Throws as
/// `createCudaImage` or `createImage`.
ORLIXIMAGE_API ImagePtr createImageBeside(const BaseImage& image, const BaseImageGeometry& geometry);

/// A new image on a device with the geometry, elements and calibration of `image`: of the host, whatever its rows and
/// plans lie like, or of any device. Waits until all is there. Throws as `createCudaImage`, and, with the text of the
/// device's layer, where the elements can't be moved; nothing stays on the device then. Throws ORLIXImageException,
/// too, for an image that is neither on a device nor has host pixels.
ORLIXIMAGE_API ImagePtr toDevice(const BaseImage& image, int device = 0);

/// A new image of the host with the geometry, elements and calibration of `image`: of any device, or of the host. Waits
/// for what is under way on the device. Throws as `createImage`, and, with the text of the device's layer, where the
/// elements can't be moved: an image that isn't whole is never given.
ORLIXIMAGE_API ImagePtr toHost(const BaseImage& image);

} // namespace orlix::image
