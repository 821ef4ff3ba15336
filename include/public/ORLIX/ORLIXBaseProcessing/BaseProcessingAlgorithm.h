// A processor that runs a kernel on the data of its attributes: the lowest level of every tower.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/AlgorithmFunctionSelector.h"
#include "ORLIX/ORLIXBaseProcessing/BaseDataParser.h"
#include "ORLIX/ORLIXBaseProcessing/BaseProcessor.h"

namespace orlix::processor {

using DataParserVector = std::vector<boost::shared_ptr<BaseDataParser>>;

/// A run: the parsers are made, `preProcess`, the kernel is chosen by element types and forced sets, it is called for
/// each block that the parsers give (once, with the values of `getNoParseInfo`, where the class has no parser),
/// `postProcess`; the parsers are cleared last, whatever happened.
class ORLIXBASEPROCESSING_API BaseProcessingAlgorithm : public BaseSyncProcessor
{
public:
    virtual const AlgorithmFunctionSelector& getFunctionSelector() const = 0;
    virtual const InstructionSetsIdentifier& getForcedInstructionSets() const = 0;

protected:
    ProcessingResult<bool> process() override { return mainProcess(); }
    ProcessingResult<bool> mainProcess() override;

    virtual ProcessingResult<bool> getDataTypeIdColl(DataTypeIdentifierColl& types) const = 0;
    /// Makes `parsers` hold the parsers of this run, in order; it comes as the last run left it.
    virtual ProcessingResult<bool> initDataParserColl(DataParserVector& parsers) = 0;
    virtual void clearDataParserColl() = 0;
    /// The parsers have started a block: to be told to kernels.
    virtual void takeBlocks() {}
    /// The kernel for `types`; null where there is none, and then `failNoKernel` is the result.
    KernelFunction selectKernel(const DataTypeIdentifierColl& types) const
    {
        const AlgorithmFunctionIdentifier* row = getFunctionSelector().select(types, getForcedInstructionSets());
        return row == nullptr ? nullptr : row->getFunction();
    }
    ProcessingResult<bool> failNoKernel(const DataTypeIdentifierColl& types) const;

    /// Elements, current line and first element of the one call of a class without parsers.
    virtual void getNoParseInfo(unsigned long& nbElements, unsigned long& currentLine,
                                unsigned long& firstElement) const;

    /// For kernels: their success, made outside the files that are built for an instruction set.
    static ProcessingResult<bool> succeed();

private:
    ProcessingResult<bool> runKernel(KernelFunction kernel);

    DataParserVector m_parsers;
};

} // namespace orlix::processor
