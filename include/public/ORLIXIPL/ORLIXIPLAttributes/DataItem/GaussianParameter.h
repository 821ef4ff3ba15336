// What a normal law is known by.
#pragma once

#include "ORLIX/ORLIXBaseData/DataItemLeaves.h"
#include "ORLIX/ORLIXBaseData/DataItemNode.h"
#include "ORLIXIPL/ORLIXIPLAttributes/Export.h"

namespace orlix::imaproc::attr {

struct GaussianParameterLeaves
{
    struct Mean : DataItemLeaf<double>
    {
        static constexpr const char* g_name = "Mean";
    };
    struct StdDev : DataItemLeaf<double>
    {
        static constexpr const char* g_name = "StdDev";
    };
};

/// Mean and standard deviation, in grey values.
struct GaussianParameterRecord : GaussianParameterLeaves,
                                 DataItemLeaves<GaussianParameterLeaves::Mean, GaussianParameterLeaves::StdDev>
{
    static constexpr const char* g_className = "orlix::imaproc::attr::GaussianParameter";
};

class ORLIXIPLATTRIBUTES_API GaussianParameter final : public DataItemNode<GaussianParameter, GaussianParameterRecord>
{
public:
    /// Why a person can't have meant these values; empty where they make sense.
    std::string findFlaw() const;
};

ORLIXIPLATTRIBUTES_API boost::shared_ptr<const GaussianParameter> createGaussianParameter(double mean, double stdDev);

} // namespace orlix::imaproc::attr
