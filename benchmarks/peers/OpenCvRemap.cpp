#include "peers/OpenCvRemap.h"

#ifdef ORLIX_WITH_OPENCV_IMGPROC

#include <opencv2/imgproc.hpp>

namespace orlix::bench {

PeerPass makeOpenCvRemap(const image::BaseImage& image, std::span<const double> xy, unsigned policy)
{
    constexpr int width = 1000; // maps are tables with sides of 16 bits
    const int height = static_cast<int>((xy.size() / 2 + width - 1) / width);
    cv::Mat mapX(height, width, CV_32F, cv::Scalar(0));
    cv::Mat mapY(height, width, CV_32F, cv::Scalar(0));
    for (unsigned long i = 0; i < xy.size() / 2; ++i) {
        mapX.ptr<float>()[i] = static_cast<float>(xy[2 * i]);
        mapY.ptr<float>()[i] = static_cast<float>(xy[2 * i + 1]);
    }
    const int interpolation = policy == 0 ? cv::INTER_NEAREST : policy == 1 ? cv::INTER_LINEAR : cv::INTER_CUBIC;
    cv::Mat plan(static_cast<int>(image.getSizeY()), static_cast<int>(image.getSizeX()), CV_32F,
                 const_cast<std::byte*>(image.accessRow(0, 0, 0, 0)));
    return [plan, mapX, mapY, interpolation, values = cv::Mat()]() mutable {
        cv::remap(plan, values, mapX, mapY, interpolation, cv::BORDER_REFLECT);
    };
}

} // namespace orlix::bench

#else

namespace orlix::bench {

PeerPass makeOpenCvRemap(const image::BaseImage&, std::span<const double>, unsigned)
{
    return {};
}

} // namespace orlix::bench

#endif
