#include "peers/OpenCv.h"

#ifdef ORLIX_WITH_OPENCV

#include <benchmark/benchmark.h>
#include <opencv2/core.hpp>

#include <optional>
#include <vector>

namespace orlix::bench {

namespace {

using image::eImageBufferType;

std::optional<int> findDepth(const eImageBufferType& type)
{
    switch (static_cast<eImageBufferType::domain>(type)) {
    case eImageBufferType::Int8: return CV_8S;
    case eImageBufferType::UInt8:
    case eImageBufferType::eBufferBinary:
    case eImageBufferType::eBufferUInt8Like: return CV_8U;
    case eImageBufferType::Int16: return CV_16S;
    case eImageBufferType::UInt16:
    case eImageBufferType::eBufferUInt16Like: return CV_16U;
    case eImageBufferType::Int32: return CV_32S;
    case eImageBufferType::Real32: return CV_32F;
    default: return std::nullopt;
    }
}

/// Headers over the plans of an image; they own no pixels.
std::optional<std::vector<cv::Mat>> wrapPlans(const image::BaseImage& image)
{
    const std::optional<int> depth = findDepth(image.getBufferType());
    if (!depth) {
        return std::nullopt;
    }
    std::vector<cv::Mat> plans;
    for (unsigned long z = 0; z < image.getSizeZ(); ++z) {
        plans.emplace_back(static_cast<int>(image.getSizeY()), static_cast<int>(image.getSizeX()), *depth,
                           const_cast<std::byte*>(image.accessRow(0, z, 0, 0)));
    }
    return plans;
}

/// A pass that calls `work(plan of in, plan of out)` for every plan.
template <class TWork>
PeerPass makePass(const image::BaseImage& in, const image::BaseImage& out, const TWork& work)
{
    const auto inPlans = wrapPlans(in);
    const auto outPlans = wrapPlans(out);
    if (!inPlans || !outPlans) {
        return {};
    }
    return [inPlans = *inPlans, outPlans = *outPlans, work = work]() mutable {
        for (std::size_t z = 0; z < inPlans.size(); ++z) {
            work(inPlans[z], outPlans[z]);
        }
    };
}

} // namespace

PeerPass makeOpenCvFill(image::BaseImage& image, double value)
{
    return makePass(image, image, [value](cv::Mat&, cv::Mat& out) { out.setTo(cv::Scalar(value)); });
}

PeerPass makeOpenCvUniform(image::BaseImage& image, double min, double max)
{
    return makePass(image, image, [min, max](cv::Mat&, cv::Mat& out) { cv::randu(out, min, max); });
}

PeerPass makeOpenCvNormal(image::BaseImage& image, double mean, double deviation)
{
    return makePass(image, image, [mean, deviation](cv::Mat&, cv::Mat& out) { cv::randn(out, mean, deviation); });
}

PeerPass makeOpenCvInRange(const image::BaseImage& in, image::BaseImage& out, double min, double max)
{
    return makePass(
        in, out, [min, max](cv::Mat& from, cv::Mat& to) { cv::inRange(from, cv::Scalar(min), cv::Scalar(max), to); });
}

PeerPass makeOpenCvConversion(const image::BaseImage& in, image::BaseImage& out)
{
    return makePass(in, out, [](cv::Mat& from, cv::Mat& to) { from.convertTo(to, to.type()); });
}

PeerPass makeOpenCvCount(const image::BaseImage& first, const image::BaseImage& second)
{
    return makePass(first, second, [mask = cv::Mat()](cv::Mat& one, cv::Mat& other) mutable {
        cv::compare(one, other, mask, cv::CMP_NE);
        benchmark::DoNotOptimize(cv::countNonZero(mask));
    });
}

PeerPass makeOpenCvNorm(const image::BaseImage& first, const image::BaseImage& second)
{
    return makePass(first, second,
                    [](cv::Mat& one, cv::Mat& other) { benchmark::DoNotOptimize(cv::norm(one, other, cv::NORM_INF)); });
}

namespace {

cv::Rect rectAt(unsigned long x, unsigned long y, const cv::Mat& region)
{
    return {static_cast<int>(x), static_cast<int>(y), region.cols, region.rows};
}

} // namespace

PeerPass makeOpenCvCrop(const image::BaseImage& in, unsigned long x, unsigned long y, image::BaseImage& out)
{
    return makePass(in, out, [x, y](cv::Mat& from, cv::Mat& to) { from(rectAt(x, y, to)).copyTo(to); });
}

PeerPass makeOpenCvPaste(const image::BaseImage& in, image::BaseImage& out, unsigned long x, unsigned long y)
{
    return makePass(in, out, [x, y](cv::Mat& from, cv::Mat& to) { from.copyTo(to(rectAt(x, y, from))); });
}

void setOpenCvThreads(unsigned long nbThreads)
{
    cv::setNumThreads(static_cast<int>(nbThreads));
}

bool hasOpenCv()
{
    return true;
}

const char* describeOpenCv()
{
    return "OpenCV " CV_VERSION;
}

} // namespace orlix::bench

#else

namespace orlix::bench {

PeerPass makeOpenCvFill(image::BaseImage&, double)
{
    return {};
}

PeerPass makeOpenCvInRange(const image::BaseImage&, image::BaseImage&, double, double)
{
    return {};
}

PeerPass makeOpenCvUniform(image::BaseImage&, double, double)
{
    return {};
}

PeerPass makeOpenCvNormal(image::BaseImage&, double, double)
{
    return {};
}

PeerPass makeOpenCvConversion(const image::BaseImage&, image::BaseImage&)
{
    return {};
}

PeerPass makeOpenCvCount(const image::BaseImage&, const image::BaseImage&)
{
    return {};
}

PeerPass makeOpenCvNorm(const image::BaseImage&, const image::BaseImage&)
{
    return {};
}

PeerPass makeOpenCvCrop(const image::BaseImage&, unsigned long, unsigned long, image::BaseImage&)
{
    return {};
}

PeerPass makeOpenCvPaste(const image::BaseImage&, image::BaseImage&, unsigned long, unsigned long)
{
    return {};
}

void setOpenCvThreads(unsigned long) {}

bool hasOpenCv()
{
    return false;
}

const char* describeOpenCv()
{
    return "OpenCV was not found when the benchmarks were built, so its rows are skipped";
}

} // namespace orlix::bench

#endif
