// Options that tell a slice of a volume, and where that lies.
#pragma once

#include "GivenValue.h"
#include "OptionList.h"

#include "ORLIXIPL/ORLIXIPLAttributes/Axis.h"
#include "ORLIXIPL/ORLIXImage/GeometricCalibration.h"
#include "ORLIXIPL/ORLIXImage/ImageGeometry.h"

#include <string>

namespace orlix::cli {

struct SliceOptions
{
    imaproc::eAxis axis;
    GivenValue<long> index; ///< below 0 it counts from the end
};

/// Declares --axis and --index, and tells in the help how a slice lies. `options` has to outlive the parser.
void addSliceOptions(OptionList& list, SliceOptions& options);

/// What of a volume a slice along `axis` has: "x", and the pixels on that axis.
struct SliceAxis
{
    const char* name;
    unsigned long size;
};
SliceAxis sliceAxis(const SliceOptions& options, const image::BaseImageGeometry& geometry);

/// The slice's number from 0 on. Throws CommandException where `file`, of this geometry, is no volume or has no such
/// slice: the operators don't look at the number.
unsigned long sliceIndex(const SliceOptions& options, const image::BaseImageGeometry& geometry,
                         const std::string& file);

/// That of a slice along `axis` of a volume with this calibration: pixel sizes and origin of the two axes that stay.
/// Null where one of them has none.
boost::shared_ptr<const image::GeometricCalibration>
calibrationOfSlice(const boost::shared_ptr<const image::GeometricCalibration>& volume, const imaproc::eAxis& axis);

} // namespace orlix::cli
