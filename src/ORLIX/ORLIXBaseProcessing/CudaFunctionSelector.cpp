#include "ORLIX/ORLIXBaseProcessing/CudaFunctionSelector.h"

#include "ORLIX/ORLIXBaseProcessing/ClassStatics.h"
#include "ORLIX/ORLIXBaseProcessing/Logger/ORLIXBaseProcessingLog.h"
#include "ORLIX/ORLIXBaseProcessing/Logger/ORLIXBaseProcessingLogMessages.h"
#include "ORLIX/ORLIXCore/ProcessEnding.h"
#include "ORLIX/ORLIXUtil/Logger/BaseLogger.h"

#include <algorithm>
#include <map>
#include <memory>

namespace orlix::processor {

namespace {

using Selectors = std::map<std::string, CudaFunctionSelector>;

/// Goes with this library, but not with the process: its threads may still run when it ends.
struct Registry
{
    std::mutex mutex;
    Selectors* selectors = nullptr;
};

Registry& accessRegistry()
{
    constinit static Registry g_registry;
    return g_registry;
}

[[gnu::destructor]] void endSelectors()
{
    if (!core::isProcessEnding()) {
        const std::unique_ptr<Selectors> selectors(accessRegistry().selectors);
        accessRegistry().selectors = nullptr;
    }
}

class RowTypeIdentifier final : public BaseDataTypeIdentifier
{
public:
    explicit RowTypeIdentifier(unsigned id) { initBase(id); }
};

DataTypeIdentifierColl typesOf(const CudaFunctionRow& row)
{
    DataTypeIdentifierColl types;
    if (row.type2 != 0) {
        types.init(RowTypeIdentifier(row.type1), RowTypeIdentifier(row.type2));
    } else {
        types.init(RowTypeIdentifier(row.type1));
    }
    return types;
}

} // namespace

ProcessingResult<bool> CudaFunctionSelector::registerFunction(const CudaFunctionIdentifier& function)
{
    using Message = eAlgorithmFunctionMessage;
    const std::string types = function.getDataTypes().toString();
    if (function.getFunction() == nullptr) {
        return ProcessingResult<bool>::failure(formatMessage<Message>(Message::eFunctionIsNull, types));
    }
    if (select(function.getDataTypes()) != nullptr) {
        return ProcessingResult<bool>::failure(formatMessage<Message>(Message::eCudaFunctionRegisteredTwice, types));
    }
    m_functions.push_back(function);
    return true;
}

void CudaFunctionSelector::unRegisterFunction(CudaFunction function) noexcept
{
    std::erase_if(m_functions, [function](const auto& row) { return row.getFunction() == function; });
}

const CudaFunctionIdentifier* CudaFunctionSelector::select(const DataTypeIdentifierColl& types) const
{
    const auto row = std::find_if(m_functions.begin(), m_functions.end(), [&types](const auto& candidate) {
        return candidate.getDataTypes().getKey() == types.getKey();
    });
    return row == m_functions.end() ? nullptr : &*row;
}

CudaFunctionSelector& accessCudaFunctionSelector(const std::type_info& type)
{
    const std::string key = details::makeClassKey(type);
    Registry& registry = accessRegistry();
    const std::lock_guard<std::mutex> lock(registry.mutex);
    if (registry.selectors == nullptr) {
        registry.selectors = std::make_unique<Selectors>().release();
    }
    return (*registry.selectors)[key];
}

void details::functionRegistration(CudaFunctionSelector& selector, std::span<const CudaFunctionRow> rows)
{
    std::string errors;
    for (const CudaFunctionRow& row : rows) {
        CudaFunctionIdentifier function;
        function.init(typesOf(row), row.function);
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

void details::unRegisterFunctions(CudaFunctionSelector& selector, std::span<const CudaFunctionRow> rows) noexcept
{
    if (core::isProcessEnding()) {
        return; // threads may still choose launchers
    }
    for (const CudaFunctionRow& row : rows) {
        selector.unRegisterFunction(row.function);
    }
}

} // namespace orlix::processor
