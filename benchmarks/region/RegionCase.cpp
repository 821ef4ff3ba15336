#include "region/RegionCase.h"

namespace orlix::bench {

std::string nameRegion(const RegionCase& work, unsigned long nbThreads)
{
    return std::string(work.work == RegionWork::get ? "getROI2dImg/" : "putROI2dImg/") +
           image::getBufferTypeName(work.type) + '/' + work.size.name + "/threads:" + std::to_string(nbThreads);
}

std::vector<RegionCase> makeRegionCases()
{
    using image::eImageBufferType;
    std::vector<RegionCase> cases;
    for (const RegionSize& size : g_regionSizes) {
        for (const RegionWork work : {RegionWork::get, RegionWork::put}) {
            for (const eImageBufferType type : {eImageBufferType::UInt8, eImageBufferType::Real32}) {
                // The largest ones are chosen for bytes, so that one type fills no memory.
                if (size.imageX < 32768 || type == eImageBufferType::UInt8) {
                    cases.push_back({work, type, size});
                }
            }
        }
    }
    return cases;
}

} // namespace orlix::bench
