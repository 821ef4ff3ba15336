#include "ORLIXIPL/ORLIXImage/PixelRun.h"

#include <cstdint>
#include <cstring>

namespace orlix::image {

namespace {

template <class T>
void copyElements(std::byte* to, long toStride, const std::byte* from, long fromStride, unsigned long count)
{
    const auto toBytes = toStride * static_cast<long>(sizeof(T));
    const auto fromBytes = fromStride * static_cast<long>(sizeof(T));
    for (unsigned long i = 0; i < count; ++i, to += toBytes, from += fromBytes) {
        std::memcpy(to, from, sizeof(T));
    }
}

} // namespace

void copyRun(std::byte* to, long toStride, const std::byte* from, long fromStride, unsigned long count,
             unsigned long elementBytes)
{
    if (toStride == 1 && fromStride == 1) {
        std::memcpy(to, from, count * elementBytes);
    } else if (elementBytes == 1) {
        copyElements<std::uint8_t>(to, toStride, from, fromStride, count);
    } else if (elementBytes == 2) {
        copyElements<std::uint16_t>(to, toStride, from, fromStride, count);
    } else {
        copyElements<std::uint32_t>(to, toStride, from, fromStride, count);
    }
}

const std::byte* RowReader::gather(const std::byte* from, long stride, unsigned long count, unsigned long elementBytes)
{
    if (m_row.size() < count * elementBytes) {
        m_row.resize(count * elementBytes);
    }
    copyRun(m_row.data(), 1, from, stride, count, elementBytes);
    return m_row.data();
}

} // namespace orlix::image
