// orlix info: what image files hold, and which devices this computer has.
#include "CommandMessages.h"
#include "DescribeDevices.h"
#include "DescribeImage.h"
#include "ImageFiles.h"
#include "PlainText.h"
#include "Verb.h"

#include "ORLIX/ORLIXCore/ComputerInfoPool.h"
#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImageIO/ReadImage.h"

#include <boost/make_shared.hpp>

namespace orlix::cli {

namespace {

using image::io::eImageFileFormat;
using image::io::ImageFileInfo;

const char* formatName(const ImageFileInfo& info)
{
    if (info.format == eImageFileFormat::ePng) {
        return "PNG";
    }
    return info.bBigTiff ? "BigTIFF" : "TIFF";
}

std::string describeType(const image::BaseImageGeometry& geometry)
{
    const unsigned long bytes = image::elementSize(geometry.getBufferType());
    return std::string(image::getBufferTypeName(geometry.getBufferType())) + ", " + std::to_string(bytes) +
           (bytes == 1 ? " byte" : " bytes") + " per element in memory";
}

std::string describeContainer(const ImageFileInfo& info)
{
    std::string text = formatName(info);
    if (!info.metadata.empty()) {
        text += " with " + printable(info.metadata) + " axes";
    }
    if (info.files > 1) {
        text += " and pages of " + std::to_string(info.files) + " files";
    }
    text += ", " + std::to_string(info.pages) + (info.pages == 1 ? " page, " : " pages, ");
    text += std::to_string(info.bitsPerSample) + " bits per sample, compression " + printable(info.compression);
    if (info.format == eImageFileFormat::eTiff) {
        text += info.bTiled ? ", tiles" : ", strips";
        text += info.bBigEndian ? ", big endian" : ", little endian";
    }
    return text + ", " + std::to_string(info.fileBytes) + " bytes";
}

std::string counted(unsigned long count, const char* one, const char* several)
{
    return std::to_string(count) + " " + (count == 1 ? one : several);
}

/// What the file holds beside and the image lacks; empty where there is nothing.
std::string describeIgnored(const ImageFileInfo::Ignored& ignored)
{
    std::vector<std::string> parts;
    if (ignored.images > 0) {
        parts.push_back(counted(ignored.images, "further image", "further images"));
    }
    if (ignored.pages > 0) {
        parts.push_back(counted(ignored.pages, "page that is no plan of this image", "pages that are no plans of it"));
    }
    if (ignored.reduced > 0) {
        parts.push_back(counted(ignored.reduced, "reduced copy or mask", "reduced copies or masks"));
    }
    if (ignored.orientation != 1) {
        parts.push_back("orientation " + std::to_string(ignored.orientation) +
                        ": rows and columns come as they are stored");
    }
    if (!ignored.units.empty()) {
        parts.push_back("pixel sizes in units that don't convert to that of x (" + printable(ignored.units) + ")");
    }
    std::string text;
    for (const std::string& part : parts) {
        text.append(text.empty() ? "" : "; ").append(part);
    }
    return text;
}

void writeIgnored(JsonWriter& json, const ImageFileInfo::Ignored& ignored)
{
    json.key("ignored");
    json.beginObject();
    json.member("images", ignored.images);
    json.member("pages", ignored.pages);
    json.member("reduced", ignored.reduced);
    json.member("orientation", static_cast<unsigned long>(ignored.orientation));
    json.key("units");
    ignored.units.empty() ? json.null() : json.value(ignored.units);
    json.endObject();
}

void printInfo(std::ostream& out, const std::string& file, const ImageFileInfo& info)
{
    out << printable(file) << "\n  axes         " << describeAxes(info.geometry) << "\n  type         "
        << describeType(info.geometry) << "\n  calibration  " << describeCalibration(info.calibration)
        << "\n  file         " << describeContainer(info) << "\n";
    if (const std::string ignored = describeIgnored(info.ignored); !ignored.empty()) {
        out << "  ignored      " << ignored << "\n";
    }
}

void writeInfo(JsonWriter& json, const std::string& file, const ImageFileInfo& info)
{
    json.beginObject();
    json.member("file", file);
    writeImageMembers(json, info.geometry, info.calibration);
    json.member("bytesPerElement", image::elementSize(info.geometry.getBufferType()));
    json.member("format", formatName(info));
    json.key("metadata");
    info.metadata.empty() ? json.null() : json.value(info.metadata);
    json.member("pages", info.pages);
    json.member("bitsPerSample", info.bitsPerSample);
    json.member("compression", info.compression);
    json.member("tiled", info.bTiled);
    json.member("byteOrder", info.bBigEndian ? "big" : "little");
    json.member("fileBytes", info.fileBytes);
    json.member("files", info.files);
    writeIgnored(json, info.ignored);
    json.endObject();
}

void tellFiles(const std::vector<std::string>& files, CommandContext& context)
{
    JsonWriter json(context.out);
    if (context.options.bJson) {
        json.beginArray();
    }
    for (const std::string& file : files) {
        try {
            checkFileName(file);
            const ImageFileInfo info = image::io::readImageInfo(file);
            context.options.bJson ? writeInfo(json, file, info) : printInfo(context.out, file, info);
        } catch (const std::exception& error) { // the other files may be sound
            context.out.flush();
            context.errors << errorLine(error.what());
            context.bSomeFailed = true;
        }
    }
    if (context.options.bJson) {
        json.endArray();
    }
}

void tellDevices(CommandContext& context)
{
    const hard::GpuDescription& devices =
        core::ComputerInfoPool::getInstance().getLocalComputerInfo().getComputerDescription().getGpuDescription();
    if (context.options.bJson) {
        JsonWriter json(context.out);
        writeDevices(json, devices);
    } else {
        printDevices(context.out, devices);
    }
}

struct InfoArguments
{
    std::vector<std::string> files;
    bool bDevices = false;
};

void runInfo(const InfoArguments& arguments, CommandContext& context)
{
    if (!arguments.bDevices) {
        if (arguments.files.empty()) {
            raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eBadArguments, "FILE is required", "orlix info");
        }
        tellFiles(arguments.files, context);
    } else if (!arguments.files.empty()) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eDevicesAlone, arguments.files.front());
    } else {
        tellDevices(context);
    }
}

constexpr VerbRow<InfoArguments> g_row = {
    .name = "info",
    .summary = "Tell axes, element type, calibration and file format of images",
    .operands =
        [](OptionList& list, InfoArguments& arguments) {
            list.add("FILE", arguments.files, "TIFF or PNG files; only their headers are read").valueName("...");
        },
    .options =
        [](OptionList& list, InfoArguments& arguments) {
            list.addFlag("--devices", arguments.bDevices, "Tell the CUDA devices of this computer, in place of files");
        },
    .run = &runInfo};

} // namespace

extern const Verb g_info;
constinit const Verb g_info = verbOf<g_row>();

} // namespace orlix::cli
