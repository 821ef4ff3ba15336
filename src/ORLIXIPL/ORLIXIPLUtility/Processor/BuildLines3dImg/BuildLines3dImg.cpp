#include "ORLIXIPL/ORLIXIPLUtility/Processor/BuildLines3dImg/BuildLines3dImg.h"

#include "ORLIX/ORLIXBaseProcessing/OperatorCall.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BuildLines3dImg/BuildLines3dImgLvl1.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ImageToBuild.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/LinePart.h"

namespace orlix::imaproc::util {

ImagePtr buildLines3dImg(unsigned long sizeX, unsigned long sizeY, unsigned long sizeZ, float theta, float phi,
                         float alpha, float offset)
{
    return processor::runForOutput<BuildLines3dImgLvl1, attr::OutBinImg3d>(
        processor::with<attr::InOutputImg3dSize>(attr::createImg3dSize(sizeX, sizeY, sizeZ)),
        processor::with<attr::InTheta>(theta), processor::with<attr::InPhi>(phi), processor::with<attr::InAlpha>(alpha),
        processor::with<attr::InOffset>(static_cast<double>(offset)));
}

void buildLines3dImg(float theta, float phi, float alpha, float offset, const ImagePtr& outImg)
{
    const image::BaseImage& out = accessImageToBuild(outImg);
    processor::run<BuildLines3dImgLvl1>(
        processor::with<attr::InOutputImg3dSize>(attr::createImg3dSize(out.getSizeX(), out.getSizeY(), out.getSizeZ())),
        processor::with<attr::InTheta>(theta), processor::with<attr::InPhi>(phi), processor::with<attr::InAlpha>(alpha),
        processor::with<attr::InOffset>(static_cast<double>(offset)), processor::with<attr::OutBinImg3d>(outImg));
}

void buildLines3dImgPart(const attr::Img3dSizeRecord& whole, const attr::Img3dOffsetRecord& first, float theta,
                         float phi, float alpha, float offset, const ImagePtr& outImg)
{
    const image::BaseImage& out = accessImageToBuild(outImg);
    checkRule<BuildLines3dImgLvl1>(
        processor::with<attr::InOutputImg3dSize>(attr::createImg3dSize(out.getSizeX(), out.getSizeY(), out.getSizeZ())),
        processor::with<attr::OutBinImg3d>(outImg));
    checkPart(out, whole, first);
    forEachPlanOfVolumes(out, [&](const ImagePtr& volume, unsigned long z) {
        const auto level = makeLevel<BuildLines3dImgLvl3>();
        level->set<attr::InTheta>(theta);
        level->set<attr::InPhi>(phi);
        level->set<attr::InAlpha>(alpha);
        level->set<attr::InOffset>(static_cast<double>(offset));
        level->drawPartOf(whole, first);
        level->set<attr::OutBinZStrip3d>(boost::make_shared<image::OutputImageZStrip3d>(*volume, z, 1));
        processor::executeSyncRun(level);
    });
}

void buildLines3dImg(float theta, float phi, float alpha, float offset, const ImagePtr& outImg, const ImagePart& part)
{
    checkPart(part, accessImageToBuild(outImg));
    buildLines3dImgPart({part.wholeX, part.wholeY, part.wholeZ}, {0, part.firstLine, part.firstPlan.z}, theta, phi,
                        alpha, offset, outImg);
}

boost::shared_ptr<BuildLines3dImgLvl1> buildLines3dImg_async(unsigned long sizeX, unsigned long sizeY,
                                                             unsigned long sizeZ, float theta, float phi, float alpha,
                                                             float offset)
{
    return processor::start<BuildLines3dImgLvl1>(
        processor::with<attr::InOutputImg3dSize>(attr::createImg3dSize(sizeX, sizeY, sizeZ)),
        processor::with<attr::InTheta>(theta), processor::with<attr::InPhi>(phi), processor::with<attr::InAlpha>(alpha),
        processor::with<attr::InOffset>(static_cast<double>(offset)));
}

boost::shared_ptr<BuildLines3dImgLvl1> buildLines3dImg_async(float theta, float phi, float alpha, float offset,
                                                             const ImagePtr& outImg)
{
    const image::BaseImage& out = accessImageToBuild(outImg);
    return processor::start<BuildLines3dImgLvl1>(
        processor::with<attr::InOutputImg3dSize>(attr::createImg3dSize(out.getSizeX(), out.getSizeY(), out.getSizeZ())),
        processor::with<attr::InTheta>(theta), processor::with<attr::InPhi>(phi), processor::with<attr::InAlpha>(alpha),
        processor::with<attr::InOffset>(static_cast<double>(offset)), processor::with<attr::OutBinImg3d>(outImg));
}

ImagePtr getAsyncProcessorOutput(boost::shared_ptr<BuildLines3dImgLvl1> processor)
{
    return processor::outputOf<attr::OutBinImg3d>(processor);
}

} // namespace orlix::imaproc::util
