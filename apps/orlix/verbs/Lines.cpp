// orlix lines: parallel lines as a binary image, by buildLines2dImg's and buildLines3dImg's processors.
#include "AngleOption.h"
#include "AttributeOption.h"
#include "MakeVerb.h"
#include "NumberList.h"
#include "RunProcessor.h"
#include "Verb.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BuildLines2dImg/BuildLines2dImg.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BuildLines2dImg/BuildLines2dImgLvl1.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BuildLines3dImg/BuildLines3dImg.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BuildLines3dImg/BuildLines3dImgLvl1.h"

namespace orlix::cli {

namespace {

using namespace imaproc;
using Sizes = std::vector<unsigned long>;

struct LinesArguments
{
    OutputOptions output;
    Sizes size;
    std::optional<GivenValue<double>> spacing;
    std::optional<GivenValue<double>> theta;
    std::optional<GivenValue<double>> phi;
    std::optional<GivenValue<double>> alpha;
    Sizes whole;  ///< of which a part is made; empty: the image is the whole
    Sizes offset; ///< where that part begins; empty: at the first pixel
};

constexpr const char* g_size = "--size";
constexpr const char* g_phi = "--phi";
constexpr const char* g_alpha = "--alpha";
constexpr const char* g_whole = "--whole";
constexpr const char* g_offset = "--offset";

float radiansOf(const std::optional<GivenValue<double>>& angle)
{
    return static_cast<float>(angle ? angle->value : 0.0);
}

void checkArguments(const LinesArguments& arguments)
{
    const bool b3d = arguments.size.size() == 3;
    for (const auto& [name, angle] : {std::pair(g_phi, &arguments.phi), std::pair(g_alpha, &arguments.alpha)}) {
        if (!b3d && *angle) {
            raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eForVolumesOnly, name, g_size,
                                   listText(arguments.size));
        }
    }
    if (!arguments.offset.empty() && arguments.whole.empty()) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eNeedsOption, g_offset, g_whole);
    }
    for (const auto& [name, numbers] : {std::pair(g_whole, &arguments.whole), std::pair(g_offset, &arguments.offset)}) {
        if (!numbers->empty() && numbers->size() != arguments.size.size()) {
            raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eOtherAxes, name, listText(*numbers), g_size,
                                   listText(arguments.size));
        }
    }
}

ImagePtr makePlan(const LinesArguments& arguments, CommandContext& context)
{
    const float theta = radiansOf(arguments.theta);
    const Sizes& size = arguments.size;
    if (!arguments.whole.empty()) {
        const Sizes& first = arguments.offset;
        const ImagePtr out =
            image::createImage(*image::geometry2d(image::eImageBufferType::eBufferBinary, size[0], size[1]));
        util::buildLines2dImgPart({arguments.whole[0], arguments.whole[1]},
                                  first.empty() ? attr::Img2dOffsetRecord()
                                                : attr::Img2dOffsetRecord{first[0], first[1]},
                                  theta, static_cast<float>(arguments.spacing->value), out);
        return out;
    }
    return runProcessor<util::BuildLines2dImgLvl1>(
               "lines", context, processor::with<attr::InOutputImg2dSize>(attr::createImg2dSize(size[0], size[1])),
               processor::with<attr::InTheta>(theta), processor::with<attr::InOffset>(arguments.spacing->value))
        ->getStorage<attr::OutBinImg>();
}

ImagePtr makeVolume(const LinesArguments& arguments, CommandContext& context)
{
    const float theta = radiansOf(arguments.theta);
    const float phi = radiansOf(arguments.phi);
    const float alpha = radiansOf(arguments.alpha);
    const Sizes& size = arguments.size;
    if (!arguments.whole.empty()) {
        const Sizes& first = arguments.offset;
        const ImagePtr out =
            image::createImage(*image::geometry3d(image::eImageBufferType::eBufferBinary, size[0], size[1], size[2]));
        util::buildLines3dImgPart({arguments.whole[0], arguments.whole[1], arguments.whole[2]},
                                  first.empty() ? attr::Img3dOffsetRecord()
                                                : attr::Img3dOffsetRecord{first[0], first[1], first[2]},
                                  theta, phi, alpha, static_cast<float>(arguments.spacing->value), out);
        return out;
    }
    return runProcessor<util::BuildLines3dImgLvl1>(
               "lines", context,
               processor::with<attr::InOutputImg3dSize>(attr::createImg3dSize(size[0], size[1], size[2])),
               processor::with<attr::InTheta>(theta), processor::with<attr::InPhi>(phi),
               processor::with<attr::InAlpha>(alpha), processor::with<attr::InOffset>(arguments.spacing->value))
        ->getStorage<attr::OutBinImg3d>();
}

constexpr VerbRow<LinesArguments> g_row = {
    .name = "lines",
    .summary = "Make a binary image of parallel lines, in 2d or 3d",
    .operands = [](OptionList& list, LinesArguments& arguments) { addOutputOptions(list, arguments.output); },
    .options =
        [](OptionList& list, LinesArguments& arguments) {
            addNumberList(list, g_size, arguments.size, 2, 3, "Pixels along x, y and, of a volume, z")
                .valueName("W,H[,D]")
                .required();
            addAttributeOption<attr::InOffset>(list, "--spacing", arguments.spacing,
                                               "Pixels from line to line, measured across them")
                .valueName("PIXELS")
                .required();
            addAngleOption(list, "--theta", arguments.theta,
                           "Angle of the lines, from x towards y; in a volume, from z\n"
                           "towards x; degrees, or radians with rad behind; default: 0");
            addAngleOption(list, g_phi, arguments.phi, "In a volume, turns the lines about z; default: 0");
            addAngleOption(list, g_alpha, arguments.alpha, "In a volume, turns them about themselves; default: 0");
            addNumberList(list, g_whole, arguments.whole, 2, 3,
                          "Make a part of an image of this size; default: the whole of it")
                .valueName("W,H[,D]");
            addNumberList(list, g_offset, arguments.offset, 2, 3, "Where in --whole that part begins; default: 0,0[,0]")
                .valueName("X,Y[,Z]");
        },
    .run =
        [](const LinesArguments& arguments, CommandContext& context) {
            checkArguments(arguments);
            makeFile(arguments.output, context, [&] {
                return arguments.size.size() == 3 ? makeVolume(arguments, context) : makePlan(arguments, context);
            });
        }};

} // namespace

extern const Verb g_lines;
constinit const Verb g_lines = verbOf<g_row>();

} // namespace orlix::cli
