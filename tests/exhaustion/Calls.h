// The public calls that are made while memory ends, and what they work on.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/ImgComparisonTolerance.h"
#include "ORLIXIPL/ORLIXImage/BaseImage.h"

#include <boost/filesystem/path.hpp>

#include <ostream>
#include <span>

namespace orlix::test {

/// What a call works on; made before memory ends.
struct Inputs
{
    Inputs();
    ~Inputs();

    boost::filesystem::path file(const char* name) const { return folder / name; }

    boost::filesystem::path folder;
    ImagePtr small;
    ImagePtr large; ///< has pages of its own
    ImagePtr stack;
    ImagePtr stackOut;
    ImagePtr floats;
    ImagePtr out;
    boost::shared_ptr<imaproc::attr::ImgComparisonTolerance> tolerance;
};

struct Call
{
    const char* name;
    void (*work)(const Inputs& in);
    /// Small blocks of C libraries that don't fail: libtiff 4.5 counts entries of its lists before it has their memory,
    /// and then walks beyond their end.
    unsigned long smallestByC = 0;
};

inline void PrintTo(const Call& call, std::ostream* out)
{
    *out << call.name;
}

std::span<const Call> allCalls();

} // namespace orlix::test
