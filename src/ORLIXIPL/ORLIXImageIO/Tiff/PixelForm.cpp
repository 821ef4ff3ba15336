// Which forms of pixels are supported.
#include "ORLIXIPL/ORLIXImageIO/Tiff/PixelForm.h"

#include "ORLIX/ORLIXUtil/Raise.h"

namespace orlix::image::io {

namespace {

// eNoBuffer where there is no such type.
eImageBufferType typeOf(const TiffPage& page)
{
    const bool bUnsigned = page.sampleFormat == SAMPLEFORMAT_UINT || page.sampleFormat == SAMPLEFORMAT_VOID;
    const bool bSigned = page.sampleFormat == SAMPLEFORMAT_INT;
    if (!bUnsigned && !bSigned) {
        const bool bSingle = page.sampleFormat == SAMPLEFORMAT_IEEEFP && page.bits == 32;
        return bSingle ? eImageBufferType::Real32 : eImageBufferType::eNoBuffer;
    }
    switch (page.bits) {
    case 1: return bUnsigned ? eImageBufferType::eBufferBinary : eImageBufferType::eNoBuffer;
    case 2:
    case 4: return bUnsigned ? eImageBufferType::UInt8 : eImageBufferType::eNoBuffer;
    case 8: return bUnsigned ? eImageBufferType::UInt8 : eImageBufferType::Int8;
    case 16: return bUnsigned ? eImageBufferType::UInt16 : eImageBufferType::Int16;
    case 32: return bUnsigned ? eImageBufferType::UInt32 : eImageBufferType::Int32;
    default: return eImageBufferType::eNoBuffer;
    }
}

bool isPaletteIndex(const TiffPage& page)
{
    return page.samples == 1 &&
           (page.bits == 1 || page.bits == 2 || page.bits == 4 || page.bits == 8 || page.bits == 16);
}

// libtiff 4.5 adds up PixarLog's differences wrongly where there are other than 3 or 4 samples side by side, and may
// skip to the wrong place between two rows of RLE/W.
bool isDecodedRight(const TiffPage& page)
{
    const bool bColour = !page.bSeparate && (page.samples == 3 || page.samples == 4);
    return TIFFIsCODECConfigured(static_cast<std::uint16_t>(page.compression)) &&
           (page.compression != COMPRESSION_PIXARLOG || bColour) && page.compression != COMPRESSION_CCITTRLEW;
}

[[noreturn]] void refuse(const TiffPage& page, unsigned long index, const std::string& file)
{
    const std::string compression =
        page.compression == COMPRESSION_NONE ? "" : ", under " + compressionName(page.compression);
    raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eUnsupportedTiff, file, index,
                                page.toString() + compression);
}

} // namespace

PixelForm pixelFormOf(const TiffPage& page, unsigned long index, const std::string& file)
{
    if (page.depth != 1 || page.blockDepth != 1) {
        raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eVolumePage, file, index, page.depth,
                                    page.blockDepth);
    }
    PixelForm form;
    form.type = typeOf(page);
    form.channels = page.samples;
    form.conversion = page.bits < 8 ? eSampleConversion::eSpread : eSampleConversion::eCopy;
    bool bSupported = form.type != eImageBufferType::eNoBuffer;
    switch (page.photometric) {
    case PHOTOMETRIC_MINISBLACK:
    case PHOTOMETRIC_MASK:
    case PHOTOMETRIC_RGB: break;
    case PHOTOMETRIC_MINISWHITE:
        // Where white lies among floats is not told.
        form.inverted =
            form.type == eImageBufferType::Real32 ? 0 : page.samples - std::min(page.extraSamples, page.samples);
        break;
    case PHOTOMETRIC_PALETTE:
        bSupported = isPaletteIndex(page);
        form = {eImageBufferType::UInt8, page.bGreyPalette ? 1ul : 3ul, eSampleConversion::ePalette, 0};
        break;
    case PHOTOMETRIC_YCBCR:
        bSupported = page.samples == 3 && page.bits == 8 && !page.bSeparate;
        if (page.compression != COMPRESSION_JPEG) {
            form = {eImageBufferType::UInt8, 3, eSampleConversion::eByLibrary, 0};
        }
        break;
    case PHOTOMETRIC_LOGL:
    case PHOTOMETRIC_LOGLUV: bSupported = form.type == eImageBufferType::Real32; break;
    default: bSupported = false;
    }
    if (!bSupported || !isDecodedRight(page)) {
        refuse(page, index, file);
    }
    return form;
}

} // namespace orlix::image::io
