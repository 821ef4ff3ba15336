#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/GaussianParameter.h"

#include "ORLIX/ORLIXUtil/DynamicRegistrator.h"
#include "ORLIX/ORLIXUtil/NumberText.h"
#include "ORLIX/ORLIXUtil/NumericLimits.h"

namespace orlix::imaproc::attr {

namespace {

const DynamicRegistrator<GaussianParameter> g_registration;

} // namespace

std::string GaussianParameter::findFlaw() const
{
    constexpr double largest = NumericLimits<float>::s_max; // kernels compute in single precision
    const double mean = get<Mean>();
    const double stdDev = get<StdDev>();
    if (!(mean >= -largest && mean <= largest)) {
        return "Mean: expected a number from " + numberText(-largest) + " to " + numberText(largest) + ", found " +
               numberText(mean);
    }
    return stdDev >= 0 && stdDev <= largest
               ? ""
               : "StdDev: expected a number from 0 to " + numberText(largest) + ", found " + numberText(stdDev);
}

boost::shared_ptr<const GaussianParameter> createGaussianParameter(double mean, double stdDev)
{
    const auto parameter = boost::make_shared<GaussianParameter>();
    parameter->access<GaussianParameter::Mean>() = mean;
    parameter->access<GaussianParameter::StdDev>() = stdDev;
    return parameter;
}

} // namespace orlix::imaproc::attr
