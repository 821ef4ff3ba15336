// What the texts and tags of a file say about its image as a whole: axes, element type, calibration.
#pragma once

#include "ORLIXIPL/ORLIXImage/GeometricCalibration.h"
#include "ORLIXIPL/ORLIXImage/ImageGeometry.h"

#include <boost/shared_ptr.hpp>

#include <string>
#include <vector>

namespace orlix::image::io {

using CalibrationPtr = boost::shared_ptr<const GeometricCalibration>;

/// What a description is read against.
struct PageFacts
{
    std::string file; ///< as messages call it
    unsigned long sizeX = 0;
    unsigned long sizeY = 0;
    unsigned long samples = 1;  ///< values of a pixel in the file
    unsigned long channels = 1; ///< channels that a page gives: palettes give more than they have samples
    eImageBufferType type;      ///< as the samples alone tell it
    unsigned long pages = 1;
};

/// Page `page` of the file holds plan z of the channels from c on at time step t.
struct PagePlace
{
    unsigned long page, z, c, t;
    unsigned long file = 0; ///< of the set that the image lies in; 0 is the file that was asked for
};

struct ImageMetadata
{
    std::string kind; ///< "OME-XML", "ImageJ" or empty
    VolumeGeometry volume;
    TemporalGeometry temporal;
    unsigned long sizeC = 1;
    eImageBufferType type;
    CalibrationPtr calibration;      ///< null where nothing tells
    std::string ignoredUnits;        ///< of axes whose unit doesn't convert to that of x: "y in sec, z in nm"
    std::vector<PagePlace> places;   ///< by file and page; empty under `bRawStack`
    unsigned long furtherImages = 0; ///< that the description tells of
    bool bSignShifted = false;       ///< Int16 lies in the file as unsigned samples that are higher by 32768
    bool bRawStack = false;          ///< plans follow the first page's pixels without directories, c fastest, then z, t
};

/// Pages are z.
ImageMetadata metadataOfPages(const PageFacts& facts);

} // namespace orlix::image::io
