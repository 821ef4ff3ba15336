// Any bytes are a PNG image or a refusal, and so is any region of it.
#include "ORLIXIPL/ORLIXImageIO/ReadImage.h"

#include "FuzzedRegion.h"
#include "ORLIXIPL/ORLIXImageIO/ORLIXImageIOException.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    orlix::image::io::ReadOptions options;
    options.limits.maxBytes = 1ul << 26;
    try {
        const auto [offsets, sizes] = orlix::fuzz::regionIn(data, size);
        (void)orlix::image::io::readPngRegion(std::as_bytes(std::span(data, size)), offsets, sizes, options);
    } catch (const orlix::image::io::ORLIXImageIOException&) {
    }
    try {
        (void)orlix::image::io::readPng(std::as_bytes(std::span(data, size)), options);
    } catch (const orlix::image::io::ORLIXImageIOException&) {
    }
    return 0;
}
