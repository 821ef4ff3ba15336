// How large an image or a region is, in 2d and in 3d.
#pragma once

#include "ORLIX/ORLIXBaseData/DataItemNode.h"
#include "ORLIXIPL/ORLIXIPLAttributes/Export.h"

namespace orlix::imaproc::attr {

/// Pixels on each axis.
struct Img2dSizeRecord
{
    static constexpr const char* g_className = "orlix::imaproc::attr::Img2dSize";

    unsigned long X = 0;
    unsigned long Y = 0;

    template <class TVisitor>
    static void visit(TVisitor&& visitor)
    {
        visitor("X", &Img2dSizeRecord::X);
        visitor("Y", &Img2dSizeRecord::Y);
    }

    friend bool operator==(const Img2dSizeRecord&, const Img2dSizeRecord&) = default;
};

class Img2dSize final : public DataItemNode<Img2dSize, Img2dSizeRecord>
{};

/// Pixels on each axis.
struct Img3dSizeRecord
{
    static constexpr const char* g_className = "orlix::imaproc::attr::Img3dSize";

    unsigned long X = 0;
    unsigned long Y = 0;
    unsigned long Z = 0;

    template <class TVisitor>
    static void visit(TVisitor&& visitor)
    {
        visitor("X", &Img3dSizeRecord::X);
        visitor("Y", &Img3dSizeRecord::Y);
        visitor("Z", &Img3dSizeRecord::Z);
    }

    friend bool operator==(const Img3dSizeRecord&, const Img3dSizeRecord&) = default;
};

class Img3dSize final : public DataItemNode<Img3dSize, Img3dSizeRecord>
{};

ORLIXIPLATTRIBUTES_API boost::shared_ptr<const Img2dSize> createImg2dSize(unsigned long x, unsigned long y);
ORLIXIPLATTRIBUTES_API boost::shared_ptr<const Img3dSize> createImg3dSize(unsigned long x, unsigned long y,
                                                                          unsigned long z);

} // namespace orlix::imaproc::attr
