// The launchers of classes that work on devices, by one element type or by a pair, in the family's order of types.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/CudaFunctionSelector.h"
#include "ORLIXIPL/ORLIXImage/ImageBufferType.h"

#include <array>

namespace orlix::imaproc {

namespace details {

template <image::eImageBufferType::domain type, class T>
struct GpuElementType
{
    static constexpr unsigned char g_id = type;
    using Storage = T;
};

template <class... TTypes>
struct GpuElementTypes
{
    template <class TLevel>
    static constexpr std::array<processor::CudaFunctionRow, sizeof...(TTypes)> rows()
    {
        return {{{TTypes::g_id, 0,
                  static_cast<processor::CudaFunction>(
                      &TLevel::template genericKernelLauncher<typename TTypes::Storage>)}...}};
    }
    /// The input's type changes slowest.
    template <class TLevel>
    static constexpr std::array<processor::CudaFunctionRow, sizeof...(TTypes) * sizeof...(TTypes)> pairRows()
    {
        std::array<processor::CudaFunctionRow, sizeof...(TTypes) * sizeof...(TTypes)> all{};
        std::size_t nbRows = 0;
        (addRowsFrom<TLevel, TTypes>(all, nbRows), ...);
        return all;
    }

private:
    template <class TLevel, class TIn, class TRows>
    static constexpr void addRowsFrom(TRows& rows, std::size_t& nbRows)
    {
        ((rows[nbRows++] =
              {TIn::g_id, TTypes::g_id,
               static_cast<processor::CudaFunction>(
                   &TLevel::template genericKernelLauncher<typename TIn::Storage, typename TTypes::Storage>)}),
         ...);
    }
};

using image::eImageBufferType;
using EveryGpuElementType = GpuElementTypes<
    GpuElementType<eImageBufferType::Int8, signed char>, GpuElementType<eImageBufferType::UInt8, unsigned char>,
    GpuElementType<eImageBufferType::Int16, short>, GpuElementType<eImageBufferType::UInt16, unsigned short>,
    GpuElementType<eImageBufferType::Int32, int>, GpuElementType<eImageBufferType::UInt32, unsigned int>,
    GpuElementType<eImageBufferType::Real32, float>, GpuElementType<eImageBufferType::eBufferBinary, unsigned char>,
    GpuElementType<eImageBufferType::eBufferUInt8Like, unsigned char>,
    GpuElementType<eImageBufferType::eBufferUInt16Like, unsigned short>,
    GpuElementType<eImageBufferType::eBufferUInt32Like, unsigned int>>;

} // namespace details

/// `TLevel::genericKernelLauncher<T>` for every element type.
template <class TLevel>
inline constexpr auto g_gpuRows = details::EveryGpuElementType::rows<TLevel>();
/// `TLevel::genericKernelLauncher<TIn, TOut>` for every pair of element types: input, output.
template <class TLevel>
inline constexpr auto g_gpuPairRows = details::EveryGpuElementType::pairRows<TLevel>();

} // namespace orlix::imaproc
