// How the points of a strip are put in order; included by the classes that hold them only.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImgValues/WaitingPoints.h"

#include <algorithm>

namespace orlix::imaproc::util {

template <class TKind>
void WaitingPoints<TKind>::clear()
{
    constexpr unsigned long maxKept = 1UL << 15;
    for (std::vector<Point>* points : {&m_sorted, &m_gathered}) {
        if (points->capacity() > maxKept) {
            std::vector<Point>().swap(*points);
        }
        points->clear();
    }
    m_next = 0;
}

template <class TKind>
void WaitingPoints<TKind>::add(const typename TKind::Place& place, double& value, const StripLines& lines)
{
    const unsigned long line = lines.lineOf(CutPlace<TKind::s_nbAxes>(place).whole);
    m_bAllOnLines = m_bAllOnLines && line != StripLines::s_none;
    m_gathered.push_back({place, line, &value});
}

template <class TKind>
void WaitingPoints<TKind>::gather(const typename TKind::Pixels& pixels, const StripLines& lines)
{
    m_gathered.clear();
    m_bAllOnLines = true;
    if (const auto* block = dynamic_cast<const PointBlock<TKind>*>(&pixels)) {
        m_gathered.reserve(block->getNbPoints());
        for (unsigned long i = 0; i < block->getNbPoints(); ++i) {
            add(block->getPlace(i), block->accessValue(i), lines);
        }
        return;
    }
    for (const auto& pixel : pixels.template get<typename TKind::Pixels::Coll>()) {
        if (pixel) {
            add(TKind::placeOf(*pixel), pixel->template access<typename TKind::Pixel::Value>(), lines);
        }
    }
}

/// Lines are few, so a counting pass puts points on theirs; then each line is put in order by itself.
template <class TKind>
void WaitingPoints<TKind>::sortByLine(unsigned long nbLines)
{
    m_ends.assign(nbLines + 1, 0);
    for (const Point& point : m_gathered) {
        ++m_ends[point.line + 1];
    }
    for (unsigned long line = 0; line < nbLines; ++line) { // where each line begins; filing moves it to its end
        m_ends[line + 1] += m_ends[line];
    }
    m_sorted.resize(m_gathered.size());
    for (const Point& point : m_gathered) {
        m_sorted[m_ends[point.line]++] = point;
    }
    const auto isBefore = [](const Point& left, const Point& right) {
        const double first = left.place[0];
        const double second = right.place[0];
        return first < second || (first == first && second != second);
    };
    auto begin = m_sorted.begin();
    for (unsigned long line = 0; line < nbLines; ++line) {
        const auto end = m_sorted.begin() + static_cast<long>(m_ends[line]);
        if (!std::is_sorted(begin, end, isBefore)) {
            std::sort(begin, end, isBefore);
        }
        begin = end;
    }
    processor::emptyForReuse(m_ends);
}

template <class TKind>
void WaitingPoints<TKind>::fill(const typename TKind::Pixels& pixels, const StripLines& lines)
{
    gather(pixels, lines);
    m_next = 0;
    const unsigned long nbLines = lines.getNbLines();
    constexpr unsigned long linesWorthCounting = 64; // a point, at most
    if (m_bAllOnLines && nbLines / linesWorthCounting <= m_gathered.size()) {
        sortByLine(nbLines);
    } else {
        m_sorted.swap(m_gathered);
        std::sort(m_sorted.begin(), m_sorted.end(),
                  [](const Point& left, const Point& right) { return isGreater(right, left); });
    }
}

} // namespace orlix::imaproc::util
