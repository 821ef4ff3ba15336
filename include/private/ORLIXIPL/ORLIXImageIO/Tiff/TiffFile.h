// A TIFF file open for reading, with all its directories read.
#pragma once

#include "ORLIXIPL/ORLIXImageIO/Tiff/TiffPage.h"

#include <vector>

namespace orlix::image::io {

/// Used by one thread. The source must outlive it.
class TiffFile
{
public:
    /// `maxAllocation` as `TiffHandle` has it. Throws ORLIXImageIOException where a directory can't be read.
    TiffFile(ByteSource& source, unsigned long maxAllocation);

    ByteSource& getSource() const { return m_source; }
    TiffHandle& getTiff() { return m_tiff; }
    const TiffHandle& getTiff() const { return m_tiff; }
    const TiffFileFacts& getFacts() const { return m_facts; }
    const std::vector<TiffPage>& getPages() const { return m_pages; }

    /// Makes `page` the one that libtiff reads. Throws ORLIXImageIOException where it can't be reached.
    void goToPage(unsigned long page);

private:
    ByteSource& m_source;
    TiffHandle m_tiff;
    TiffFileFacts m_facts;
    std::vector<TiffPage> m_pages;
    unsigned long m_currentPage; ///< where libtiff stands
};

} // namespace orlix::image::io
