// libtiff's callbacks and message handlers.
#include "ORLIXIPL/ORLIXImageIO/Tiff/TiffHandle.h"

#include "ORLIX/ORLIXUtil/Raise.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <string_view>

namespace orlix::image::io {

namespace {

constexpr unsigned long g_transferBytes = 256ul << 10; // a slow disk takes some milliseconds

TiffStream& streamOf(thandle_t handle)
{
    return *static_cast<TiffStream*>(handle);
}

// Moves `bytes` bytes in pieces, asking between them whether to go on; fewer bytes tell libtiff of a failure.
template <class TMove>
tmsize_t inPieces(TiffStream& stream, tmsize_t bytes, TMove&& move)
{
    const auto wanted = static_cast<unsigned long>(std::max<tmsize_t>(bytes, 0));
    unsigned long done = 0;
    while (done < wanted) {
        const unsigned long piece = std::min(wanted - done, g_transferBytes);
        const unsigned long moved = move(stream.position, done, piece);
        stream.position += moved;
        done += moved;
        if (moved < piece || (stream.progress && !stream.progress->goesOnAfter(moved))) {
            break;
        }
    }
    return static_cast<tmsize_t>(done);
}

tmsize_t readBytes(thandle_t handle, void* target, tmsize_t bytes)
{
    TiffStream& stream = streamOf(handle);
    return inPieces(stream, bytes, [&](unsigned long position, unsigned long done, unsigned long piece) {
        char* const to = static_cast<char*>(target) + done;
        return stream.source ? stream.source->read(position, to, piece) : stream.target->read(position, to, piece);
    });
}

tmsize_t writeBytes(thandle_t handle, void* source, tmsize_t bytes)
{
    TiffStream& stream = streamOf(handle);
    return inPieces(stream, bytes, [&](unsigned long position, unsigned long done, unsigned long piece) {
        return stream.target->write(position, static_cast<const char*>(source) + done, piece) ? piece : 0ul;
    });
}

tmsize_t refuseWrite(thandle_t, void*, tmsize_t)
{
    return 0;
}

toff_t getSize(thandle_t handle)
{
    const TiffStream& stream = streamOf(handle);
    return stream.source ? stream.source->getSize() : stream.target->getSize();
}

toff_t seek(thandle_t handle, toff_t offset, int whence)
{
    TiffStream& stream = streamOf(handle);
    const toff_t base = whence == SEEK_CUR ? stream.position : whence == SEEK_END ? getSize(handle) : 0;
    stream.position = base + offset;
    return stream.position;
}

int close(thandle_t)
{
    return 0;
}

int refuseMap(thandle_t, void**, toff_t*)
{
    return 0;
}

void unmap(thandle_t, void*, toff_t) {}

void keepFirst(std::string& kept, const char* text) noexcept
{
    if (kept.empty()) {
        try {
            kept = text;
        } catch (const std::bad_alloc&) {
            kept = "no memory"; // short enough to need none
        }
    }
}

int onError(TIFF*, void* user, const char*, const char* format, va_list arguments)
{
    char text[1024];
    std::vsnprintf(text, sizeof text, format, arguments);
    keepFirst(static_cast<TiffStream*>(user)->messages.error, text);
    return 1;
}

// Warnings that mean lost content. libjpeg and the fax decoders make up missing pixels, though bytes between two
// segments of JPEG data are harmless; a tag whose value ends with the file, and a description that is no text, are
// skipped.
bool tellsOfLoss(std::string_view module, std::string_view text)
{
    const auto has = [&](std::string_view part) { return text.find(part) != text.npos; };
    if (module == "JPEGLib" || module.starts_with("Fax")) {
        return !has("extraneous bytes");
    }
    return has("IO error during reading") || (has("ImageDescription") && has("tag ignored"));
}

int onWarning(TIFF*, void* user, const char* module, const char* format, va_list arguments)
{
    char text[1024];
    std::vsnprintf(text, sizeof text, format, arguments);
    if (tellsOfLoss(module ? module : "", text)) {
        keepFirst(static_cast<TiffStream*>(user)->messages.warning, text);
    }
    return 1;
}

struct FreeOptions
{
    void operator()(TIFFOpenOptions* options) const { TIFFOpenOptionsFree(options); }
};

} // namespace

TiffHandle::TiffHandle(ByteSource& source, unsigned long maxAllocation)
{
    m_stream.source = &source;
    checkNumberOfBlocks(source, tiffNumbersOf(source), firstDirectoryOf(source), 0);
    // No memory map (m), and no cutting of uncompressed strips into small ones (c): whole strips go to their plan.
    open("rmc", maxAllocation);
    if (!m_tiff) {
        raiseDamaged(0);
    }
}

TiffHandle::TiffHandle(TemporaryFile& target, const char* mode, Progress& progress)
{
    m_stream.target = &target;
    m_stream.progress = &progress;
    open(mode, 0);
    if (!m_tiff) {
        raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eWriteFailed, getFileName(),
                                    target.getError().empty() ? messages().first() : target.getError());
    }
}

void TiffHandle::open(const char* mode, unsigned long maxAllocation)
{
    const std::unique_ptr<TIFFOpenOptions, FreeOptions> options(TIFFOpenOptionsAlloc());
    if (!options) {
        throw std::bad_alloc();
    }
    TIFFOpenOptionsSetErrorHandlerExtR(options.get(), onError, &m_stream);
    TIFFOpenOptionsSetWarningHandlerExtR(options.get(), onWarning, &m_stream);
    constexpr unsigned long longest = std::numeric_limits<tmsize_t>::max();
    TIFFOpenOptionsSetMaxSingleMemAlloc(options.get(), static_cast<tmsize_t>(std::min(maxAllocation, longest)));
    m_tiff.reset(TIFFClientOpenExt(getFileName().c_str(), mode, &m_stream, readBytes,
                                   m_stream.target ? writeBytes : refuseWrite, seek, close, getSize, refuseMap, unmap,
                                   options.get()));
}

const std::string& TiffHandle::getFileName() const
{
    return m_stream.source ? m_stream.source->getName() : m_stream.target->getTargetName();
}

void TiffHandle::checkDirectory(unsigned long page)
{
    const TiffNumbers numbers = getNumbers();
    const unsigned long start = TIFFCurrentDirOffset(*this), size = m_stream.source->getSize();
    const unsigned long countBytes = numbers.countBytes(), linkBytes = numbers.offsetBytes();
    const unsigned long count = numbers.read(*m_stream.source, start, countBytes);
    // libtiff takes a missing link to the next directory for the end of the chain.
    if (start > size || countBytes + linkBytes > size - start ||
        count > (size - start - countBytes - linkBytes) / numbers.entryBytes()) {
        m_stream.messages.warning = "its directory ends with the file";
    }
    m_stream.messages.error.clear();
    if (!m_stream.messages.warning.empty()) {
        raiseDamaged(page);
    }
}

void TiffHandle::checkNextDirectory(unsigned long page)
{
    const TiffNumbers numbers = getNumbers();
    const unsigned long next = nextDirectoryOf(*m_stream.source, numbers, TIFFCurrentDirOffset(*this));
    checkNumberOfBlocks(*m_stream.source, numbers, next, page);
}

TiffNumbers TiffHandle::getNumbers() const
{
    return {TIFFIsBigTIFF(*this) != 0, TIFFIsBigEndian(*this) != 0};
}

void TiffHandle::raiseDamaged(unsigned long page) const
{
    if (m_stream.progress) {
        m_stream.progress->throwIfStopped(eORLIXImageIOMessage::eReadingStopped, getFileName());
    }
    const std::string& reason = m_stream.messages.first();
    raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eDamagedTiff, getFileName(), page,
                                reason.empty() ? "no reason given" : reason);
}

} // namespace orlix::image::io
