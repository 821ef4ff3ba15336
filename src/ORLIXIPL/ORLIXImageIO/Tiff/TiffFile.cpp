// Directories of a file, and going from one to another.
#include "ORLIXIPL/ORLIXImageIO/Tiff/TiffFile.h"

namespace orlix::image::io {

TiffFile::TiffFile(ByteSource& source, unsigned long maxAllocation)
    : m_source(source), m_tiff(source, maxAllocation), m_facts(describeFile(m_tiff)), m_pages(describePages(m_tiff)),
      m_currentPage(m_pages.size() - 1)
{}

// Pages come in order, so that going on from one to the next is the rule.
void TiffFile::goToPage(unsigned long page)
{
    if (page < m_currentPage) {
        if (TIFFSetDirectory(m_tiff, 0) != 1) {
            m_tiff.raiseDamaged(0);
        }
        m_currentPage = 0;
    }
    for (; m_currentPage < page; ++m_currentPage) {
        if (TIFFReadDirectory(m_tiff) != 1) {
            m_tiff.raiseDamaged(m_currentPage + 1);
        }
    }
    prepareDecoders(m_tiff);
}

} // namespace orlix::image::io
