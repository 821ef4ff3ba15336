#include "ORLIX/ORLIXBaseProcessing/AlgorithmFunctionSelector.h"

#include "ORLIX/ORLIXBaseProcessing/Logger/ORLIXBaseProcessingLogMessages.h"
#include "ORLIX/ORLIXCore/InstructionSetAvailability.h"

#include <algorithm>
#include <atomic>

namespace orlix::processor {

namespace {

/// Read by every kernel choice, hence an atomic of the plain bits' highest set; -1 stands for nothing forced.
std::atomic<int>& accessDefaultLimit()
{
    static std::atomic<int> g_limit{-1};
    return g_limit;
}

} // namespace

AlgorithmFunctionSelector::AlgorithmFunctionSelector() : m_rowsOfKey(DataTypeIdentifierColl::g_nbKeys) {}

AlgorithmFunctionSelector::~AlgorithmFunctionSelector() = default;

bool AlgorithmFunctionSelector::isSupported(const InstructionSetsIdentifier& sets)
{
    for (const eInstructionSet::domain set : {eInstructionSet::eNone, eInstructionSet::eSSE2, eInstructionSet::eAVX,
                                              eInstructionSet::eAVX2, eInstructionSet::eAVX512}) {
        if (sets.contains(set) && !core::isAvailable(set)) {
            return false;
        }
    }
    return true;
}

ProcessingResult<bool> AlgorithmFunctionSelector::registerFunction(const AlgorithmFunctionIdentifier& function)
{
    const std::string types = function.getDataTypes().toString();
    if (function.getFunction() == nullptr) {
        return ProcessingResult<bool>::failure(
            formatMessage<eAlgorithmFunctionMessage>(eAlgorithmFunctionMessage::eFunctionIsNull, types));
    }
    std::vector<unsigned>& rows = m_rowsOfKey[function.getDataTypes().getKey()];
    auto place = rows.begin();
    while (place != rows.end() && m_functions[*place].getEfficiency() > function.getEfficiency()) {
        ++place;
    }
    if (place != rows.end() && m_functions[*place].getEfficiency() == function.getEfficiency()) {
        return ProcessingResult<bool>::failure(formatMessage<eAlgorithmFunctionMessage>(
            eAlgorithmFunctionMessage::eFunctionRegisteredTwice, types, function.getEfficiency()));
    }
    rows.insert(place, static_cast<unsigned>(m_functions.size()));
    m_functions.push_back(function);
    return true;
}

void AlgorithmFunctionSelector::unRegisterFunction(KernelFunction function) noexcept
{
    for (auto row = static_cast<unsigned>(m_functions.size()); row-- > 0;) {
        if (m_functions[row].getFunction() == function) {
            unRegisterRow(row);
        }
    }
}

void AlgorithmFunctionSelector::unRegisterRow(unsigned row) noexcept
{
    m_functions.erase(m_functions.begin() + row);
    for (std::vector<unsigned>& rows : m_rowsOfKey) {
        std::erase(rows, row);
        for (unsigned& later : rows) {
            later -= later > row ? 1 : 0;
        }
    }
}

const AlgorithmFunctionIdentifier* AlgorithmFunctionSelector::select(const DataTypeIdentifierColl& types,
                                                                     const InstructionSetsIdentifier& forced) const
{
    const std::vector<unsigned>& rows = m_rowsOfKey[types.getKey()];
    if (rows.empty()) {
        return nullptr;
    }
    const int limit =
        forced.isEmpty() ? accessDefaultLimit().load(std::memory_order_relaxed) : static_cast<int>(forced.getHighest());
    if (limit >= 0) {
        for (const unsigned row : rows) {
            if (static_cast<int>(m_functions[row].getInstructionSets().getHighest()) <= limit) {
                return &m_functions[row];
            }
        }
    }
    return &m_functions[rows.front()];
}

void AlgorithmFunctionSelector::setDefaultForcedInstructionSets(const InstructionSetsIdentifier& sets)
{
    accessDefaultLimit().store(sets.isEmpty() ? -1 : static_cast<int>(sets.getHighest()), std::memory_order_relaxed);
}

} // namespace orlix::processor
