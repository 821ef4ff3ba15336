// Directories of a file, and going from one to another.
#include "ORLIXIPL/ORLIXImageIO/Tiff/TiffFile.h"

namespace orlix::image::io {

TiffFile::TiffFile(ByteSource& source, unsigned long maxAllocation)
    : m_source(source), m_tiff(source, maxAllocation), m_facts(describeFile(m_tiff)), m_pages(describePages(m_tiff)),
      m_currentPage(m_pages.size() - 1)
{}

// Pages come in order, so that going on from one to the next is the rule. Directories between two pages that are far
// apart are left alone.
void TiffFile::goToPage(unsigned long page)
{
    if (page != m_currentPage) {
        const bool bNext = page == m_currentPage + 1;
        if ((bNext ? TIFFReadDirectory(m_tiff) : TIFFSetSubDirectory(m_tiff, m_pages[page].directory)) != 1) {
            m_tiff.raiseDamaged(page);
        }
        m_currentPage = page;
    }
    prepareDecoders(m_tiff);
}

} // namespace orlix::image::io
