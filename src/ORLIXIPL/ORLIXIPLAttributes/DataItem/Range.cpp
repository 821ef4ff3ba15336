#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/Range.h"

#include "ORLIX/ORLIXUtil/DynamicRegistrator.h"
#include "ORLIX/ORLIXUtil/NumberText.h"

namespace orlix::imaproc::attr {

namespace {

const DynamicRegistrator<Range> g_registration;

} // namespace

std::string Range::findFlaw() const
{
    const double min = get<Min>();
    const double max = get<Max>();
    return min <= max ? ""
                      : "Min: expected a number up to Max, which is " + numberText(max) + ", found " + numberText(min);
}

boost::shared_ptr<const Range> createRange(double min, double max)
{
    const auto range = boost::make_shared<Range>();
    range->access<Range::Min>() = min;
    range->access<Range::Max>() = max;
    return range;
}

} // namespace orlix::imaproc::attr
