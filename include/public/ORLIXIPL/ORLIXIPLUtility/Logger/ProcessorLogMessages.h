// Tool tips of the processors, and messages of the operators.
#pragma once

#include "ORLIX/ORLIXUtil/Enumeration.h"
#include "ORLIX/ORLIXUtil/MessageCatalogue.h"
#include "ORLIXIPL/ORLIXIPLUtility/Export.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtilityException.h"

namespace orlix::imaproc::util {

struct eProcessorMessage
{
    enum domain {
        eAppendSeqImgLvl1 = 0,
        eBasicThresholdImgGpuLvl3 = 1,
        eBasicThresholdImgLvl1 = 2,
        eBasicThresholdImgLvl2 = 3,
        eBasicThresholdImgLvl3 = 4,
        eBuildLines2dImgGpuLvl3 = 5,
        eBuildLines2dImgLvl1 = 6,
        eBuildLines2dImgLvl2 = 7,
        eBuildLines2dImgLvl3 = 8,
        eBuildLines3dImgGpuLvl3 = 9,
        eBuildLines3dImgLvl1 = 10,
        eBuildLines3dImgLvl2 = 11,
        eBuildLines3dImgLvl3 = 12,
        eTileCountMismatch = 13,
        eCompareImgLvl1 = 14,
        eCompareImgLvl2 = 15,
        eCompareImgLvl3 = 16,
        eConvertImgGpuLvl3 = 17,
        eConvertImgLvl1 = 18,
        eConvertImgLvl2 = 19,
        eConvertImgLvl3 = 20,
        eCopyImgGpuLvl3 = 21,
        eCopyImgLvl1 = 22,
        eCopyImgLvl2 = 23,
        eCopyImgLvl3 = 24,
        eEraseImgGpuLvl3 = 25,
        eEraseImgLvl1 = 26,
        eEraseImgLvl2 = 27,
        eEraseImgLvl3 = 28,
        eExtractImg2dValuesLvl1 = 29,
        eExtractImg2dValuesLvl2 = 30,
        eExtractImg2dValuesStripedLvl3 = 31,
        eExtractImg2dValuesTiledLvl3 = 32,
        eExtractImg3dValuesLvl1 = 33,
        eExtractImg3dValuesLvl2 = 34,
        eExtractImg3dValuesStripedLvl3 = 35,
        eExtractImg3dValuesTiledLvl3 = 36,
        eGaussianRandomImgLvl1 = 37,
        eGaussianRandomImgLvl2 = 38,
        eGaussianRandomImgLvl3 = 39,
        eGetROI2dImgLvl1 = 40,
        eGetROI2dImgLvl2 = 41,
        eGetROI2dImgLvl3 = 42,
        eGetROI3dImgLvl1 = 43,
        eGetROI3dImgLvl2 = 44,
        eGetROI3dImgLvl3 = 45,
        eGetSlice3dImgGpuLvl3 = 46,
        eGetSlice3dImgLvl1 = 47,
        eGetSlice3dImgLvl2 = 48,
        eGetSlice3dImgLvl3 = 49,
        eInvalidPoint2d = 50,
        eInvalidPoint3d = 51,
        eInvalidElementsRange = 52,
        ePutROI2dImgLvl1 = 53,
        ePutROI2dImgLvl2 = 54,
        ePutROI2dImgLvl3 = 55,
        ePutROI3dImgLvl1 = 56,
        ePutROI3dImgLvl2 = 57,
        ePutROI3dImgLvl3 = 58,
        ePutSlice3dImgGpuLvl3 = 59,
        ePutSlice3dImgLvl1 = 60,
        ePutSlice3dImgLvl2 = 61,
        ePutSlice3dImgLvl3 = 62,
        eRandomImgLvl1 = 63,
        eRandomImgLvl2 = 64,
        eRandomImgLvl3 = 65,
        eUnsupportedInterpolation = 66
    };
    ORLIX_ENUMERATION(eProcessorMessage, eAppendSeqImgLvl1);
};

} // namespace orlix::imaproc::util

namespace orlix {

template <>
struct ORLIXIPLUTILITY_API MessageCatalogue<imaproc::util::eProcessorMessage>
{
    using Exception = imaproc::util::ORLIXIPLUtilityException;
    static LibraryLog& log();
    static const std::vector<MessageText>& texts();
};

} // namespace orlix
