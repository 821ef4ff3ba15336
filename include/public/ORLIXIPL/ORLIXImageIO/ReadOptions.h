// What a caller may settle about reading a file.
#pragma once

#include "ORLIX/ORLIXUtil/NumericLimits.h"
#include "ORLIXIPL/ORLIXImageIO/Export.h"
#include "ORLIXIPL/ORLIXImageIO/ProgressFunction.h"

namespace orlix::image::io {

/// Three quarters of this computer's physical memory, in bytes.
ORLIXIMAGEIO_API unsigned long defaultMaxBytes();

/// What a header may claim. Checked before pixel memory is taken.
struct ReadLimits
{
    unsigned long maxElements = NumericLimits<unsigned long>::s_max; ///< product of the five sizes
    unsigned long maxBytes = defaultMaxBytes();                      ///< pixels and working memory together
    /// Refuse a file that is too short to hold what it claims under the compression that it names.
    bool bMustBePlausible = true;
};

struct ReadOptions
{
    ReadLimits limits;
    ProgressFunction progress; ///< may be empty
};

} // namespace orlix::image::io
