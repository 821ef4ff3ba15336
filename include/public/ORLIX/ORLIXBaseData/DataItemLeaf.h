// One value of a data item, known by its type.
#pragma once

#include <utility>
#include <vector>

namespace orlix {

/// Derive a struct to name a leaf: `struct X : DataItemLeaf<double> { static constexpr const char* g_name = "X"; };`
/// The struct is then the key by which templates find the value. `T` may be anything that `DataValue.h` lists.
template <class T>
class DataItemLeaf
{
public:
    using ValueType = T;

    DataItemLeaf() = default;
    explicit DataItemLeaf(T startValue) : m_value(std::move(startValue)) {}

    const T& getValue() const { return m_value; }
    T& accessValue() { return m_value; }

private:
    T m_value{};
};

/// A collection as one leaf: of values, of records, of nodes, or of shared pointers to nodes.
template <class T>
using DataItemColl = DataItemLeaf<std::vector<T>>;

} // namespace orlix
