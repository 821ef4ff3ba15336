// Which of two methods reads the values of an image at points.
#pragma once

#include "ORLIX/ORLIXBaseData/DataItemLeaf.h"
#include "ORLIX/ORLIXBaseData/DataItemLeaves.h"
#include "ORLIX/ORLIXBaseData/DataItemNode.h"
#include "ORLIX/ORLIXUtil/NumericLimits.h"
#include "ORLIXIPL/ORLIXIPLAttributes/Export.h"

namespace orlix::imaproc::attr {

struct ImageValueExtractionMethodLeaves
{
    struct PixelsPerPoint : DataItemLeaf<unsigned long>
    {
        static constexpr const char* g_name = "PixelsPerPoint";
    };
};
struct ImageValueExtractionMethodRecord : ImageValueExtractionMethodLeaves,
                                          DataItemLeaves<ImageValueExtractionMethodLeaves::PixelsPerPoint>
{
    static constexpr const char* g_className = "orlix::imaproc::attr::ImageValueExtractionMethod";
};

/// Either fetches a small tile around each point, or goes through the image in strips and serves the points of each
/// line. Both give the same values, to the last bit, at points within the image; points outside are told apart: see
/// extractImg2dValues. Tiles are used where there are at least `PixelsPerPoint` pixels to each point; 0, the default,
/// stands for tiles always, the largest number for strips always. Tiles are faster for nearly all points, since rows
/// are read where they lie and fetched ahead.
class ORLIXIPLATTRIBUTES_API ImageValueExtractionMethod final
    : public DataItemNode<ImageValueExtractionMethod, ImageValueExtractionMethodRecord>
{
public:
    static constexpr unsigned long s_tiledAlways = 0;
    static constexpr unsigned long s_tiledNever = NumericLimits<unsigned long>::s_max;

    /// Are so many points of an image of so many pixels read by tiles?
    bool checkTiledMethod(unsigned long nbCoords, unsigned long nbPixels) const;
};

/// The default.
ORLIXIPLATTRIBUTES_API boost::shared_ptr<const ImageValueExtractionMethod> createDefaultImageValueExtractionMethod();
ORLIXIPLATTRIBUTES_API boost::shared_ptr<const ImageValueExtractionMethod>
createImageValueExtractionMethod(unsigned long pixelsPerPoint);

} // namespace orlix::imaproc::attr
