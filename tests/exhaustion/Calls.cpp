#include "exhaustion/Calls.h"

#include "ORLIX/ORLIXBaseProcessing/ProcessorFactory.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImageIO/ORLIXImageIO.h"

#include <boost/filesystem.hpp>

#include <cstring>

namespace orlix::test {

using image::eImageBufferType;
using namespace imaproc;
namespace fs = boost::filesystem;

Inputs::Inputs()
    : folder(fs::temp_directory_path() / fs::unique_path("orlix-exhaustion-%%%%-%%%%")),
      small(image::createImage(*image::geometry2d(eImageBufferType::UInt8, 40, 30))),
      large(image::createImage(*image::geometry2d(eImageBufferType::UInt8, 1024, 1100))),
      stack(image::createImage(*image::geometry3d(eImageBufferType::UInt8, 40, 30, 3))),
      stackOut(image::createImage(stack->getGeometry())),
      floats(image::createImage(*image::geometry2d(eImageBufferType::Real32, 40, 30))),
      out(image::createImage(small->getGeometry())), tolerance(boost::make_shared<attr::ImgComparisonTolerance>())
{
    fs::create_directory(folder);
    std::memset(image::planData<unsigned char>(*small, 0, 0, 0), 1, 40 * 30);
    std::memset(image::planData<unsigned char>(*large, 0, 0, 0), 2, 1024 * 1100);
    image::io::writeImage(file("in.tif"), small);
    image::io::writeImage(file("in.png"), small);
    image::io::WriteOptions options;
    options.compression = image::io::eTiffCompression::eDeflate;
    options.bTiled = true;
    image::io::writeImage(file("tiles.tif"), small, options);
    options = {};
    options.compression = image::io::eTiffCompression::eLzma;
    image::io::writeImage(file("lzma.tif"), small, options);
}

Inputs::~Inputs()
{
    boost::system::error_code ignored;
    fs::remove_all(folder, ignored);
}

namespace {

constexpr unsigned long g_throughTiff = 4096;

template <class TProcessor>
void finish(const boost::shared_ptr<TProcessor>& processor)
{
    static_cast<void>(processor->wait());
}

template <class TProcessor>
void finishAndTake(const boost::shared_ptr<TProcessor>& processor)
{
    finish(processor);
    static_cast<void>(util::getAsyncProcessorOutput(processor));
}

void thresholdByName(const Inputs& in)
{
    const auto processor =
        processor::ProcessorFactory::getInstance().createProcessor(util::BasicThresholdImgLvl1::getTypeName());
    static_cast<void>(processor->init(processor::eProcessorRulePolicy::eRulePolicyCheck));
    const auto threshold = boost::dynamic_pointer_cast<util::BasicThresholdImgLvl1>(processor);
    threshold->set<attr::InImg>(in.small);
    threshold->set<attr::InThresholdMin>(1.0);
    threshold->set<attr::InThresholdMax>(9.0);
    processor::executeSyncRun(processor);
    static_cast<void>(threshold->getStorage<attr::OutBinImg>());
}

void write(const Inputs& in, const char* name, const image::io::WriteOptions& options = {})
{
    image::io::writeImage(in.folder / name, in.small, options);
}

void wrap(const Inputs&)
{
    const auto owner = boost::make_shared<std::vector<unsigned char>>(40 * 30);
    static_cast<void>(image::wrapImage(*image::geometry2d(eImageBufferType::UInt8, 40, 30), owner->data(),
                                       {40, 1200, 1200, 1200}, owner));
}

const Call g_calls[] = {
    {"createImage", [](const Inputs&) { image::createImage(*image::geometry3d(eImageBufferType::UInt8, 40, 30, 3)); }},
    {"createImageLarge",
     [](const Inputs&) { image::createImage(*image::geometry2d(eImageBufferType::UInt8, 1024, 2048)); }},
    {"wrapImage", wrap},
    {"copyImg", [](const Inputs& in) { util::copyImg(in.small); }},
    {"copyImgLarge", [](const Inputs& in) { util::copyImg(in.large); }},
    {"copyImgStack", [](const Inputs& in) { util::copyImg(in.stack); }},
    {"copyImgGiven", [](const Inputs& in) { util::copyImg(in.stack, in.stackOut); }},
    {"copyImgRefused", [](const Inputs& in) { util::copyImg(in.small, in.floats); }},
    {"copyImg_async", [](const Inputs& in) { finishAndTake(util::copyImg_async(in.small)); }},
    {"copyImg_asyncGiven", [](const Inputs& in) { finishAndTake(util::copyImg_async(in.stack, in.stackOut)); }},
    {"eraseImg", [](const Inputs& in) { util::eraseImg(in.out); }},
    {"eraseImgValue", [](const Inputs& in) { util::eraseImg(in.stackOut, 3.0); }},
    {"eraseImg_async", [](const Inputs& in) { finishAndTake(util::eraseImg_async(in.out)); }},
    {"eraseImg_asyncValue", [](const Inputs& in) { finishAndTake(util::eraseImg_async(in.out, 3.0)); }},
    {"convertImg", [](const Inputs& in) { util::convertImg(in.small, eImageBufferType::Real32); }},
    {"convertImgGiven", [](const Inputs& in) { util::convertImg(in.small, in.floats); }},
    {"convertImg_async",
     [](const Inputs& in) { finishAndTake(util::convertImg_async(in.small, eImageBufferType::Real32)); }},
    {"convertImg_asyncGiven", [](const Inputs& in) { finishAndTake(util::convertImg_async(in.small, in.floats)); }},
    {"compareImg", [](const Inputs& in) { util::compareImg(in.stack, in.stackOut); }},
    {"compareImgTolerance", [](const Inputs& in) { util::compareImg(in.small, in.out, in.tolerance); }},
    {"compareImg_async", [](const Inputs& in) { finishAndTake(util::compareImg_async(in.small, in.out)); }},
    {"compareImg_asyncTolerance",
     [](const Inputs& in) { finishAndTake(util::compareImg_async(in.small, in.out, in.tolerance)); }},
    {"thresholdByName", thresholdByName},
    {"buildLines2dImg", [](const Inputs&) { static_cast<void>(util::buildLines2dImg(40, 30, 0.5F, 4.0F)); }},
    {"buildLines2dImg_async", [](const Inputs&) { finishAndTake(util::buildLines2dImg_async(40, 30, 0.5F, 4.0F)); }},
    {"buildLines2dImgRefused", [](const Inputs& in) { util::buildLines2dImg(0.5F, 4.0F, in.small); }},
    {"buildLines2dImgPart",
     [](const Inputs&) {
         const ImagePtr part = image::createImage(*image::geometry2d(eImageBufferType::eBufferBinary, 40, 3000));
         util::buildLines2dImgPart({100, 10'000}, {60, 5000}, 0.5F, 4.0F, part);
     }},
    {"buildLines3dImg",
     [](const Inputs&) { static_cast<void>(util::buildLines3dImg(40, 30, 3, 0.5F, 0.4F, 0.3F, 4.0F)); }},
    {"readImageTiff", [](const Inputs& in) { image::io::readImage(in.file("in.tif")); }, g_throughTiff},
    {"readImageTiles", [](const Inputs& in) { image::io::readImage(in.file("tiles.tif")); }, g_throughTiff},
    {"readImageLzma", [](const Inputs& in) { image::io::readImage(in.file("lzma.tif")); }, g_throughTiff},
    {"readImagePng", [](const Inputs& in) { image::io::readImage(in.file("in.png")); }},
    {"readImageMissing", [](const Inputs& in) { image::io::readImage(in.file("none.tif")); }},
    {"readImageInfoTiff", [](const Inputs& in) { image::io::readImageInfo(in.file("in.tif")); }, g_throughTiff},
    {"readImageInfoPng", [](const Inputs& in) { image::io::readImageInfo(in.file("in.png")); }},
    {"writeImageTiff", [](const Inputs& in) { write(in, "out.tif"); }, g_throughTiff},
    {"writeImagePng", [](const Inputs& in) { write(in, "out.png"); }},
    {"writeImageDeflate",
     [](const Inputs& in) {
         image::io::WriteOptions options;
         options.compression = image::io::eTiffCompression::eDeflate;
         write(in, "deflate.tif", options);
     },
     g_throughTiff},
    {"writeImageTiles",
     [](const Inputs& in) {
         image::io::WriteOptions options;
         options.compression = image::io::eTiffCompression::eLzw;
         options.bTiled = true;
         write(in, "lzw.tif", options);
     },
     g_throughTiff},
    {"writeImageRefused", [](const Inputs& in) { write(in, "out.bmp"); }},
};

} // namespace

std::span<const Call> allCalls()
{
    return g_calls;
}

} // namespace orlix::test
