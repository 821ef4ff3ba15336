// Tool tips of the processors, and messages of the operators.
#include "ORLIXIPL/ORLIXIPLUtility/Logger/ProcessorLogMessages.h"

#include "ORLIX/ORLIXUtil/CatalogueRegistration.h"
#include "ORLIXIPL/ORLIXIPLUtility/Logger/ORLIXIPLUtilityLog.h"

namespace orlix {

LibraryLog& MessageCatalogue<imaproc::util::eProcessorMessage>::log()
{
    return imaproc::util::getORLIXIPLUtilityLog();
}

const std::vector<MessageText>& MessageCatalogue<imaproc::util::eProcessorMessage>::texts()
{
    using Message = imaproc::util::eProcessorMessage;
    static const std::vector<MessageText> g_texts = {
        {Message::eAppendSeqImgLvl1, "Concatenation of 2 image sequences algorithm level 1"},
        {Message::eBasicThresholdImgGpuLvl3, "Level 2 algorithm: binary basic threshold on one image on Gpu"},
        {Message::eBasicThresholdImgLvl1, "Level 1 algorithm: binary basic threshold on one image"},
        {Message::eBasicThresholdImgLvl2, "Level 2 algorithm: binary basic threshold on one image"},
        {Message::eBasicThresholdImgLvl3, "Level 3 algorithm: binary basic threshold on one image"},
        {Message::eBuildLines2dImgGpuLvl3, "Level 2 algorithm: Generates a binary image with oriented lines  on Gpu"},
        {Message::eBuildLines2dImgLvl1, "Level 1 algorithm: Generates a binary image with oriented lines"},
        {Message::eBuildLines2dImgLvl2, "Level 2 algorithm: Generates a binary image with oriented lines"},
        {Message::eBuildLines2dImgLvl3, "Level 3 algorithm: Generates a binary image with oriented lines"},
        {Message::eBuildLines3dImgGpuLvl3,
         "Level 2 algorithm: Generates a 3D binary image with oriented lines  on Gpu"},
        {Message::eBuildLines3dImgLvl1, "Level 1 algorithm: Generates a 3D binary image with oriented lines"},
        {Message::eBuildLines3dImgLvl2, "Level 2 algorithm: Generates a 3D binary image with oriented lines"},
        {Message::eBuildLines3dImgLvl3, "Level 3 algorithm: Generates a 3D binary image with oriented lines"},
        {Message::eTileCountMismatch, "Tile collection size %d mismatch with results collection size %d"},
        {Message::eCompareImgLvl1, "Image comparison algorithm level 1"},
        {Message::eCompareImgLvl2, "Image comparison algorithm level 2"},
        {Message::eCompareImgLvl3, "Image comparison algorithm level 3"},
        {Message::eConvertImgGpuLvl3, "Image data type conversion algorithm level 2 on Gpu"},
        {Message::eConvertImgLvl1, "Image data type conversion algorithm level 1"},
        {Message::eConvertImgLvl2, "Image data type conversion algorithm level 2"},
        {Message::eConvertImgLvl3, "Image data type conversion algorithm level 3"},
        {Message::eCopyImgGpuLvl3, "Image copy algorithm level 2 on Gpu"},
        {Message::eCopyImgLvl1, "Image copy algorithm level 1"},
        {Message::eCopyImgLvl2, "Image copy algorithm level 2"},
        {Message::eCopyImgLvl3, "Image copy algorithm level 3"},
        {Message::eEraseImgGpuLvl3, "Image erasing algorithm level 2 on Gpu"},
        {Message::eEraseImgLvl1, "Image erasing algorithm level 1"},
        {Message::eEraseImgLvl2, "Image erasing algorithm level 2"},
        {Message::eEraseImgLvl3, "Image erasing algorithm level 3"},
        {Message::eExtractImg2dValuesLvl1, "Level 1 algorithm: extract values at specific coordinates from a 2d image"},
        {Message::eExtractImg2dValuesLvl2, "Level 2 algorithm: extract values at specific coordinates from a 2d image"},
        {Message::eExtractImg2dValuesStripedLvl3,
         "Level 3 algorithm: extract values at specific coordinates from a 2d image"},
        {Message::eExtractImg2dValuesTiledLvl3,
         "Level 3 algorithm: extract values at specific coordinates from a 2d image"},
        {Message::eExtractImg3dValuesLvl1, "Level 1 algorithm: extract values at specific coordinates from a 3d image"},
        {Message::eExtractImg3dValuesLvl2, "Level 2 algorithm: extract values at specific coordinates from a 3d image"},
        {Message::eExtractImg3dValuesStripedLvl3,
         "Level 3 algorithm: extract values at specific coordinates from a 3d image"},
        {Message::eExtractImg3dValuesTiledLvl3,
         "Level 3 algorithm: extract values at specific coordinates from a 3d image"},
        {Message::eGaussianRandomImgLvl1,
         "Level 1 algorithm: initialization of an image with random values generated using a normal law"},
        {Message::eGaussianRandomImgLvl2,
         "Level 2 algorithm: initialization of an image with random values generated using a normal law"},
        {Message::eGaussianRandomImgLvl3,
         "Level 3 algorithm: initialization of an image with random values generated using a normal law"},
        {Message::eGetROI2dImgLvl1, "Image 2d ROI extraction algorithm level 1"},
        {Message::eGetROI2dImgLvl2, "Image 2d ROI extraction algorithm level 2"},
        {Message::eGetROI2dImgLvl3, "Image 2d ROI extraction algorithm level 3"},
        {Message::eGetROI3dImgLvl1, "Image 3d ROI extraction algorithm level 1"},
        {Message::eGetROI3dImgLvl2, "Image 3d ROI extraction algorithm level 2"},
        {Message::eGetROI3dImgLvl3, "Image 3d ROI extraction algorithm level 3"},
        {Message::eGetSlice3dImgGpuLvl3,
         "Level 2 algorithm: Creates a 2D image from a slice along a given axis (x, y, or z) of a 3D image  on Gpu"},
        {Message::eGetSlice3dImgLvl1,
         "Level 1 algorithm: Creates a 2D image from a slice along a given axis (x, y, or z) of a 3D image"},
        {Message::eGetSlice3dImgLvl2,
         "Level 2 algorithm: Creates a 2D image from a slice along a given axis (x, y, or z) of a 3D image"},
        {Message::eGetSlice3dImgLvl3,
         "Level 3 algorithm: Creates a 2D image from a slice along a given axis (x, y, or z) of a 3D image"},
        {Message::eInvalidPoint2d, "Input point 2d coordinates {x=%f, y=%f} are not valid given strip coordinates "
                                   "{xSize=%d, yStart=%d, ySize=%d}"},
        {Message::eInvalidPoint3d, "Input point 3d coordinates {x=%f, y=%f, z=%f} are not valid given strip "
                                   "coordinates {xSize=%d, ySize=%d, zStart=%d, zSize=%d}"},
        {Message::eInvalidElementsRange,
         "Elements range [%d, %d[ used for data is invalid regards to elements collection size %d"},
        {Message::ePutROI2dImgLvl1, "Image 2d ROI insertion algorithm level 1"},
        {Message::ePutROI2dImgLvl2, "Image 2d ROI insertion algorithm level 2"},
        {Message::ePutROI2dImgLvl3, "Image 2d ROI insertion algorithm level 3"},
        {Message::ePutROI3dImgLvl1, "Image 3d ROI insertion algorithm level 1"},
        {Message::ePutROI3dImgLvl2, "Image 3d ROI insertion algorithm level 2"},
        {Message::ePutROI3dImgLvl3, "Image 3d ROI insertion algorithm level 3"},
        {Message::ePutSlice3dImgGpuLvl3, "Level 2 algorithm: Copies a 2D image in a 3D image as a slice in the input "
                                         "slice index along x, y or z  on Gpu"},
        {Message::ePutSlice3dImgLvl1,
         "Level 1 algorithm: Copies a 2D image in a 3D image as a slice in the input slice index along x, y or z"},
        {Message::ePutSlice3dImgLvl2,
         "Level 2 algorithm: Copies a 2D image in a 3D image as a slice in the input slice index along x, y or z"},
        {Message::ePutSlice3dImgLvl3,
         "Level 3 algorithm: Copies a 2D image in a 3D image as a slice in the input slice index along x, y or z"},
        {Message::eRandomImgLvl1, "Level 1 algorithm: initialization of an image with random values generated using a "
                                  "uniform law on interval [RandomMin; RandomMax]"},
        {Message::eRandomImgLvl2, "Level 2 algorithm: initialization of an image with random values generated using a "
                                  "uniform law on interval [RandomMin; RandomMax]"},
        {Message::eRandomImgLvl3, "Level 3 algorithm: initialization of an image with random values generated using a "
                                  "uniform law on interval [RandomMin; RandomMax]"},
        {Message::eUnsupportedInterpolation, "Interpolation policy %s is not supported"}};
    return g_texts;
}

namespace {

const CatalogueRegistration<imaproc::util::eProcessorMessage> g_registration;

} // namespace

} // namespace orlix
