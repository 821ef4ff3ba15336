// Loaded ahead of libtiff, it makes that a library without LZMA.
#include <tiffio.h>

#include <cstdint>

extern "C" int TIFFIsCODECConfigured(std::uint16_t scheme)
{
    return scheme == COMPRESSION_LZMA ? 0 : 1;
}
