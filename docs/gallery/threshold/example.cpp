// Marks soft tissue.
#include "ORLIX/ORLIXBaseProcessing/OperatorCall.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BasicThresholdImg/BasicThresholdImgLvl1.h"
#include "ORLIXIPL/ORLIXImageIO/ReadImage.h"
#include "ORLIXIPL/ORLIXImageIO/WriteImage.h"

int main()
{
    using namespace orlix;
    using namespace orlix::imaproc;
    const ImagePtr head = image::io::readImage("head.tif");
    const ImagePtr mask = processor::runForOutput<util::BasicThresholdImgLvl1, attr::OutBinImg>(
        processor::with<attr::InImg>(head), processor::with<attr::InThresholdMin>(26000.),
        processor::with<attr::InThresholdMax>(60000.));
    image::io::writeImage("mask.tif", mask);
}
