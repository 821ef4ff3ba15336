// What a member of a data item can be.
#pragma once

#include "ORLIX/ORLIXBaseData/BaseDataItem.h"
#include "ORLIX/ORLIXSerialization/ArchiveValue.h"

#include <boost/shared_ptr.hpp>

#include <concepts>
#include <type_traits>
#include <vector>

namespace orlix {

namespace details {

struct IgnoreMember
{
    template <class TMember>
    void operator()(const char*, TMember) const
    {}
};

template <class T>
struct IsVector : std::false_type
{};
template <class T>
struct IsVector<std::vector<T>> : std::true_type
{};

template <class T>
struct IsSharedPointer : std::false_type
{};
template <class T>
struct IsSharedPointer<boost::shared_ptr<T>> : std::true_type
{};

} // namespace details

/// A struct that tells its members once, for archives, comparison and printing:
///
///     template <class TVisitor>
///     static void visit(TVisitor&& visitor)
///     {
///         visitor("x", &PixelPosition::x);
///         visitor("y", &PixelPosition::y);
///     }
template <class T>
concept DataRecord = requires
{
    T::visit(details::IgnoreMember());
};

/// A class behind BaseDataItem; a record as well where it is a DataItemNode.
template <class T>
concept DataNode = std::derived_from<T, BaseDataItem>;

/// A std::vector of any of these; not of bool.
template <class T>
concept DataCollection = details::IsVector<T>::value;

/// A boost::shared_ptr to a record or node, which may be null. What several pointers share is kept once each.
template <class T>
concept DataPointer = details::IsSharedPointer<T>::value;

} // namespace orlix
