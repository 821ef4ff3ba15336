// A TIFF file open in libtiff, over a byte source or a temporary file, with libtiff's words kept instead of printed.
#pragma once

#include "ORLIXIPL/ORLIXImageIO/File/ByteSource.h"
#include "ORLIXIPL/ORLIXImageIO/File/TemporaryFile.h"
#include "ORLIXIPL/ORLIXImageIO/Progress.h"
#include "ORLIXIPL/ORLIXImageIO/Tiff/DirectoryClaims.h"

#include <fcntl.h>
#include <tiffio.h>

#include <cstdint>
#include <memory>
#include <string>

namespace orlix::image::io {

/// What libtiff said since it was last cleared. Only the first of each is kept: the others are its consequences.
struct TiffMessages
{
    std::string error;
    std::string warning; ///< that content was lost; other warnings are not kept

    void clear() { error.clear(), warning.clear(); }
    bool empty() const { return error.empty() && warning.empty(); }
    const std::string& first() const { return error.empty() ? warning : error; }
};

/// What libtiff's callbacks work on. Either source or target is set.
struct TiffStream
{
    ByteSource* source = nullptr;
    TemporaryFile* target = nullptr;
    Progress* progress = nullptr; ///< asked between pieces of large transfers; may be null
    unsigned long position = 0;
    TiffMessages messages;
};

/// Closes the file when it goes; what libtiff still holds of a target is dropped, so flush before. Not movable: libtiff
/// holds its address.
class TiffHandle
{
public:
    /// Opens for reading at the first page. `maxAllocation` is the largest block in bytes that libtiff may take. Throws
    /// ORLIXImageIOException where the header or the first page can't be read.
    TiffHandle(ByteSource& source, unsigned long maxAllocation);
    /// Opens for writing; `mode` as libtiff has it.
    TiffHandle(TemporaryFile& target, const char* mode, Progress& progress);
    TiffHandle(const TiffHandle&) = delete;
    TiffHandle& operator=(const TiffHandle&) = delete;

    operator TIFF*() const { return m_tiff.get(); } ///< for libtiff's functions
    TiffMessages& messages() { return m_stream.messages; }
    const std::string& getFileName() const;

    /// Transfers ask this object from now on; null for none.
    void setProgress(Progress* progress) { m_stream.progress = progress; }

    /// Throws eDamagedTiff for page `page` where the current directory doesn't lie in the file as a whole, or libtiff
    /// told that it had to leave out one of its tags. Forgets other messages.
    void checkDirectory(unsigned long page);

    /// Throws eDamagedTiff for page `page`, the one behind the current, where libtiff would take memory for more strips
    /// or tiles than the file can have.
    void checkNextDirectory(unsigned long page);

    /// Throws what stopped a read of page `page`: the progress function, or eDamagedTiff with libtiff's words.
    [[noreturn]] void raiseDamaged(unsigned long page) const;

private:
    struct Close
    {
        void operator()(TIFF* tiff) const
        {
            // Of a strip that was not ended, this codec alone forgets what it holds.
            std::uint16_t compression = COMPRESSION_NONE;
            if (TIFFGetField(tiff, TIFFTAG_COMPRESSION, &compression) != 0 && compression == COMPRESSION_PACKBITS) {
                static_cast<void>(TIFFFlushData(tiff));
            }
            // It would write a directory that may lack what there was no memory for, and fall over that.
            TIFFSetMode(tiff, O_RDONLY);
            TIFFClose(tiff);
        }
    };

    void open(const char* mode, unsigned long maxAllocation);
    TiffNumbers getNumbers() const;

    TiffStream m_stream;
    std::unique_ptr<TIFF, Close> m_tiff;
};

} // namespace orlix::image::io
