#include "slice/SliceCase.h"

namespace orlix::bench {

using image::eImageBufferType;
using imaproc::eAxis;

std::string SliceCase::getName(unsigned long nbThreads) const
{
    return std::string(bPut ? "putSlice3dImg/" : "getSlice3dImg/") + EnumerationNames<eAxis>::nameOf(axis) + '/' +
           image::getBufferTypeName(type) + '/' + volume.name + "/threads:" + std::to_string(nbThreads);
}

unsigned long SliceCase::getSizeX() const
{
    return axis == eAxis::eX ? volume.sizeY : volume.sizeX;
}

unsigned long SliceCase::getSizeY() const
{
    return axis == eAxis::eZ ? volume.sizeY : volume.sizeZ;
}

unsigned long SliceCase::countSlices() const
{
    return axis == eAxis::eX ? volume.sizeX : axis == eAxis::eY ? volume.sizeY : volume.sizeZ;
}

unsigned long SliceCase::countBytes() const
{
    const unsigned long pixelBytes = image::elementSize(type);
    const unsigned long volumeBytes = axis == eAxis::eX ? 64 : pixelBytes;
    const unsigned long nbTimes = bPut && axis == eAxis::eX ? 2 : 1; // read and written back
    return getSizeX() * getSizeY() * (pixelBytes + nbTimes * volumeBytes);
}

std::vector<SliceCase> makeSliceCases()
{
    std::vector<SliceCase> cases;
    for (const SliceVolume& volume : g_sliceVolumes) {
        for (const bool bPut : {false, true}) {
            for (const eAxis::domain axis : {eAxis::eX, eAxis::eY, eAxis::eZ}) {
                for (const eImageBufferType type : {eImageBufferType::UInt8, eImageBufferType::Real32}) {
                    cases.push_back({bPut, axis, type, volume});
                }
            }
        }
    }
    return cases;
}

} // namespace orlix::bench
