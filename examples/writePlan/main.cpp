// Cuts one plan out of an image file and writes it to another file: writePlan head.tif 35 plan.png
#include "ORLIXIPL/ORLIXBaseImageTools/SubImageExtractor.h"
#include "ORLIXIPL/ORLIXImageIO/ReadImage.h"
#include "ORLIXIPL/ORLIXImageIO/WriteImage.h"

#include <iostream>

int main(int argc, char** argv)
{
    using namespace orlix;
    if (argc != 4) {
        std::cerr << "usage: writePlan <image file> <z of the plan, from 0> <file to write, .tif or .png>\n";
        return 2;
    }
    try {
        const ImagePtr volume = image::io::readImage(argv[1]);
        ImagePtr plan;
        const ProcessingResult<bool> result =
            image::SubImageExtractor::extractPlan(std::stoul(argv[2]), 0, 0, *volume, plan);
        if (!result) {
            std::cerr << result.getMessage() << '\n';
            return 2;
        }
        image::io::writeImage(argv[3], plan);
    } catch (const std::exception& exception) {
        std::cerr << exception.what() << '\n';
        return 2;
    }
    return 0;
}
