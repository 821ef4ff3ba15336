#include "pixelwise/PixelwiseCase.h"

#include "ORLIX/ORLIXBaseProcessing/OperatorCall.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"

namespace orlix::bench {

namespace {

using namespace imaproc;
using image::eImageBufferType;

constexpr eImageBufferType::domain g_types[] = {
    eImageBufferType::Int8,  eImageBufferType::UInt8,  eImageBufferType::Int16, eImageBufferType::UInt16,
    eImageBufferType::Int32, eImageBufferType::UInt32, eImageBufferType::Real32};

constexpr double g_value = 42;
constexpr double g_min = 20;
constexpr double g_max = 100;

void erase(const ImageConstPtr&, const ImagePtr& out)
{
    util::eraseImg(out, g_value);
}

PeerPass eraseByPeer(const image::BaseImage*, image::BaseImage& out)
{
    return makeOpenCvFill(out, g_value);
}

void threshold(const ImageConstPtr& in, const ImagePtr& out)
{
    processor::run<util::BasicThresholdImgLvl1>(
        processor::with<attr::InImg>(in), processor::with<attr::InThresholdMin>(g_min),
        processor::with<attr::InThresholdMax>(g_max), processor::with<attr::OutBinImg>(out));
}

PeerPass thresholdByPeer(const image::BaseImage* in, image::BaseImage& out)
{
    return makeOpenCvInRange(*in, out, g_min, g_max);
}

void convert(const ImageConstPtr& in, const ImagePtr& out)
{
    util::convertImg(in, out);
}

PeerPass convertByPeer(const image::BaseImage* in, image::BaseImage& out)
{
    return makeOpenCvConversion(*in, out);
}

/// All that the element type can hold.
void random(const ImageConstPtr&, const ImagePtr& out)
{
    util::randomImg(out);
}

/// The upper bound is excluded.
PeerPass randomByPeer(const image::BaseImage*, image::BaseImage& out)
{
    const image::eImageBufferType type = out.getBufferType();
    return makeOpenCvUniform(out, image::getMinValue(type), image::getMaxValue(type));
}

/// A range that is no power of 2.
void randomWithin(const ImageConstPtr&, const ImagePtr& out)
{
    static const auto g_range = attr::createRange(g_min, g_max);
    util::randomImg(g_range, out);
}

PeerPass randomWithinByPeer(const image::BaseImage*, image::BaseImage& out)
{
    return makeOpenCvUniform(out, g_min, g_max + 1);
}

void normal(const ImageConstPtr&, const ImagePtr& out)
{
    static const auto g_law = attr::createGaussianParameter(g_value, g_min);
    util::gaussianRandomImg(g_law, out);
}

PeerPass normalByPeer(const image::BaseImage*, image::BaseImage& out)
{
    return makeOpenCvNormal(out, g_value, g_min);
}

constexpr float g_angle = 0.5F;
constexpr float g_spacing = 20.0F;

void drawLines(const ImageConstPtr&, const ImagePtr& out)
{
    util::buildLines2dImg(g_angle, g_spacing, out);
}

/// Into the same memory, as a volume of 64 plans.
void drawLinesOfVolume(const ImageConstPtr&, const ImagePtr& out)
{
    constexpr unsigned long nbPlans = 64;
    const unsigned long sizeX = out->getSizeX();
    const unsigned long sizeY = out->getSizeY() / nbPlans;
    const auto geometry = image::geometry3d(eImageBufferType::eBufferBinary, sizeX, sizeY, nbPlans);
    const unsigned long nbOfVolume = sizeX * sizeY * nbPlans;
    util::buildLines3dImg(
        g_angle, g_angle, g_angle, g_spacing,
        image::wrapImage(*geometry, out->accessRow(0, 0, 0, 0), {sizeX, sizeX * sizeY, nbOfVolume, nbOfVolume}, out));
}

PeerPass noPeer(const image::BaseImage*, image::BaseImage&)
{
    return {};
}

} // namespace

std::string namePixelwise(const PixelwiseCase& work, const PixelwiseSize& size, unsigned long nbThreads)
{
    return work.name + '/' + size.name + "/threads:" + std::to_string(nbThreads);
}

std::vector<PixelwiseCase> makePixelwiseCases()
{
    std::vector<PixelwiseCase> cases;
    for (const eImageBufferType type : g_types) {
        cases.push_back({std::string("erase/") + image::getBufferTypeName(type), eImageBufferType::eNoBuffer, type,
                         erase, eraseByPeer});
    }
    cases.push_back({"lines/2d", eImageBufferType::eNoBuffer, eImageBufferType::eBufferBinary, drawLines, noPeer});
    cases.push_back(
        {"lines/3d", eImageBufferType::eNoBuffer, eImageBufferType::eBufferBinary, drawLinesOfVolume, noPeer});
    for (const eImageBufferType type : g_types) {
        cases.push_back({std::string("threshold/") + image::getBufferTypeName(type), type,
                         eImageBufferType::eBufferBinary, threshold, thresholdByPeer});
    }
    for (const eImageBufferType in : g_types) {
        for (const eImageBufferType out : g_types) {
            cases.push_back(
                {std::string("convert/") + image::getBufferTypeName(in) + '-' + image::getBufferTypeName(out), in, out,
                 convert, convertByPeer});
        }
    }
    for (const eImageBufferType type : g_types) {
        const char* const name = image::getBufferTypeName(type);
        const auto none = eImageBufferType::eNoBuffer;
        cases.push_back({std::string("random/") + name, none, type, random, randomByPeer, true});
        cases.push_back({std::string("random-within/") + name, none, type, randomWithin, randomWithinByPeer, true});
        cases.push_back({std::string("normal/") + name, none, type, normal, normalByPeer, true});
    }
    return cases;
}

} // namespace orlix::bench
