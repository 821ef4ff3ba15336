// Which kernels run, and whether an image holds what the oracle says.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPLUtility/KernelChecks.h"
#include "ORLIXIPLUtility/Processor/ConvertImg/ConvertImgOracle.h"
#include "support/Images.h"
#include "support/TestSettings.h"

#include <algorithm>

namespace orlix::testing {

/// The sets that the operator has kernels for.
inline constexpr Set g_convertSets[] = {eInstructionSet::eNone, eInstructionSet::eSSE2, eInstructionSet::eAVX2,
                                        eInstructionSet::eAVX512};

/// Those of them to try: of a forced set its own, else all that this processor has.
inline std::vector<Set> setsToTry()
{
    const std::optional<eInstructionSet> forced = getForcedInstructionSet();
    std::vector<Set> sets;
    for (const Set set : g_convertSets) {
        if (core::isAvailable(set) && (!forced || set <= *forced)) {
            sets.push_back(set);
        }
    }
    if (forced) {
        sets.erase(sets.begin(), sets.end() - 1);
    }
    return sets;
}

/// The set whose kernel converts between two types at present.
inline Set runningSet(BufferType from, BufferType to)
{
    processor::DataTypeIdentifierColl types;
    types.init(imaproc::ImageBufferTypeIdentifier(from), imaproc::ImageBufferTypeIdentifier(to));
    return imaproc::util::ConvertImgLvl3::accessFunctionSelector()
        .select(types, imaproc::util::ConvertImgLvl3::accessForcedInstructionSets())
        ->getInstructionSets()
        .getHighest();
}

using ForcedConvertSet = ForcedSet<imaproc::util::ConvertImgLvl3>;

/// What convertImg makes; see makeOnSpoiltMemory.
inline ImagePtr converted(const ImageConstPtr& in, BufferType to)
{
    const image::BaseImageGeometry& geometry = in->getGeometry();
    return makeOnSpoiltMemory({to, geometry.getSizeX(), geometry.getSizeY(), geometry.getVolumeGeometry(),
                               geometry.getColorGeometry(), geometry.getTemporalGeometry()},
                              [&] { return imaproc::util::convertImg(in, to); });
}

inline std::uint32_t bitsAt(const std::byte* elements, unsigned long index, unsigned long size)
{
    std::uint32_t bits = 0;
    std::memcpy(&bits, elements + index * size, size);
    return bits;
}

/// Does every element of `out` hold what the kernels that run at present have to make of `in`?
inline ::testing::AssertionResult isConverted(const image::BaseImage& in, const image::BaseImage& out)
{
    if (!in.getGeometry().hasSameSizes(out.getGeometry())) {
        return ::testing::AssertionFailure()
               << in.getGeometry().toString() << " became " << out.getGeometry().toString();
    }
    const std::vector<std::byte> source = bytesOf(in);
    const std::vector<std::byte> result = bytesOf(out);
    const std::byte* nextSource = source.data();
    const std::byte* nextResult = result.data();
    const unsigned long nbElements = in.getSizeX() * in.getSizeY() * in.getSizeZ() * in.getSizeC(); // a time step's
    for (unsigned long t = 0; t < in.getSizeT(); ++t) {
        const BufferType from = in.getBufferType(t);
        const BufferType to = out.getBufferType(t);
        const Set set = runningSet(from, to);
        const unsigned long fromSize = image::elementSize(from);
        const unsigned long toSize = image::elementSize(to);
        for (unsigned long i = 0; i < nbElements; ++i) {
            const SourceElement element = readElement(from, bitsAt(nextSource, i, fromSize));
            const std::uint32_t expected = convertedBits(set, from, element, to);
            const std::uint32_t found = bitsAt(nextResult, i, toSize);
            if (expected != found) {
                return ::testing::AssertionFailure()
                       << core::getInstructionSetName(set) << ", element " << i << " of step " << t << ": "
                       << image::getBufferTypeName(from) << " bits " << std::hex << element.bits << " became "
                       << image::getBufferTypeName(to) << " bits " << found << " instead of " << expected;
            }
        }
        nextSource += nbElements * fromSize;
        nextResult += nbElements * toSize;
    }
    return ::testing::AssertionSuccess();
}

} // namespace orlix::testing
