// Where the plans of an image lie on its device, as kernels take it.
#pragma once

#include "ORLIXIPL/ORLIXBaseImageTools/Export.h"
#include "ORLIXIPL/ORLIXImage/CudaImage.h"

namespace orlix::image::tools {

namespace details {
/// Holds the image's table; `bTypeMatches(type)` is asked for the type of each time step.
ORLIXBASEIMAGETOOLS_API void* holdTable(const CudaImage& image, bool (*bTypeMatches)(const eImageBufferType&));
} // namespace details

/// A table on the image's device of the address there of each plan, z first, then c, then t: that of plan (z, c, t) is
/// entry z + sizeZ * (c + sizeC * t). Null for an image without pixels. The table belongs to the image's pixels: it is
/// made once, is valid as long as any image over them lives, and is given again by the next call, for a view as for the
/// whole. Selects the image's device for the calling thread. May be called from any thread. Throws ORLIXImageException
/// for a T that isn't the storage type of every time step, and, with the text of the device's layer, where the table
/// can't be made.
template <class T>
T const** extractBufferDataCollToGpu(CudaImage const& image)
{
    return static_cast<T const**>(details::holdTable(image, &isStorageType<T>));
}
/// The same, for plans that are written.
template <class T>
T** extractBufferDataCollToGpu(CudaImage& image)
{
    return static_cast<T**>(details::holdTable(image, &isStorageType<T>));
}

/// Says that a table is no longer used: drops the hold that `extractBufferDataCollToGpu` took. Neither the image nor
/// the table goes, since the next kernel over the image wants the same one; who never says it leaves nothing behind
/// that would not end with the image. Null is nothing to drop, and so is a table whose image is gone. May be called
/// from any thread.
template <class T>
void freeBufferDataColl(T const** table)
{
    CudaImage::dropPlanTable(table);
}
/// The same, for plans that were written.
template <class T>
void freeBufferDataColl(T** table)
{
    CudaImage::dropPlanTable(table);
}

} // namespace orlix::image::tools
