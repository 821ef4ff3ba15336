#include "ORLIXIPL/ORLIXImageProcessing/Parser/MarginLines.h"

#include "ORLIXIPL/ORLIXImage/PixelRun.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace orlix::imaproc {

unsigned long nbPlacesOf(const image::Margin& across)
{
    unsigned long nbPlaces = 0;
    if (__builtin_add_overflow(across.start, across.end, &nbPlaces) || nbPlaces == ~0UL) {
        throw std::bad_alloc();
    }
    return nbPlaces + 1;
}

void MarginLines::init(unsigned long nbPlaces, unsigned long sizeX, long pixelStride, const image::Margin& margin,
                       unsigned long elementSize)
{
    m_sizeX = sizeX;
    m_pixelStride = pixelStride;
    m_margin = margin;
    m_elementSize = elementSize;
    unsigned long bytes = 0;
    if (__builtin_add_overflow(sizeX, margin.start, &m_lineBytes) ||
        __builtin_add_overflow(m_lineBytes, margin.end, &m_lineBytes) ||
        __builtin_mul_overflow(m_lineBytes, elementSize, &m_lineBytes) ||
        __builtin_mul_overflow(m_lineBytes, nbPlaces, &bytes) || bytes > ~0UL >> 1) {
        throw std::bad_alloc();
    }
    if (m_lines.size() < bytes) {
        m_lines.resize(bytes);
    }
    m_keys.assign(nbPlaces, ~0UL);
}

void MarginLines::forget()
{
    std::ranges::fill(m_keys, ~0UL);
}

void MarginLines::make(unsigned long place, const std::byte* row, image::BorderFunction border)
{
    std::byte* const line = m_lines.data() + place * m_lineBytes;
    const auto pixelBytes = m_pixelStride * static_cast<long>(m_elementSize);
    const auto copyElement = [&](unsigned long to, unsigned long position) {
        std::memcpy(line + to * m_elementSize, row + static_cast<long>(border(position, m_sizeX)) * pixelBytes,
                    m_elementSize);
    };
    for (unsigned long i = 0; i < m_margin.start; ++i) {
        copyElement(i, i - m_margin.start); // wraps below 0, as border functions expect
    }
    image::copyRun(line + m_margin.start * m_elementSize, 1, row, m_pixelStride, m_sizeX, m_elementSize);
    for (unsigned long i = 0; i < m_margin.end; ++i) {
        copyElement(m_margin.start + m_sizeX + i, m_sizeX + i);
    }
}

} // namespace orlix::imaproc
