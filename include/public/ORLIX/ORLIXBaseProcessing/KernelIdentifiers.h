// What a kernel is chosen by: element types and instruction sets.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/Export.h"
#include "ORLIX/ORLIXUtil/InstructionSet.h"

#include <array>
#include <initializer_list>
#include <string>

namespace orlix::processor {

/// One type of data that a kernel works on, as a small number of its own domain.
class BaseDataTypeIdentifier
{
public:
    static constexpr unsigned g_nbIds = 16;

    unsigned getId() const { return m_id; }

protected:
    /// Ids from 0 to 15.
    void initBase(unsigned id) { m_id = id < g_nbIds ? id : 0; }

private:
    unsigned m_id = 0;
};

/// The types of data of one run: none, one, or an ordered pair.
class DataTypeIdentifierColl
{
public:
    static constexpr unsigned g_nbKeys = 1 + BaseDataTypeIdentifier::g_nbIds * (1 + BaseDataTypeIdentifier::g_nbIds);

    void init() { m_key = 0; }
    void init(const BaseDataTypeIdentifier& type) { m_key = 1 + type.getId(); }
    void init(const BaseDataTypeIdentifier& first, const BaseDataTypeIdentifier& second)
    {
        m_key = 1 + BaseDataTypeIdentifier::g_nbIds * (1 + first.getId()) + second.getId();
    }

    /// Below g_nbKeys, different for different types; 0 for none.
    unsigned getKey() const { return m_key; }
    /// "no type", "type 2", "types 2 and 7".
    ORLIXBASEPROCESSING_API std::string toString() const;

private:
    unsigned m_key = 0;
};

/// A set of instruction sets; empty by default.
class InstructionSetsIdentifier
{
public:
    InstructionSetsIdentifier() = default;
    InstructionSetsIdentifier(std::initializer_list<eInstructionSet::domain> sets)
    {
        for (const eInstructionSet::domain set : sets) {
            m_bits |= 1U << set;
        }
    }

    void init(const eInstructionSet& set) { m_bits = 1U << static_cast<eInstructionSet::domain>(set); }
    void clear() { m_bits = 0; }
    bool isEmpty() const { return m_bits == 0; }
    bool contains(const eInstructionSet& set) const
    {
        return (m_bits >> static_cast<eInstructionSet::domain>(set)) & 1U;
    }
    /// The highest of them by value; plain for an empty set.
    eInstructionSet getHighest() const
    {
        return m_bits == 0 ? eInstructionSet::eNone : static_cast<eInstructionSet::domain>(31 - __builtin_clz(m_bits));
    }
    friend bool operator==(const InstructionSetsIdentifier&, const InstructionSetsIdentifier&) = default;

private:
    unsigned m_bits = 0;
};

/// Figure of merit of a kernel that uses these sets: the sum of the sets' values.
template <int set1, int set2, int set3>
struct AlgorithmFunctionEfficiency
{
    static constexpr unsigned int getEfficiency() { return set1 + set2 + set3; }
};

} // namespace orlix::processor
