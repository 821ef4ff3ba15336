// A closed interval of values.
#pragma once

#include "ORLIX/ORLIXBaseData/DataItemLeaves.h"
#include "ORLIX/ORLIXBaseData/DataItemNode.h"
#include "ORLIXIPL/ORLIXIPLAttributes/Export.h"

namespace orlix::imaproc::attr {

struct RangeLeaves
{
    struct Min : DataItemLeaf<double>
    {
        static constexpr const char* g_name = "Min";
    };
    struct Max : DataItemLeaf<double>
    {
        static constexpr const char* g_name = "Max";
    };
};

/// Both ends belong to it.
struct RangeRecord : RangeLeaves, DataItemLeaves<RangeLeaves::Min, RangeLeaves::Max>
{
    static constexpr const char* g_className = "orlix::imaproc::attr::Range";
};

class ORLIXIPLATTRIBUTES_API Range final : public DataItemNode<Range, RangeRecord>
{
public:
    /// Why a person can't have meant these values; empty where they make sense.
    std::string findFlaw() const;
};

ORLIXIPLATTRIBUTES_API boost::shared_ptr<const Range> createRange(double min, double max);

} // namespace orlix::imaproc::attr
