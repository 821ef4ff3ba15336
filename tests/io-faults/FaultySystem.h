// A system that does with files what systems may do.
#pragma once

#include <string>

namespace orlix::test {

/// What the system's functions do from now on, on every file of this process.
struct FaultySystem
{
    bool bInterrupts = false; ///< every other transfer and wait ends with EINTR
    bool bShort = false;      ///< transfers move half of what was asked for, rounded up
    int readError = 0;        ///< errno of every read
    int syncError = 0;        ///< errno of every wait for the disk
    std::string events = {};  ///< what was called: "sync " and "rename ", in order
};

FaultySystem& system();

} // namespace orlix::test
