// Telling formats apart by magic bytes and endings.
#include "ORLIXIPL/ORLIXImageIO/File/FileFormat.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImageIO/Logger/ORLIXImageIOLogMessages.h"
#include "ORLIXIPL/ORLIXImageIO/WriteImage.h"

#include <boost/algorithm/string/case_conv.hpp>

#include <array>
#include <cstdio>
#include <locale>
#include <string_view>

namespace orlix::image::io {

namespace {

using std::literals::operator""sv;

struct Signature
{
    std::string_view bytes;
    eImageFileFormat::domain format;
};

constexpr std::array g_signatures = {
    Signature{"II\x2a\0"sv, eImageFileFormat::eTiff}, Signature{"MM\0\x2a"sv, eImageFileFormat::eTiff},
    Signature{"II\x2b\0"sv, eImageFileFormat::eTiff}, Signature{"MM\0\x2b"sv, eImageFileFormat::eTiff},
    Signature{"\x89PNG\r\n\x1a\n"sv, eImageFileFormat::ePng}};

std::string hexadecimal(std::string_view bytes)
{
    std::string text;
    for (const char byte : bytes) {
        char digits[4];
        std::snprintf(digits, sizeof digits, "%02x ", static_cast<unsigned>(static_cast<unsigned char>(byte)));
        text += digits;
    }
    if (text.empty()) {
        return "none, the file is empty";
    }
    text.pop_back();
    return text;
}

// From the last dot of the name on, in lower case; empty where there is none.
std::string endingOf(const std::string& file)
{
    const std::size_t start = file.rfind('/') + 1, dot = file.rfind('.');
    if (dot == std::string::npos || dot < start) {
        return {};
    }
    return boost::algorithm::to_lower_copy(file.substr(dot), std::locale::classic());
}

} // namespace

eImageFileFormat formatByContent(ByteSource& source)
{
    char start[8];
    const std::string_view found(start, source.read(0, start, sizeof start));
    for (const Signature& signature : g_signatures) {
        if (found.substr(0, signature.bytes.size()) == signature.bytes) {
            return signature.format;
        }
    }
    raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eUnknownContent, source.getName(),
                                hexadecimal(found));
}

eImageFileFormat formatByEnding(const boost::filesystem::path& file)
{
    const std::string ending = endingOf(file.string()); // path::extension() ends the process where memory ends
    if (ending == ".tif" || ending == ".tiff") {
        return eImageFileFormat::eTiff;
    }
    if (ending == ".png") {
        return eImageFileFormat::ePng;
    }
    raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eUnknownEnding, file.string(), ending);
}

bool canHold(const eImageFileFormat& format, const eImageBufferType& type)
{
    const unsigned long bytes = elementSize(type);
    if (format == eImageFileFormat::ePng) {
        return (bytes == 1 || bytes == 2) && getMinValue(type) == 0;
    }
    return bytes != 0;
}

} // namespace orlix::image::io
