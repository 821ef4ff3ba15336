// Options of every verb that writes images.
#include "OutputOptions.h"

#include "CommandMessages.h"
#include "ImageFiles.h"
#include "NearNames.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImageIO/WriteImage.h"

#include <utility>
#include <vector>

namespace orlix::cli {

namespace {

using image::io::eBigTiff;
using image::io::eByteOrder;
using image::io::eChannelLayout;
using image::io::eImageFileFormat;
using image::io::eTiffCompression;
using image::io::eTiffDescription;

constexpr const char* g_group = "TIFF output";
constexpr unsigned long g_largestTile = 65520;

template <class TEnum>
using Choices = std::vector<std::pair<std::string, typename TEnum::domain>>;

const Choices<eTiffCompression> g_compressions = {
    {"none", eTiffCompression::eNone}, {"packbits", eTiffCompression::ePackBits},
    {"lzw", eTiffCompression::eLzw},   {"deflate", eTiffCompression::eDeflate},
    {"zstd", eTiffCompression::eZstd}, {"lzma", eTiffCompression::eLzma}};

/// An option whose value is one of a few words.
template <class TEnum>
Option addChoice(OptionList& list, const std::string& name, TEnum& target, const Choices<TEnum>& choices,
                 const std::string& description)
{
    std::vector<std::string> words;
    for (const auto& [word, value] : choices) {
        words.push_back(word);
    }
    const auto choose = [&target, choices](std::size_t index) { target = choices[index].second; };
    return list.addChoice(name, words, choose, description);
}

/// Notes that the option was given.
void markTiffOption(Option option, FormatOptions& options)
{
    option.group(g_group).whenGiven([option, &options] {
        if (options.firstTiffOption.empty()) {
            options.firstTiffOption = option.getName();
        }
    });
}

std::string namesOfTypes(const eImageFileFormat& format)
{
    std::string names;
    for (const image::eImageBufferType type : image::g_allBufferTypes) {
        if (image::io::canHold(format, type)) {
            names.append(names.empty() ? "" : ", ").append(image::getBufferTypeName(type));
        }
    }
    return names;
}

void checkCompression(const eTiffCompression& compression)
{
    if (image::io::isBuiltIn(compression)) {
        return;
    }
    std::string given;
    std::vector<std::string> builtIn;
    for (const auto& [word, value] : g_compressions) {
        if (image::io::isBuiltIn(value)) {
            builtIn.push_back(word);
        } else if (compression == value) {
            given = word;
        }
    }
    raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eNoCodec, given, joinNames(builtIn));
}

} // namespace

void addFormatOptions(OptionList& list, FormatOptions& options)
{
    image::io::WriteOptions& write = options.write;
    list.addFlag(
        "--no-sync", [&write] { write.bSync = false; },
        "Don't wait until the new file is on the disk before it\nreplaces the old one");
    markTiffOption(
        addChoice(list, "--compression", write.compression, g_compressions, "Lossless compression; default: none"),
        options);
    markTiffOption(list.addFlag(
                       "--no-predictor", [&write] { write.bPredictor = false; },
                       "Compress pixel values themselves, not differences of\nneighbours (lzw, deflate, zstd)"),
                   options);
    markTiffOption(list.addFlag("--tiled", write.bTiled, "Store tiles instead of strips"), options);
    markTiffOption(list.addNumber("--tile-size", write.tileSize,
                                  {.smallest = 16, .largest = g_largestTile, .multipleOf = 16},
                                  "Pixels along each side of a tile, a multiple of 16;\n"
                                  "default: 256; implies --tiled")
                       .valueName("PIXELS")
                       .whenGiven([&write] { write.bTiled = true; }),
                   options);
    markTiffOption(
        addChoice(
            list, "--channels", write.channelLayout,
            {{"auto", eChannelLayout::eAuto}, {"pages", eChannelLayout::ePages}, {"rgb", eChannelLayout::eRgbSamples}},
            "Where channels go: pages of their own, or samples of RGB\n"
            "pixels; default: rgb for 3 or 4 channels of UInt8, else pages"),
        options);
    markTiffOption(addChoice(list, "--byte-order", write.byteOrder,
                             {{"little", eByteOrder::eLittleEndian}, {"big", eByteOrder::eBigEndian}},
                             "Byte order; default: little"),
                   options);
    markTiffOption(addChoice(list, "--format", write.description,
                             {{"ome", eTiffDescription::eOme}, {"imagej", eTiffDescription::eImageJ}},
                             "How axes and calibration are told: OME-XML, or the description\n"
                             "that plain ImageJ reads; default: ome"),
                   options);
    markTiffOption(list.addFlag(
                       "--big-tiff", [&write] { write.bigTiff = eBigTiff::eAlways; },
                       "Use 64-bit offsets; default: where the file could pass 4 GiB"),
                   options);
}

void addOutputOptions(OptionList& list, OutputOptions& options)
{
    list.add("OUT", options.file,
             "File to write: TIFF (.tif, .tiff) or PNG (.png); it is replaced\n"
             "once the new one is complete")
        .valueName(" ")
        .required();
    addFormatOptions(list, options.format);
}

void checkOutput(const std::string& file, const FormatOptions& options)
{
    checkFileName(file);
    if (image::io::formatByEnding(file) != eImageFileFormat::eTiff && !options.firstTiffOption.empty()) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eOptionForTiffOnly, options.firstTiffOption, file);
    }
    checkCompression(options.write.compression);
}

void checkElementType(const std::string& file, const image::BaseImage& image)
{
    const eImageFileFormat format = image::io::formatByEnding(file);
    if (!image::io::canHold(format, image.getBufferType())) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eTypeNotHeld, file, namesOfTypes(format),
                               image.getGeometry().toString());
    }
}

} // namespace orlix::cli
