#include "ORLIXIPL/ORLIXIPLUtility/Processor/BuildLines2dImg/BuildLines2dImg.h"

#include "ORLIX/ORLIXBaseProcessing/OperatorCall.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BuildLines2dImg/BuildLines2dImgLvl1.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ImageToBuild.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/LinePart.h"

namespace orlix::imaproc::util {

ImagePtr buildLines2dImg(unsigned long sizeX, unsigned long sizeY, float theta, float offset)
{
    return processor::runForOutput<BuildLines2dImgLvl1, attr::OutBinImg>(
        processor::with<attr::InOutputImg2dSize>(attr::createImg2dSize(sizeX, sizeY)),
        processor::with<attr::InTheta>(theta), processor::with<attr::InOffset>(static_cast<double>(offset)));
}

void buildLines2dImg(float theta, float offset, const ImagePtr& outImg)
{
    const image::BaseImage& out = accessImageToBuild(outImg);
    processor::run<BuildLines2dImgLvl1>(
        processor::with<attr::InOutputImg2dSize>(attr::createImg2dSize(out.getSizeX(), out.getSizeY())),
        processor::with<attr::InTheta>(theta), processor::with<attr::InOffset>(static_cast<double>(offset)),
        processor::with<attr::OutBinImg>(outImg));
}

void buildLines2dImgPart(const attr::Img2dSizeRecord& whole, const attr::Img2dOffsetRecord& first, float theta,
                         float offset, const ImagePtr& outImg)
{
    const image::BaseImage& out = accessImageToBuild(outImg);
    checkRule<BuildLines2dImgLvl1>(
        processor::with<attr::InOutputImg2dSize>(attr::createImg2dSize(out.getSizeX(), out.getSizeY())),
        processor::with<attr::OutBinImg>(outImg));
    checkPart(out, {whole.X, whole.Y, out.getSizeZ()}, {first.X, first.Y, 0});
    forEachPieceOfPlans(out, [&](const ImagePtr& plan, unsigned long firstLine, unsigned long nbLines) {
        const auto level = makeLevel<BuildLines2dImgLvl3>();
        level->set<attr::InTheta>(theta);
        level->set<attr::InOffset>(static_cast<double>(offset));
        level->drawPartOf(whole, first);
        level->set<attr::OutBinYStrip2d>(boost::make_shared<image::OutputImageYStrip2d>(*plan, firstLine, nbLines));
        processor::executeSyncRun(level);
    });
}

void buildLines2dImg(float theta, float offset, const ImagePtr& outImg, const ImagePart& part)
{
    checkPart(part, accessImageToBuild(outImg));
    buildLines2dImgPart({part.wholeX, part.wholeY}, {0, part.firstLine}, theta, offset, outImg);
}

boost::shared_ptr<BuildLines2dImgLvl1> buildLines2dImg_async(unsigned long sizeX, unsigned long sizeY, float theta,
                                                             float offset)
{
    return processor::start<BuildLines2dImgLvl1>(
        processor::with<attr::InOutputImg2dSize>(attr::createImg2dSize(sizeX, sizeY)),
        processor::with<attr::InTheta>(theta), processor::with<attr::InOffset>(static_cast<double>(offset)));
}

boost::shared_ptr<BuildLines2dImgLvl1> buildLines2dImg_async(float theta, float offset, const ImagePtr& outImg)
{
    const image::BaseImage& out = accessImageToBuild(outImg);
    return processor::start<BuildLines2dImgLvl1>(
        processor::with<attr::InOutputImg2dSize>(attr::createImg2dSize(out.getSizeX(), out.getSizeY())),
        processor::with<attr::InTheta>(theta), processor::with<attr::InOffset>(static_cast<double>(offset)),
        processor::with<attr::OutBinImg>(outImg));
}

ImagePtr getAsyncProcessorOutput(boost::shared_ptr<BuildLines2dImgLvl1> processor)
{
    return processor::outputOf<attr::OutBinImg>(processor);
}

} // namespace orlix::imaproc::util
