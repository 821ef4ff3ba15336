// From directories to an image.
#include "ORLIXIPL/ORLIXImageIO/Tiff/TiffReader.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImageIO/Metadata/ImageJMetadata.h"
#include "ORLIXIPL/ORLIXImageIO/Metadata/OmeMetadata.h"
#include "ORLIXIPL/ORLIXImageIO/SamplePacking.h"
#include "ORLIXIPL/ORLIXImageIO/Tiff/RawPageReader.h"

#include <algorithm>
#include <iterator>

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

void shiftSigns(BaseImage& image)
{
    const unsigned long rowBytes = image.getSizeX() * elementSize(image.getBufferType());
    for (unsigned long t = 0; t < image.getSizeT(); ++t) {
        for (unsigned long c = 0; c < image.getSizeC(); ++c) {
            for (unsigned long z = 0; z < image.getSizeZ(); ++z) {
                for (unsigned long y = 0; y < image.getSizeY(); ++y) {
                    shiftSign16(image.accessRow(y, z, c, t), rowBytes);
                }
            }
        }
    }
}

} // namespace

TiffReader::TiffReader(ByteSource& source, const ReadLimits& limits, const std::optional<RegionWish>& wish)
    : m_files(source, limits.maxBytes)
{
    while (m_firstPage + 1 < pages().size() && firstPage().bLeftOut) {
        ++m_firstPage;
    }
    m_form = pixelFormOf(firstPage(), m_firstPage, source.getName());
    readMetadata();
    chooseRegion(wish);
    checkPages(limits);
}

void TiffReader::readMetadata()
{
    const TiffFileFacts& file = m_files.first().getFacts();
    PageFacts facts;
    facts.file = m_files.getPathOf(0);
    facts.sizeX = firstPage().width;
    facts.sizeY = firstPage().height;
    facts.samples = firstPage().samples;
    facts.channels = m_form.channels;
    facts.type = m_form.type;
    facts.pages = pages().size();
    if (isOmeDescription(file.description)) { // counts all pages
        m_metadata = metadataOfOme(file.description, facts, &m_files);
    } else {
        std::vector<unsigned long> kept;
        for (unsigned long page = m_firstPage; page < pages().size(); ++page) {
            if (page == m_firstPage || !pages()[page].bLeftOut) {
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

void TiffReader::chooseRegion(const std::optional<RegionWish>& wish)
{
    m_region = wish ? regionOf(m_geometry, *wish, m_files.getPathOf(0)) : wholeImage(m_geometry);
    m_readGeometry = wish ? geometryOf(m_region, m_geometry) : m_geometry;
    m_readCalibration = wish ? calibrationOf(m_region, m_geometry, m_metadata.calibration) : m_metadata.calibration;
}

// All pages have to be alike; what they claim matters for those that are read.
void TiffReader::checkPages(const ReadLimits& limits)
{
    WideSize scratchBytes = 0;
    for (const PagePlace& place : m_metadata.places) {
        const TiffPage& page = m_files.getPage(place);
        const std::string& name = m_files.getPathOf(place.file);
        const PixelForm form = pixelFormOf(page, place.page, name);
        if (page.width != firstPage().width || page.height != firstPage().height || form.type != m_form.type ||
            form.channels != m_form.channels) {
            raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::ePagesDiffer, name, m_firstPage,
                                        firstPage().toString(), place.page, page.toString());
        }
        if (!m_region.holdsPlansOf(place, m_form.channels)) {
            continue;
        }
        const WideSize pageScratch = scratchBytesOf(page, form);
        if (limits.bMustBePlausible) {
            checkPlausibility(place.page, std::max(samplesBytes(page), page.bTiled ? pageScratch : 0),
                              m_files.getBytesOf(place.file), largestRatio(page), name);
        }
        scratchBytes = std::max(scratchBytes, pageScratch);
    }
    if (m_metadata.bRawStack) {
        checkRawStack(m_files.first().getTiff(), firstPage(), m_form, m_geometry, m_files.first().getSource());
    }
    checkLimits(m_readGeometry, scratchBytes, limits, m_files.getPathOf(0));
}

ImageFileInfo TiffReader::getInfo() const
{
    TIFF* const tiff = m_files.first().getTiff();
    ImageFileInfo info;
    info.geometry = m_geometry;
    info.calibration = m_metadata.calibration;
    info.format = eImageFileFormat::eTiff;
    info.compression = compressionName(firstPage().compression);
    info.metadata = m_metadata.kind;
    info.pages = pages().size();
    info.bitsPerSample = firstPage().bits;
    info.fileBytes = m_files.getBytesOf(0);
    info.bTiled = firstPage().bTiled;
    info.bBigTiff = TIFFIsBigTIFF(tiff) != 0;
    info.bBigEndian = TIFFIsBigEndian(tiff) != 0;
    info.files = m_files.getNbFiles();
    info.ignored = whatIsIgnored();
    return info;
}

ImageFileInfo::Ignored TiffReader::whatIsIgnored() const
{
    ImageFileInfo::Ignored ignored;
    ignored.images = m_metadata.furtherImages;
    ignored.units = m_metadata.ignoredUnits;
    std::vector<bool> used(pages().size());
    used[m_firstPage] = m_metadata.bRawStack;
    for (const PagePlace& place : m_metadata.places) {
        if (place.file == 0) {
            used[place.page] = true;
        }
        ignored.reduced += m_files.getPage(place).subPages;
        if (ignored.orientation == ORIENTATION_TOPLEFT) {
            ignored.orientation = m_files.getPage(place).orientation;
        }
    }
    if (m_metadata.bRawStack) {
        ignored.reduced = firstPage().subPages;
        ignored.orientation = firstPage().orientation;
    }
    for (std::size_t page = 0; page < used.size(); ++page) {
        ignored.reduced += !used[page] && pages()[page].bLeftOut;
        ignored.pages += !used[page] && !pages()[page].bLeftOut;
    }
    return ignored;
}

ImagePtr TiffReader::read(const ProgressFunction& function)
{
    Progress progress(function, m_readGeometry.getNbPlans());
    const ImagePtr image = createImage(m_readGeometry);
    image->setGeometricCalibration(m_readCalibration);
    if (m_region.isEmpty()) {
        return image;
    }
    const RegionTarget target(*image, m_region);
    if (m_metadata.bRawStack) {
        TiffFile& file = m_files.first();
        file.getTiff().setProgress(&progress);
        RawPageReader(file.getTiff(), file.getSource(), progress, target).readStack(firstPage(), m_form, m_geometry);
        file.getTiff().setProgress(nullptr);
    }
    std::vector<PagePlace> places;
    std::ranges::copy_if(m_metadata.places, std::back_inserter(places),
                         [&](const PagePlace& place) { return m_region.holdsPlansOf(place, m_form.channels); });
    for (std::span<const PagePlace> rest = places; !rest.empty();) { // file by file
        const auto next =
            std::ranges::find_if(rest, [&](const PagePlace& place) { return place.file != rest.front().file; });
        const auto count = static_cast<std::size_t>(next - rest.begin());
        readPages(target, progress, rest.first(count));
        rest = rest.subspan(count);
    }
    if (m_metadata.bSignShifted) {
        shiftSigns(*image);
    }
    return image;
}

// All of one file.
void TiffReader::readPages(const RegionTarget& target, Progress& progress, std::span<const PagePlace> places)
{
    TiffFile& file = m_files.open(places.front().file);
    TiffHandle& tiff = file.getTiff();
    tiff.setProgress(&progress);
    TiffPageDecoder decoder(tiff, progress, target);
    RawPageReader rawReader(tiff, file.getSource(), progress, target);
    for (const PagePlace& place : places) {
        const TiffPage& page = m_files.getPage(place);
        const PixelForm form = pixelFormOf(page, place.page, file.getSource().getName());
        if (RawPageReader::suits(page, form)) {
            rawReader.read(page, form, page.rawOffset, place);
        } else {
            file.goToPage(place.page);
            decoder.decode(page, form, place);
        }
        progress.addPlans(m_region.channelsOf(place, m_form.channels).size);
        if (!progress.goesOn()) {
            tiff.raiseDamaged(place.page);
        }
    }
    tiff.setProgress(nullptr);
}

} // namespace orlix::image::io
