// The same work by OpenCV, for comparison, where it was found when the benchmarks were built.
#pragma once

#include "ORLIXIPL/ORLIXImage/BaseImage.h"

#include <functional>

namespace orlix::bench {

/// One pass of work on images that the caller keeps alive; empty where OpenCV is absent or has no such work, such as
/// anything on 32-bit unsigned integers. Images of several plans go plan by plan.
using PeerPass = std::function<void()>;

PeerPass makeOpenCvFill(image::BaseImage& image, double value);
/// 255 where a pixel lies between the bounds, both included, 0 elsewhere.
PeerPass makeOpenCvInRange(const image::BaseImage& in, image::BaseImage& out, double min, double max);
PeerPass makeOpenCvConversion(const image::BaseImage& in, image::BaseImage& out);
/// Pixels that differ: compared into a mask whose pixels are then counted.
PeerPass makeOpenCvCount(const image::BaseImage& first, const image::BaseImage& second);
/// The largest absolute difference.
PeerPass makeOpenCvNorm(const image::BaseImage& first, const image::BaseImage& second);
/// The pixels of `in` from (x, y) on into the whole of `out`, and the whole of `in` into `out` from (x, y) on; of
/// images of one plan.
PeerPass makeOpenCvCrop(const image::BaseImage& in, unsigned long x, unsigned long y, image::BaseImage& out);
PeerPass makeOpenCvPaste(const image::BaseImage& in, image::BaseImage& out, unsigned long x, unsigned long y);

/// Random values from `min` on, below `max`, and those of a normal law.
PeerPass makeOpenCvUniform(image::BaseImage& image, double min, double max);
PeerPass makeOpenCvNormal(image::BaseImage& image, double mean, double deviation);

/// Threads that OpenCV may use; nothing happens where it is absent.
void setOpenCvThreads(unsigned long nbThreads);

bool hasOpenCv();
/// "OpenCV 4.6.0", or why its rows are missing.
const char* describeOpenCv();

} // namespace orlix::bench
