#include "ORLIX/ORLIXBaseProcessing/ItemsByRange.h"

#include "ORLIX/ORLIXBaseProcessing/ReusedVector.h"

#include <algorithm>

namespace orlix::processor {

namespace {

/// Above so many ranges an item, filing would mostly walk through ranges that have none.
constexpr unsigned long g_mostRangesPerItem = 1024;

} // namespace

void ItemsByRange::start(unsigned long nbItems)
{
    m_linesPerRange = 0;
    m_lines.clear();
    m_lines.reserve(nbItems);
}

void ItemsByRange::initRanges(unsigned long nbLines, unsigned long linesPerRange)
{
    m_linesPerRange = 0;
    if (nbLines == 0 || linesPerRange == 0) {
        return;
    }
    const unsigned long nbRanges = (nbLines - 1) / linesPerRange + 1;
    if (nbRanges / g_mostRangesPerItem > m_lines.size()) {
        return;
    }
    m_ends.assign(nbRanges, 0);
    for (const unsigned long line : m_lines) {
        if (line < nbLines) {
            ++m_ends[line / linesPerRange];
        }
    }
    unsigned long nbFiled = 0;
    for (unsigned long& end : m_ends) { // where each range begins; filing moves it to where it ends
        const unsigned long nbItems = end;
        end = nbFiled;
        nbFiled += nbItems;
    }
    m_filed.resize(nbFiled);
    for (unsigned long item = 0; item < m_lines.size(); ++item) {
        if (m_lines[item] < nbLines) {
            m_filed[m_ends[m_lines[item] / linesPerRange]++] = item;
        }
    }
    m_nbLines = nbLines;
    m_linesPerRange = linesPerRange;
}

std::span<const unsigned long> ItemsByRange::find(unsigned long start, unsigned long size)
{
    const bool bFiled = m_linesPerRange != 0 && start < m_nbLines && start % m_linesPerRange == 0 &&
                        size == std::min(m_linesPerRange, m_nbLines - start);
    if (bFiled) {
        const unsigned long range = start / m_linesPerRange;
        const unsigned long first = range == 0 ? 0 : m_ends[range - 1];
        return {m_filed.data() + first, m_ends[range] - first};
    }
    m_found.clear();
    for (unsigned long item = 0; item < m_lines.size(); ++item) {
        if (m_lines[item] >= start && m_lines[item] - start < size) {
            m_found.push_back(item);
        }
    }
    return m_found;
}

void ItemsByRange::clear()
{
    m_linesPerRange = 0;
    emptyForReuse(m_lines);
    emptyForReuse(m_filed);
    emptyForReuse(m_ends);
    emptyForReuse(m_found);
}

} // namespace orlix::processor
