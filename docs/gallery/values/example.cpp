// Reads grey values every half pixel along a line through a volume, between its pixels.
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImg3dValues/ExtractImg3dValues.h"
#include "ORLIXIPL/ORLIXImageIO/ReadImage.h"

#include <fstream>
#include <limits>
#include <vector>

int main()
{
    using namespace orlix;
    using namespace orlix::imaproc;
    const ImagePtr head = image::io::readImage("head.tif");
    std::vector<double> points; // x, y, z of each
    for (int half = 0; half <= 254; ++half) {
        points.insert(points.end(), {half / 2., 60.25, 35.5});
    }
    const auto values =
        util::extractImg3dValues(head, attr::createCoords3dColl(points), attr::eInterpolationPolicy::eIP_Cubic);
    std::ofstream table("profile.csv");
    table.precision(std::numeric_limits<double>::max_digits10);
    table << "x,y,z,value\n";
    for (unsigned long i = 0; i < points.size() / 3; ++i) {
        table << points[3 * i] << ",60.25,35.5," << attr::valuesOf(*values)[i] << '\n';
    }
}
