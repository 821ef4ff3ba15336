// What the headers of an image file say.
#pragma once

#include "ORLIX/ORLIXUtil/Enumeration.h"
#include "ORLIXIPL/ORLIXImage/GeometricCalibration.h"
#include "ORLIXIPL/ORLIXImage/ImageGeometry.h"

#include <boost/shared_ptr.hpp>

#include <string>

namespace orlix::image::io {

struct eImageFileFormat
{
    enum domain { eTiff = 0, ePng = 1 };
    ORLIX_ENUMERATION(eImageFileFormat, eTiff);
};

/// The image that `readImage` would give, and how the file holds it.
struct ImageFileInfo
{
    BaseImageGeometry geometry;                                ///< the five axes and the element type
    boost::shared_ptr<const GeometricCalibration> calibration; ///< null where the file tells none

    eImageFileFormat format;
    std::string compression; ///< in libtiff's words; "Deflate" for PNG
    std::string metadata;    ///< "OME-XML" or "ImageJ" where such a description settled the axes, else empty
    unsigned long pages = 1;
    unsigned long bitsPerSample = 0;
    unsigned long fileBytes = 0;
    bool bTiled = false;
    bool bBigTiff = false;
    bool bBigEndian = false;
    unsigned long files = 1; ///< that the pages of the image lie in

    /// What the file says beside, and `readImage` leaves alone.
    struct Ignored
    {
        unsigned long images = 0;  ///< further images of OME-XML
        unsigned long pages = 0;   ///< of this file that give no plan, reduced copies apart
        unsigned long reduced = 0; ///< reduced copies and masks, as pages or sub-directories
        unsigned orientation = 1;  ///< of TIFF, 1 to 8; rows and columns come as they are stored, which is 1
        std::string units;         ///< of axes that have no calibration, as theirs doesn't convert to that of x

        friend bool operator==(const Ignored&, const Ignored&) = default;
    } ignored;
};

} // namespace orlix::image::io
