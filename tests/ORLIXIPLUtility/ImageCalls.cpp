#include "ORLIXIPLUtility/ImageCalls.h"

#include "ORLIX/ORLIXBaseProcessing/OperatorCall.h"

#include <stdexcept>

namespace orlix::imaproc::util::test {

namespace {

using image::BaseImageGeometry;
using image::eImageBufferType;
using image::geometry2d;
using image::geometry3d;
using image::geometry5d;
using Calls = std::vector<ImageCall>;

/// Throws what a run says that was left to itself; nobody holds its images any more then.
template <class TProcessor>
void finish(const boost::shared_ptr<TProcessor>& processor)
{
    const ProcessingResult<bool> result = processor->wait();
    if (!result) {
        throw std::runtime_error(result.getMessage());
    }
}

constexpr unsigned long g_sizeX = 16;
constexpr unsigned long g_sizeY = 8;
constexpr unsigned long g_sizeZ = 5;

/// One plan that is a strip, and many.
std::vector<BaseImageGeometry> plansOf(const eImageBufferType& type)
{
    return {*geometry2d(type, g_sizeX, g_sizeY), *geometry5d(type, g_sizeX, g_sizeY, g_sizeZ, 2, 2)};
}
/// The same of volumes.
std::vector<BaseImageGeometry> volumesOf(const eImageBufferType& type)
{
    return {*geometry3d(type, g_sizeX, g_sizeY, g_sizeZ), *geometry5d(type, g_sizeX, g_sizeY, g_sizeZ, 2, 2)};
}

BaseImageGeometry resized(const BaseImageGeometry& geometry, unsigned long sizeX, unsigned long sizeY,
                          unsigned long sizeZ)
{
    image::VolumeGeometry volume = geometry.getVolumeGeometry();
    if (volume.is3d()) {
        volume.init3d(sizeZ);
    }
    return {geometry.getBufferType(),      sizeX, sizeY, volume, geometry.getColorGeometry(),
            geometry.getTemporalGeometry()};
}
BaseImageGeometry sliceOf(const BaseImageGeometry& geometry, unsigned long sizeX, unsigned long sizeY)
{
    return {geometry.getBufferType(), sizeX, sizeY, {}, geometry.getColorGeometry(), geometry.getTemporalGeometry()};
}
BaseImageGeometry retyped(const BaseImageGeometry& geometry, const eImageBufferType& type)
{
    return {type,
            geometry.getSizeX(),
            geometry.getSizeY(),
            geometry.getVolumeGeometry(),
            geometry.getColorGeometry(),
            geometry.getTemporalGeometry()};
}

ImagePart partOf(const image::BaseImage& image)
{
    ImagePart part;
    part.wholeX = image.getSizeX();
    part.wholeY = image.getSizeY();
    part.wholeZ = image.getSizeZ();
    part.wholeC = image.getSizeC();
    part.wholeT = image.getSizeT();
    return part;
}

void addCopies(Calls& calls)
{
    for (const BaseImageGeometry& g : plansOf(eImageBufferType::UInt8)) {
        calls.push_back({"copyImg to a new one", {g}, [](const Images& i) { copyImg(i[0]); }, true});
        calls.push_back({"copyImg", {g, g}, [](const Images& i) { copyImg(i[0], i[1]); }, true});
        calls.push_back(
            {"copyImg_async to a new one", {g}, [](const Images& i) { finish(copyImg_async(i[0])); }, true});
        calls.push_back({"copyImg_async", {g, g}, [](const Images& i) { finish(copyImg_async(i[0], i[1])); }, true});
        calls.push_back({"eraseImg", {g}, [](const Images& i) { eraseImg(i[0]); }, true});
        calls.push_back({"eraseImg to a value", {g}, [](const Images& i) { eraseImg(i[0], 7); }, true});
        calls.push_back({"eraseImg_async", {g}, [](const Images& i) { finish(eraseImg_async(i[0])); }, true});
        calls.push_back(
            {"eraseImg_async to a value", {g}, [](const Images& i) { finish(eraseImg_async(i[0], 7)); }, true});
        const BaseImageGeometry real = retyped(g, eImageBufferType::Real32);
        calls.push_back({"convertImg to a new one",
                         {g},
                         [](const Images& i) { convertImg(i[0], eImageBufferType::Real32); },
                         true});
        calls.push_back({"convertImg", {g, real}, [](const Images& i) { convertImg(i[0], i[1]); }, true});
        calls.push_back({"convertImg_async to a new one",
                         {g},
                         [](const Images& i) { finish(convertImg_async(i[0], eImageBufferType::Real32)); },
                         true});
        calls.push_back(
            {"convertImg_async", {g, real}, [](const Images& i) { finish(convertImg_async(i[0], i[1])); }, true});
        calls.push_back({"BasicThresholdImgLvl1",
                         {g, retyped(g, eImageBufferType::eBufferBinary)},
                         [](const Images& i) {
                             processor::run<BasicThresholdImgLvl1>(processor::with<attr::InImg>(ImageConstPtr(i[0])),
                                                                   processor::with<attr::InThresholdMin>(3.0),
                                                                   processor::with<attr::InThresholdMax>(5.0),
                                                                   processor::with<attr::OutBinImg>(i[1]));
                         },
                         true});
    }
}

void addSequences(Calls& calls)
{
    const BaseImageGeometry two = *geometry5d(eImageBufferType::UInt8, g_sizeX, g_sizeY, 1, 1, 2);
    const BaseImageGeometry four = *geometry5d(eImageBufferType::UInt8, g_sizeX, g_sizeY, 1, 1, 4);
    calls.push_back({"appendSeqImg to a new one", {two, two}, [](const Images& i) { appendSeqImg(i[0], i[1]); }, true});
    calls.push_back({"appendSeqImg", {two, two, four}, [](const Images& i) { appendSeqImg(i[0], i[1], i[2]); }, true});
    calls.push_back({"appendSeqImg in place", {two, two}, [](const Images& i) { appendSeqImg(i[0], i[1], i[0]); }});
    calls.push_back({"appendSeqImg_async to a new one",
                     {two, two},
                     [](const Images& i) { finish(appendSeqImg_async(i[0], i[1])); },
                     true});
    calls.push_back({"appendSeqImg_async",
                     {two, two, four},
                     [](const Images& i) { finish(appendSeqImg_async(i[0], i[1], i[2])); },
                     true});
}

void addComparisons(Calls& calls)
{
    const auto tolerance = attr::createImgComparisonTolerance(1, 0);
    for (const BaseImageGeometry& g : plansOf(eImageBufferType::UInt8)) {
        calls.push_back({"compareImg", {g, g}, [](const Images& i) { compareImg(i[0], i[1]); }});
        calls.push_back({"compareImg within", {g, g}, [=](const Images& i) { compareImg(i[0], i[1], tolerance); }});
        calls.push_back({"compareImg_async", {g, g}, [](const Images& i) { finish(compareImg_async(i[0], i[1])); }});
        calls.push_back({"compareImg_async within", {g, g}, [=](const Images& i) {
                             finish(compareImg_async(i[0], i[1], tolerance));
                         }});
    }
}

void addRandom(Calls& calls)
{
    const auto range = attr::createRange(1, 5);
    const auto gauss = attr::createGaussianParameter(3, 1);
    for (const BaseImageGeometry& g : plansOf(eImageBufferType::Real32)) {
        calls.push_back({"randomImg", {g}, [](const Images& i) { randomImg(i[0]); }});
        calls.push_back({"randomImg of a range", {g}, [=](const Images& i) { randomImg(range, i[0]); }});
        calls.push_back({"randomImg of a part", {g}, [](const Images& i) { randomImg(i[0], partOf(*i[0])); }});
        calls.push_back(
            {"randomImg of a range and part", {g}, [=](const Images& i) { randomImg(range, i[0], partOf(*i[0])); }});
        calls.push_back({"randomImg_async", {g}, [](const Images& i) { finish(randomImg_async(i[0])); }});
        calls.push_back(
            {"randomImg_async of a range", {g}, [=](const Images& i) { finish(randomImg_async(range, i[0])); }});
        calls.push_back({"gaussianRandomImg", {g}, [=](const Images& i) { gaussianRandomImg(gauss, i[0]); }});
        calls.push_back({"gaussianRandomImg of a part", {g}, [=](const Images& i) {
                             gaussianRandomImg(gauss, i[0], partOf(*i[0]));
                         }});
        calls.push_back(
            {"gaussianRandomImg_async", {g}, [=](const Images& i) { finish(gaussianRandomImg_async(gauss, i[0])); }});
    }
}

void addLines(Calls& calls)
{
    for (const BaseImageGeometry& g : plansOf(eImageBufferType::eBufferBinary)) {
        calls.push_back({"buildLines2dImg", {g}, [](const Images& i) { buildLines2dImg(0.3f, 4, i[0]); }});
        calls.push_back(
            {"buildLines2dImg of a part", {g}, [](const Images& i) { buildLines2dImg(0.3f, 4, i[0], partOf(*i[0])); }});
        calls.push_back({"buildLines2dImgPart", {g}, [](const Images& i) {
                             buildLines2dImgPart({40, 40}, {3, 2}, 0.3f, 4, i[0]);
                         }});
        calls.push_back(
            {"buildLines2dImg_async", {g}, [](const Images& i) { finish(buildLines2dImg_async(0.3f, 4, i[0])); }});
    }
    for (const BaseImageGeometry& g : volumesOf(eImageBufferType::eBufferBinary)) {
        calls.push_back({"buildLines3dImg", {g}, [](const Images& i) { buildLines3dImg(0.3f, 0.2f, 0.1f, 4, i[0]); }});
        calls.push_back({"buildLines3dImg of a part", {g}, [](const Images& i) {
                             buildLines3dImg(0.3f, 0.2f, 0.1f, 4, i[0], partOf(*i[0]));
                         }});
        calls.push_back({"buildLines3dImgPart", {g}, [](const Images& i) {
                             buildLines3dImgPart({40, 40, 40}, {3, 2, 1}, 0.3f, 0.2f, 0.1f, 4, i[0]);
                         }});
        calls.push_back({"buildLines3dImg_async", {g}, [](const Images& i) {
                             finish(buildLines3dImg_async(0.3f, 0.2f, 0.1f, 4, i[0]));
                         }});
    }
}

void addRegions(Calls& calls)
{
    for (const BaseImageGeometry& g : plansOf(eImageBufferType::UInt8)) {
        const BaseImageGeometry roi = resized(g, 5, 4, g.getSizeZ());
        calls.push_back({"getROI2dImg to a new one", {g}, [](const Images& i) { getROI2dImg(i[0], 2, 1, 5, 4); }});
        calls.push_back({"getROI2dImg", {g, roi}, [](const Images& i) { getROI2dImg(i[0], 2, 1, 5, 4, i[1]); }});
        calls.push_back({"getROI2dImg_async to a new one", {g}, [](const Images& i) {
                             finish(getROI2dImg_async(i[0], 2, 1, 5, 4));
                         }});
        calls.push_back({"getROI2dImg_async", {g, roi}, [](const Images& i) {
                             finish(getROI2dImg_async(i[0], 2, 1, 5, 4, i[1]));
                         }});
        calls.push_back({"putROI2dImg in place", {roi, g}, [](const Images& i) { putROI2dImg(i[1], i[0], 2, 1); }});
        calls.push_back({"putROI2dImg", {g, roi, g}, [](const Images& i) { putROI2dImg(i[0], i[1], 2, 1, i[2]); }});
        calls.push_back({"putROI2dImg_async in place", {roi, g}, [](const Images& i) {
                             finish(putROI2dImg_async(i[1], i[0], 2, 1));
                         }});
        calls.push_back({"putROI2dImg_async", {g, roi, g}, [](const Images& i) {
                             finish(putROI2dImg_async(i[0], i[1], 2, 1, i[2]));
                         }});
    }
    for (const BaseImageGeometry& g : volumesOf(eImageBufferType::UInt8)) {
        const BaseImageGeometry roi = resized(g, 5, 4, 3);
        calls.push_back(
            {"getROI3dImg to a new one", {g}, [](const Images& i) { getROI3dImg(i[0], 2, 1, 1, 5, 4, 3); }});
        calls.push_back({"getROI3dImg", {g, roi}, [](const Images& i) { getROI3dImg(i[0], 2, 1, 1, 5, 4, 3, i[1]); }});
        calls.push_back({"getROI3dImg_async to a new one", {g}, [](const Images& i) {
                             finish(getROI3dImg_async(i[0], 2, 1, 1, 5, 4, 3));
                         }});
        calls.push_back({"getROI3dImg_async", {g, roi}, [](const Images& i) {
                             finish(getROI3dImg_async(i[0], 2, 1, 1, 5, 4, 3, i[1]));
                         }});
        calls.push_back({"putROI3dImg in place", {roi, g}, [](const Images& i) { putROI3dImg(i[1], i[0], 2, 1, 1); }});
        calls.push_back({"putROI3dImg", {g, roi, g}, [](const Images& i) { putROI3dImg(i[0], i[1], 2, 1, 1, i[2]); }});
        calls.push_back({"putROI3dImg_async in place", {roi, g}, [](const Images& i) {
                             finish(putROI3dImg_async(i[1], i[0], 2, 1, 1));
                         }});
        calls.push_back({"putROI3dImg_async", {g, roi, g}, [](const Images& i) {
                             finish(putROI3dImg_async(i[0], i[1], 2, 1, 1, i[2]));
                         }});
    }
}

void addSlices(Calls& calls)
{
    for (const BaseImageGeometry& g : volumesOf(eImageBufferType::UInt8)) {
        for (const eAxis::domain axis : {eAxis::eX, eAxis::eY, eAxis::eZ}) {
            const BaseImageGeometry slice =
                sliceOf(g, axis == eAxis::eX ? g_sizeY : g_sizeX, axis == eAxis::eZ ? g_sizeY : g_sizeZ);
            const std::string suffix = std::string(" along ") + "xyz"[axis];
            const bool bOnDevice = axis == eAxis::eZ;
            calls.push_back({"getSlice3dImg to a new one" + suffix,
                             {g},
                             [=](const Images& i) { getSlice3dImg(i[0], axis, 3); },
                             bOnDevice});
            calls.push_back({"getSlice3dImg" + suffix,
                             {g, slice},
                             [=](const Images& i) { getSlice3dImg(i[0], axis, 3, i[1]); },
                             bOnDevice});
            calls.push_back({"getSlice3dImg_async to a new one" + suffix,
                             {g},
                             [=](const Images& i) { finish(getSlice3dImg_async(i[0], axis, 3)); },
                             bOnDevice});
            calls.push_back({"getSlice3dImg_async" + suffix,
                             {g, slice},
                             [=](const Images& i) { finish(getSlice3dImg_async(i[0], axis, 3, i[1])); },
                             bOnDevice});
            calls.push_back({"putSlice3dImg to a new one" + suffix,
                             {g, slice},
                             [=](const Images& i) { putSlice3dImg(i[0], i[1], axis, 3); },
                             bOnDevice});
            calls.push_back({"putSlice3dImg" + suffix,
                             {g, slice, g},
                             [=](const Images& i) { putSlice3dImg(i[0], i[1], axis, 3, i[2]); },
                             bOnDevice});
            calls.push_back({"putSlice3dImg_async to a new one" + suffix,
                             {g, slice},
                             [=](const Images& i) { finish(putSlice3dImg_async(i[0], i[1], axis, 3)); },
                             bOnDevice});
            calls.push_back({"putSlice3dImg_async" + suffix,
                             {g, slice, g},
                             [=](const Images& i) { finish(putSlice3dImg_async(i[0], i[1], axis, 3, i[2])); },
                             bOnDevice});
        }
    }
}

void addValues(Calls& calls)
{
    const std::vector<double> xy = {3.5, 2.25, 9, 7};
    const std::vector<double> xyz = {3.5, 2.25, 1.5, 9, 7, 4};
    const auto points2d = attr::createCoords2dColl(xy);
    const auto points3d = attr::createCoords3dColl(xyz);
    const auto stack2d = boost::make_shared<attr::PlanIndexedCoords2dColl>();
    const auto stack3d = boost::make_shared<attr::PlanIndexedCoords3dColl>();
    for (unsigned long t = 0; t < 2; ++t) {
        for (unsigned long c = 0; c < 2; ++c) {
            stack3d->insert({0, c, t}, points3d);
            for (unsigned long z = 0; z < g_sizeZ; ++z) {
                stack2d->insert({z, c, t}, points2d);
            }
        }
    }
    const auto linear = attr::eInterpolationPolicy::eIP_Linear;
    const BaseImageGeometry plan = *geometry2d(eImageBufferType::UInt8, g_sizeX, g_sizeY);
    const BaseImageGeometry volume = *geometry3d(eImageBufferType::UInt8, g_sizeX, g_sizeY, g_sizeZ);
    const BaseImageGeometry stack = *geometry5d(eImageBufferType::UInt8, g_sizeX, g_sizeY, g_sizeZ, 2, 2);
    for (const unsigned long pixelsPerPoint :
         {attr::ImageValueExtractionMethod::s_tiledAlways, attr::ImageValueExtractionMethod::s_tiledNever}) {
        const auto method = attr::createImageValueExtractionMethod(pixelsPerPoint);
        const std::string suffix = pixelsPerPoint == 0 ? " by tiles" : " by strips";
        calls.push_back({"extractImg2dValues" + suffix, {plan}, [=](const Images& i) {
                             extractImg2dValues(i[0], points2d, linear, method);
                         }});
        calls.push_back({"extractImg2dValues_async" + suffix, {plan}, [=](const Images& i) {
                             finish(extractImg2dValues_async(i[0], points2d, linear, method));
                         }});
        calls.push_back({"multiSlice_extractImg2dValues" + suffix, {stack}, [=](const Images& i) {
                             multiSlice_extractImg2dValues(i[0], stack2d, linear, method);
                         }});
        calls.push_back({"multiSlice_extractImg2dValues_async" + suffix, {stack}, [=](const Images& i) {
                             finish(multiSlice_extractImg2dValues_async(i[0], stack2d, linear, method));
                         }});
        calls.push_back({"extractImg3dValues" + suffix, {volume}, [=](const Images& i) {
                             extractImg3dValues(i[0], points3d, linear, method);
                         }});
        calls.push_back({"extractImg3dValues_async" + suffix, {volume}, [=](const Images& i) {
                             finish(extractImg3dValues_async(i[0], points3d, linear, method));
                         }});
        calls.push_back({"multiSlice_extractImg3dValues" + suffix, {stack}, [=](const Images& i) {
                             multiSlice_extractImg3dValues(i[0], stack3d, linear, method);
                         }});
        calls.push_back({"multiSlice_extractImg3dValues_async" + suffix, {stack}, [=](const Images& i) {
                             finish(multiSlice_extractImg3dValues_async(i[0], stack3d, linear, method));
                         }});
    }
    calls.push_back({"extractImg2dValues", {plan}, [=](const Images& i) { extractImg2dValues(i[0], points2d); }});
    calls.push_back({"extractImg3dValues", {volume}, [=](const Images& i) { extractImg3dValues(i[0], points3d); }});
}

} // namespace

Calls makeImageCalls()
{
    Calls calls;
    for (const auto add :
         {&addCopies, &addSequences, &addComparisons, &addRandom, &addLines, &addRegions, &addSlices, &addValues}) {
        add(calls);
    }
    return calls;
}

} // namespace orlix::imaproc::util::test
