// Element types of an image, and what is known of each.
#pragma once

#include "ORLIX/ORLIXUtil/Enumeration.h"
#include "ORLIX/ORLIXUtil/EnumerationNames.h"
#include "ORLIXIPL/ORLIXImage/Export.h"

#include <array>
#include <type_traits>

namespace orlix::image {

/// Element type of an image. 8 to 11 are types of their own that share the storage of the unsigned type of their width.
struct eImageBufferType
{
    enum domain {
        eNoBuffer = 0,
        Int8 = 1,
        UInt8 = 2,
        Int16 = 3,
        UInt16 = 4,
        Int32 = 5,
        UInt32 = 6,
        Real32 = 7,
        eBufferBinary = 8,
        eBufferUInt16Like = 9,
        eBufferUInt32Like = 10,
        eBufferUInt8Like = 11
    };
    ORLIX_ENUMERATION(eImageBufferType, eNoBuffer);
};

/// All types in the order of every table of the family: 11 stands before 9 and 10.
inline constexpr std::array<eImageBufferType::domain, 11> g_allBufferTypes = {eImageBufferType::Int8,
                                                                              eImageBufferType::UInt8,
                                                                              eImageBufferType::Int16,
                                                                              eImageBufferType::UInt16,
                                                                              eImageBufferType::Int32,
                                                                              eImageBufferType::UInt32,
                                                                              eImageBufferType::Real32,
                                                                              eImageBufferType::eBufferBinary,
                                                                              eImageBufferType::eBufferUInt8Like,
                                                                              eImageBufferType::eBufferUInt16Like,
                                                                              eImageBufferType::eBufferUInt32Like};

namespace details {
inline constexpr std::array<unsigned char, 12> g_elementSizes = {0, 1, 1, 2, 2, 4, 4, 4, 1, 2, 4, 1};
} // namespace details

/// Bytes of one element; 0 for a value outside 1 to 11.
constexpr unsigned long elementSize(const eImageBufferType& type)
{
    const auto value = static_cast<unsigned>(static_cast<eImageBufferType::domain>(type));
    return value < details::g_elementSizes.size() ? details::g_elementSizes[value] : 0;
}

/// Smallest and largest value that an element may hold: an integer's own range, the full width for the Like types, 0
/// to 1 for binary, -FLT_MAX to FLT_MAX for Real32. Throws ORLIXImageException for a value outside 1 to 11.
ORLIXIMAGE_API double getMinValue(const eImageBufferType& type);
ORLIXIMAGE_API double getMaxValue(const eImageBufferType& type);

/// "UInt8", "Real32", "Binary", "UInt16Like" and so on; "none" for 0, "unknown" outside 0 to 11.
ORLIXIMAGE_API const char* getBufferTypeName(const eImageBufferType& type);

/// Calls `visitor.template operator()<T>()` with the storage type of `type`: signed or unsigned char, short, int, or
/// float. Returns false, and calls nothing, for a value outside 1 to 11.
template <class TVisitor>
bool visitStorageType(const eImageBufferType& type, TVisitor&& visitor)
{
    switch (static_cast<eImageBufferType::domain>(type)) {
    case eImageBufferType::Int8: visitor.template operator()<signed char>(); return true;
    case eImageBufferType::UInt8:
    case eImageBufferType::eBufferBinary:
    case eImageBufferType::eBufferUInt8Like: visitor.template operator()<unsigned char>(); return true;
    case eImageBufferType::Int16: visitor.template operator()<short>(); return true;
    case eImageBufferType::UInt16:
    case eImageBufferType::eBufferUInt16Like: visitor.template operator()<unsigned short>(); return true;
    case eImageBufferType::Int32: visitor.template operator()<int>(); return true;
    case eImageBufferType::UInt32:
    case eImageBufferType::eBufferUInt32Like: visitor.template operator()<unsigned int>(); return true;
    case eImageBufferType::Real32: visitor.template operator()<float>(); return true;
    default: return false;
    }
}

/// True where T is the storage type of `type`.
template <class T>
bool isStorageType(const eImageBufferType& type)
{
    bool bSame = false;
    visitStorageType(type, [&]<class TStorage>() { bSame = std::is_same_v<T, TStorage>; });
    return bSame;
}

} // namespace orlix::image

namespace orlix {

template <>
struct EnumerationNames<image::eImageBufferType>
{
    static constexpr const auto& g_values = image::g_allBufferTypes;
    static const char* nameOf(const image::eImageBufferType& value) { return image::getBufferTypeName(value); }
};

} // namespace orlix
