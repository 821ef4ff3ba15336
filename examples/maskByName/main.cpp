// Makes a mask of the pixels between two values by a processor that is made by its name:
// maskByName head.tif 20000 40000 mask.tif
#include "ORLIX/ORLIXBaseProcessing/ProcessorFactory.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPL/ORLIXImageIO/ReadImage.h"
#include "ORLIXIPL/ORLIXImageIO/WriteImage.h"

#include <iostream>

namespace {

using namespace orlix;
namespace attr = imaproc::attr;

ImagePtr maskOf(const ImagePtr& image, double lowest, double highest)
{
    const boost::shared_ptr<processor::BaseProcessor> threshold =
        processor::ProcessorFactory::getInstance().createProcessor("orlix::imaproc::util::BasicThresholdImgLvl1");
    const ProcessingResult<bool> ready = threshold->init(processor::eProcessorRulePolicy::eRulePolicyCheck);
    if (!ready) {
        throw std::runtime_error(ready.getMessage());
    }
    dynamic_cast<attr::InImg&>(threshold->getAttribute("InImg")).init(image);
    dynamic_cast<attr::InThresholdMin&>(threshold->getAttribute("InThresholdMin")).init(lowest);
    dynamic_cast<attr::InThresholdMax&>(threshold->getAttribute("InThresholdMax")).init(highest);
    processor::executeSyncRun(threshold); // throws what the rules refuse
    return dynamic_cast<attr::OutBinImg&>(threshold->getAttribute("OutBinImg")).getStorage();
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 5) {
        std::cerr << "usage: maskByName <image file> <lowest value> <highest value> <file to write>\n";
        return 2;
    }
    try {
        image::io::writeImage(argv[4], maskOf(image::io::readImage(argv[1]), std::stod(argv[2]), std::stod(argv[3])));
    } catch (const std::exception& exception) {
        std::cerr << exception.what() << '\n';
        return 2;
    }
    return 0;
}
