#include "ORLIX/ORLIXBaseProcessing/KernelTable.h"

#include "ORLIX/ORLIXBaseProcessing/Logger/ORLIXBaseProcessingLog.h"
#include "ORLIX/ORLIXBaseProcessing/Logger/ORLIXBaseProcessingLogMessages.h"
#include "ORLIX/ORLIXCore/ProcessEnding.h"
#include "ORLIX/ORLIXUtil/Logger/BaseLogger.h"

namespace orlix::processor {

namespace {

class RowTypeIdentifier final : public BaseDataTypeIdentifier
{
public:
    explicit RowTypeIdentifier(unsigned id) { initBase(id); }
};

DataTypeIdentifierColl typesOf(const KernelRow& row)
{
    DataTypeIdentifierColl types;
    if (row.type2 != 0) {
        types.init(RowTypeIdentifier(row.type1), RowTypeIdentifier(row.type2));
    } else if (row.type1 != 0) {
        types.init(RowTypeIdentifier(row.type1));
    }
    return types;
}

} // namespace

void details::functionRegistration(AlgorithmFunctionSelector& selector, const KernelTable& table)
{
    InstructionSetsIdentifier sets;
    sets.init(table.set);
    if (!AlgorithmFunctionSelector::isSupported(sets)) {
        return;
    }
    std::string errors;
    for (const KernelRow* row = table.rows; row != table.rows + table.nbRows; ++row) {
        AlgorithmFunctionIdentifier function;
        function.init(typesOf(*row), sets, static_cast<unsigned int>(table.set), row->function);
        if (const ProcessingResult<bool> result = selector.registerFunction(function); !result) {
            errors += result.getMessage() + "\n";
        }
    }
    if (!errors.empty()) {
        logMessage(getORLIXBaseProcessingLoggerName(), g_traceLogLevel,
                   formatMessage<eAlgorithmFunctionMessage>(eAlgorithmFunctionMessage::eRegistrationFailed, errors),
                   __FILE__, __LINE__);
    }
}

void details::unRegisterKernels(AlgorithmFunctionSelector& selector, const KernelTable& table) noexcept
{
    if (core::isProcessEnding()) {
        return; // threads may still choose kernels
    }
    for (const KernelRow* row = table.rows; row != table.rows + table.nbRows; ++row) {
        selector.unRegisterFunction(row->function);
    }
}

} // namespace orlix::processor
