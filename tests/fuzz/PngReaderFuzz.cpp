// Any bytes are a PNG image or a refusal.
#include "ORLIXIPL/ORLIXImageIO/ReadImage.h"

#include "ORLIXIPL/ORLIXImageIO/ORLIXImageIOException.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    orlix::image::io::ReadOptions options;
    options.limits.maxBytes = 1ul << 26;
    try {
        (void)orlix::image::io::readPng(std::as_bytes(std::span(data, size)), options);
    } catch (const orlix::image::io::ORLIXImageIOException&) {
    }
    return 0;
}
