// A parser hands the data of an attribute to a kernel, block by block.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/Export.h"
#include "ORLIX/ORLIXBaseProcessing/ProcessingTypes.h"

namespace orlix::processor {

class ORLIXBASEPROCESSING_API BaseDataParser
{
public:
    virtual ~BaseDataParser();

    /// Blocks in which the data is handed out; 0 where there is none.
    virtual unsigned long getNbBlocks() const = 0;
    /// Makes `block` the current one and describes it. Blocks are taken in rising order.
    virtual void startBlock(unsigned long block, ProcessingInfo& info) = 0;
    /// The kernel has ended: what it wrote is put where it belongs.
    virtual void endBlock() = 0;
    /// Unbinds.
    virtual void clear() = 0;
};

} // namespace orlix::processor
