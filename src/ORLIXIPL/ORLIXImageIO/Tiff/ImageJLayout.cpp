// Checking an image and options against what ImageJ reads.
#include "ORLIXIPL/ORLIXImageIO/Tiff/ImageJLayout.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImageIO/ClaimCheck.h"
#include "ORLIXIPL/ORLIXImageIO/Logger/ORLIXImageIOLogMessages.h"
#include "ORLIXIPL/ORLIXImageIO/Metadata/ImageJWriter.h"

namespace orlix::image::io {

namespace {

bool hasType(const eImageBufferType& type)
{
    switch (static_cast<eImageBufferType::domain>(type)) {
    case eImageBufferType::UInt8:
    case eImageBufferType::UInt16:
    case eImageBufferType::Int16:
    case eImageBufferType::Real32:
    case eImageBufferType::eBufferBinary:
    case eImageBufferType::eBufferUInt8Like:
    case eImageBufferType::eBufferUInt16Like: return true;
    default: return false;
    }
}

// As fractions of two 32-bit numbers.
bool canBeTold(const Resolution& resolution)
{
    const auto fits = [](double value) { return value >= 1e-9 && value <= 4e9; };
    return fits(resolution.perUnitX) && fits(resolution.perUnitY);
}

} // namespace

void checkForImageJ(const BaseImage& image, const WriteOptions& options, const TiffLayout& layout,
                    const std::string& file)
{
    const auto refuseIf = [&](bool bUnsuitable, const std::string& what, const char* advice) {
        if (bUnsuitable) {
            raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eNotForImageJ, file, what, advice);
        }
    };
    const eImageBufferType& type = image.getBufferType();
    refuseIf(!hasType(type), std::string("elements of ") + getBufferTypeName(type),
             "convert them to UInt8, UInt16, Int16, Binary or Real32");
    refuseIf(options.bTiled, "tiles", "write strips");
    refuseIf(options.compression == eTiffCompression::eZstd || options.compression == eTiffCompression::eLzma,
             "this compression", "choose none, PackBits, LZW or Deflate");
    refuseIf(options.bigTiff == eBigTiff::eAlways, "64-bit offsets",
             "leave them to files that need them; uncompressed pixels need none");
    refuseIf(layout.samples > 1 && (layout.samples != 3 || type != eImageBufferType::UInt8),
             "samples of a pixel other than three of UInt8", "write channels as pages");
    refuseIf(layout.bBigTiff, "compressed pixels that could pass 4 GiB", "write them without compression");
    const WideSize pageBytes = WideSize(image.getSizeX()) * image.getSizeY() * layout.samples * (layout.bits / 8u);
    refuseIf(pageBytes >= 0xffff0000u, "plans of 4 GiB and more", "cut the image into parts");
    const auto resolution = imageJResolutionOf(image.getGeometricCalibration());
    refuseIf(resolution && !canBeTold(*resolution), "pixel sizes below 2.5e-10 or above 1e9 of their unit",
             "give them in another unit");
}

} // namespace orlix::image::io
