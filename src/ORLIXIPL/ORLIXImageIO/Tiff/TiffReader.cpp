// From directories to an image.
#include "ORLIXIPL/ORLIXImageIO/Tiff/TiffReader.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImageIO/Metadata/ImageJMetadata.h"
#include "ORLIXIPL/ORLIXImageIO/Metadata/OmeMetadata.h"
#include "ORLIXIPL/ORLIXImageIO/Tiff/RawPageReader.h"

namespace orlix::image::io {

namespace {

// Pixels that one byte of the file can give at most. Decoders without such a bound get a generous one.
unsigned long largestRatio(const TiffPage& page)
{
    switch (page.compression) {
    case COMPRESSION_NONE: return page.photometric == PHOTOMETRIC_YCBCR ? 4 : 1; // subsampled
    case COMPRESSION_PACKBITS: return 64;
    case COMPRESSION_LZW: return 4096;
    case COMPRESSION_DEFLATE:
    case COMPRESSION_ADOBE_DEFLATE: return 1040;
    default: return 1ul << 20;
    }
}

WideSize samplesBytes(const TiffPage& page)
{
    const unsigned long rowSamples = page.bSeparate ? page.width : page.width * page.samples;
    return (WideSize(rowSamples) * page.bits + 7) / 8 * page.height * (page.bSeparate ? page.samples : 1);
}

} // namespace

TiffReader::TiffReader(ByteSource& source, const ReadLimits& limits) : m_source(source), m_tiff(source, limits.maxBytes)
{
    const TiffFileFacts file = describeFile(m_tiff);
    m_pages = describePages(m_tiff);
    m_currentPage = m_pages.size() - 1;
    while (m_firstPage + 1 < m_pages.size() && firstPage().bLeftOut) {
        ++m_firstPage;
    }
    m_form = pixelFormOf(firstPage(), m_firstPage, m_source.getName());
    readMetadata(file);
    checkPages(limits);
}

void TiffReader::readMetadata(const TiffFileFacts& file)
{
    PageFacts facts;
    facts.file = m_source.getName();
    facts.sizeX = firstPage().width;
    facts.sizeY = firstPage().height;
    facts.samples = firstPage().samples;
    facts.channels = m_form.channels;
    facts.type = m_form.type;
    facts.pages = m_pages.size();
    if (isOmeDescription(file.description)) { // counts all pages
        m_metadata = metadataOfOme(file.description, facts);
    } else {
        std::vector<unsigned long> kept;
        for (unsigned long page = m_firstPage; page < m_pages.size(); ++page) {
            if (page == m_firstPage || !m_pages[page].bLeftOut) {
                kept.push_back(page);
            }
        }
        facts.pages = kept.size();
        if (isImageJDescription(file.description)) {
            m_metadata = metadataOfImageJ(file.description, facts, file.resolution);
        } else {
            m_metadata = metadataOfPages(facts);
            m_metadata.calibration = calibrationOf(file.resolution);
        }
        for (PagePlace& place : m_metadata.places) {
            place.page = kept[place.page];
        }
    }
    ColorGeometry color;
    color.initChannels(m_metadata.sizeC);
    m_geometry = {m_metadata.type, facts.sizeX, facts.sizeY, m_metadata.volume, color, m_metadata.temporal};
}

void TiffReader::checkPages(const ReadLimits& limits)
{
    const std::string& name = m_source.getName();
    const auto plausible = [&](const TiffPage& page, unsigned long index, WideSize bytes) {
        if (limits.bMustBePlausible) {
            checkPlausibility(index, bytes, m_source.getSize(), largestRatio(page), name);
        }
    };
    WideSize scratchBytes = 0;
    for (const PagePlace& place : m_metadata.places) {
        const TiffPage& page = m_pages[place.page];
        const PixelForm form = pixelFormOf(page, place.page, name);
        if (page.width != firstPage().width || page.height != firstPage().height || form.type != m_form.type ||
            form.channels != m_form.channels) {
            raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::ePagesDiffer, name, m_firstPage,
                                        firstPage().toString(), place.page, page.toString());
        }
        plausible(page, place.page, samplesBytes(page));
        if (page.bTiled) {
            plausible(page, place.page, scratchBytesOf(page, form));
        }
        scratchBytes = std::max(scratchBytes, scratchBytesOf(page, form));
    }
    if (m_metadata.bRawStack) {
        checkRawStack(m_tiff, firstPage(), m_form, m_geometry, m_source);
    }
    checkLimits(m_geometry, scratchBytes, limits, name);
}

ImageFileInfo TiffReader::getInfo() const
{
    ImageFileInfo info;
    info.geometry = m_geometry;
    info.calibration = m_metadata.calibration;
    info.format = eImageFileFormat::eTiff;
    info.compression = compressionName(firstPage().compression);
    info.metadata = m_metadata.kind;
    info.pages = m_pages.size();
    info.bitsPerSample = firstPage().bits;
    info.fileBytes = m_source.getSize();
    info.bTiled = firstPage().bTiled;
    info.bBigTiff = TIFFIsBigTIFF(m_tiff) != 0;
    info.bBigEndian = TIFFIsBigEndian(m_tiff) != 0;
    return info;
}

ImagePtr TiffReader::read(const ProgressFunction& function)
{
    Progress progress(function, m_geometry.getNbPlans());
    const ImagePtr image = createImage(m_geometry);
    image->setGeometricCalibration(m_metadata.calibration);
    m_tiff.setProgress(&progress);
    if (m_metadata.bRawStack) {
        RawPageReader(m_tiff, m_source, progress, *image).readStack(firstPage(), m_form);
    } else {
        readPages(*image, progress);
    }
    m_tiff.setProgress(nullptr);
    return image;
}

void TiffReader::readPages(BaseImage& image, Progress& progress)
{
    TiffPageDecoder decoder(m_tiff, progress, image);
    RawPageReader rawReader(m_tiff, m_source, progress, image);
    for (const PagePlace& place : m_metadata.places) {
        const TiffPage& page = m_pages[place.page];
        const PixelForm form = pixelFormOf(page, place.page, m_source.getName());
        if (RawPageReader::suits(page, form)) {
            rawReader.read(page, form, page.rawOffset, place);
        } else {
            goToPage(place.page);
            decoder.decode(page, form, place);
        }
        progress.addPlans(m_form.channels);
        if (!progress.goesOn()) {
            m_tiff.raiseDamaged(place.page);
        }
    }
}

// Pages come in order, so that going on from one to the next is the rule.
void TiffReader::goToPage(unsigned long page)
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
