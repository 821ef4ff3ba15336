// Where a region begins in an image, in 2d and in 3d.
#pragma once

#include "ORLIX/ORLIXBaseData/DataItemNode.h"
#include "ORLIXIPL/ORLIXIPLAttributes/Export.h"

namespace orlix::imaproc::attr {

/// Pixels before the region on each axis.
struct Img2dOffsetRecord
{
    static constexpr const char* g_className = "orlix::imaproc::attr::Img2dOffset";

    unsigned long X = 0;
    unsigned long Y = 0;

    template <class TVisitor>
    static void visit(TVisitor&& visitor)
    {
        visitor("X", &Img2dOffsetRecord::X);
        visitor("Y", &Img2dOffsetRecord::Y);
    }

    friend bool operator==(const Img2dOffsetRecord&, const Img2dOffsetRecord&) = default;
};

class Img2dOffset final : public DataItemNode<Img2dOffset, Img2dOffsetRecord>
{};

/// Pixels before the region on each axis.
struct Img3dOffsetRecord
{
    static constexpr const char* g_className = "orlix::imaproc::attr::Img3dOffset";

    unsigned long X = 0;
    unsigned long Y = 0;
    unsigned long Z = 0;

    template <class TVisitor>
    static void visit(TVisitor&& visitor)
    {
        visitor("X", &Img3dOffsetRecord::X);
        visitor("Y", &Img3dOffsetRecord::Y);
        visitor("Z", &Img3dOffsetRecord::Z);
    }

    friend bool operator==(const Img3dOffsetRecord&, const Img3dOffsetRecord&) = default;
};

class Img3dOffset final : public DataItemNode<Img3dOffset, Img3dOffsetRecord>
{};

ORLIXIPLATTRIBUTES_API boost::shared_ptr<const Img2dOffset> createImg2dOffset(unsigned long x, unsigned long y);
ORLIXIPLATTRIBUTES_API boost::shared_ptr<const Img3dOffset> createImg3dOffset(unsigned long x, unsigned long y,
                                                                              unsigned long z);

} // namespace orlix::imaproc::attr
