// What the verbs share that make an image out of nothing but numbers.
#include "NewImage.h"

#include "AttributeOption.h"
#include "CommandMessages.h"
#include "ImageFiles.h"
#include "MakeVerb.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIX/ORLIXUtil/RandomStates.h"
#include "ORLIXIPL/ORLIXIPLAttributes/BufferTypeAttributes.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/RandomRun.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImageIO/ReadImage.h"

#include <charconv>

namespace orlix::cli {

namespace {

/// Every number up to here is the same to all who read JSON.
constexpr unsigned long g_largestSeed = (1UL << 53) - 1;

/// "640,480", up to five numbers; empty for anything else.
std::vector<unsigned long> readSizes(const std::string& text)
{
    std::vector<unsigned long> sizes;
    const char* from = text.data();
    const char* const end = from + text.size();
    while (sizes.size() < 5) {
        unsigned long size = 0;
        const auto [stop, error] = std::from_chars(from, end, size);
        if (error != std::errc() || size == 0 || (stop != end && *stop != ',')) {
            return {};
        }
        sizes.push_back(size);
        if (stop == end) {
            return sizes.size() < 2 ? std::vector<unsigned long>() : sizes;
        }
        from = stop + 1;
    }
    return {};
}

ImagePtr makeImage(const NewImageArguments& arguments)
{
    if (!arguments.like.empty()) {
        if (!arguments.size.empty()) {
            raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eSizeTwice);
        }
        const image::io::ImageFileInfo info = image::io::readImageInfo(arguments.like);
        const image::BaseImageGeometry& like = info.geometry;
        const ImagePtr image = image::createImage(
            *image::geometry5d(arguments.type ? arguments.type->value : like.getBufferType(), like.getSizeX(),
                               like.getSizeY(), like.getSizeZ(), like.getSizeC(), like.getSizeT()));
        image->setGeometricCalibration(info.calibration);
        return image;
    }
    if (arguments.size.empty() || !arguments.type) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eNoSize);
    }
    std::vector<unsigned long> size = arguments.size;
    size.resize(5, 1);
    return image::createImage(*image::geometry5d(arguments.type->value, size[0], size[1], size[2], size[3], size[4]));
}

unsigned long newSeed()
{
    unsigned int halves[2];
    drawRandomStates(halves, 2);
    return (static_cast<unsigned long>(halves[0]) << 32 | halves[1]) & g_largestSeed;
}

} // namespace

void addNewImageArguments(OptionList& list, NewImageArguments& arguments)
{
    addOutputOptions(list, arguments.output);
}

void addNewImageOptions(OptionList& list, NewImageArguments& arguments)
{
    const auto readSize = [&arguments](const std::string& text) -> std::optional<std::string> {
        arguments.size = readSizes(text);
        if (arguments.size.empty()) {
            return formatMessage<eCommandMessage>(eCommandMessage::eBadOption,
                                                  "two to five whole numbers from 1 on, such as 640,480", text, "");
        }
        return std::nullopt;
    };
    list.add("--size", readSize, "Sizes along x and y, and along z, channels and time where\nthey aren't 1")
        .valueName("W,H[,Z[,C[,T]]]");
    addAttributeOption<imaproc::attr::InConvertImageBufferType>(list, "--type", arguments.type,
                                                                "Element type of the output, as of `orlix convert`")
        .valueName("TYPE");
    list.add("--like", arguments.like,
             "Image file whose sizes and calibration the output gets, and\nits element type where --type is left out")
        .valueName("IMAGE");
    const auto readSeed = [&arguments](const std::string& text) -> std::optional<std::string> {
        unsigned long seed = 0;
        const char* const end = text.data() + text.size();
        const auto [stop, error] = std::from_chars(text.data(), end, seed);
        if (error != std::errc() || stop != end || seed > g_largestSeed) {
            return formatMessage<eCommandMessage>(
                eCommandMessage::eBadOption, "a whole number from 0 to " + std::to_string(g_largestSeed), text, "");
        }
        arguments.seed = seed;
        return std::nullopt;
    };
    list.add("--seed", readSeed,
             "The same seed gives the same image, on any number of threads;\ndefault: another one each time, which is "
             "printed")
        .valueName("N");
}

void makeRandomImage(const NewImageArguments& arguments, CommandContext& context,
                     const std::function<void(const ImagePtr& image)>& fill)
{
    const unsigned long seed = arguments.seed ? *arguments.seed : newSeed();
    const auto make = [&] {
        const ImagePtr image = makeImage(arguments);
        checkElementType(arguments.output.file, *image);
        const imaproc::util::RandomRunScope scope(seed, 0);
        fill(image);
        return image;
    };
    makeFile(arguments.output, context, make, [&](JsonWriter& json) { json.member("seed", seed); });
    if (!context.options.bJson && !arguments.seed) {
        context.out << "seed " << seed << '\n';
    }
}

} // namespace orlix::cli
