// How kernels are called, in the module that holds them and where they are launched.
#pragma once

#include <string>

namespace orlix::imaproc::util::gpu {

template <class T>
inline constexpr const char* g_typeName = nullptr;
template <>
inline constexpr const char* g_typeName<signed char> = "signed char";
template <>
inline constexpr const char* g_typeName<unsigned char> = "unsigned char";
template <>
inline constexpr const char* g_typeName<short> = "short";
template <>
inline constexpr const char* g_typeName<unsigned short> = "unsigned short";
template <>
inline constexpr const char* g_typeName<int> = "int";
template <>
inline constexpr const char* g_typeName<unsigned int> = "unsigned int";
template <>
inline constexpr const char* g_typeName<float> = "float";

/// "CopyImg_knl<short>" or "ConvertImg_knl<short, float>".
template <class T, class... TMore>
std::string kernelName(const char* family)
{
    return ((std::string(family) + "<" + g_typeName<T>)+... + (std::string(", ") + g_typeName<TMore>)) + ">";
}

} // namespace orlix::imaproc::util::gpu
