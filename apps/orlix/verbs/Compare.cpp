// orlix compare: do two images hold the same pixels, and if not, where and how far are they apart?
#include "CommandMessages.h"
#include "DifferencePicture.h"
#include "DifferenceStatistics.h"
#include "ImageFiles.h"
#include "JsonWriter.h"
#include "PlainText.h"
#include "RunProcessor.h"
#include "Tolerances.h"
#include "Verb.h"

#include "ORLIX/ORLIXUtil/NumberText.h"
#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CompareImg/CompareImgLvl1.h"
#include "ORLIXIPL/ORLIXImageIO/WriteImage.h"

#include <boost/algorithm/string/predicate.hpp>

#include <locale>
#include <optional>

namespace orlix::cli {

namespace {

using imaproc::attr::CompareResult;
using imaproc::attr::ImgComparisonTolerance;

constexpr const char* g_absolute = "--absolute";

struct CompareArguments
{
    std::string first;
    std::string second;
    std::optional<GivenTolerance> absolute;
    std::optional<GivenTolerance> relative;
    std::optional<std::string> picture;
};

boost::shared_ptr<const ImgComparisonTolerance> toleranceOf(const CompareArguments& arguments)
{
    using namespace imaproc::attr;
    if (arguments.absolute && arguments.relative) {
        return createImgComparisonTolerance(arguments.absolute->value, arguments.relative->value);
    }
    if (arguments.absolute) {
        return createImgComparisonAbsoluteTolerance(arguments.absolute->value);
    }
    return arguments.relative ? createImgComparisonRelativeTolerance(arguments.relative->value)
                              : createImgComparisonNoTolerance();
}

void checkPicture(const std::string& file)
{
    checkFileName(file);
    if (!boost::algorithm::iends_with(file, ".png", std::locale::classic())) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::ePictureNotPng, file);
    }
}

void checkComparable(const CompareArguments& arguments, const image::BaseImage& first, const image::BaseImage& second)
{
    const image::BaseImageGeometry& one = first.getGeometry();
    const image::BaseImageGeometry& other = second.getGeometry();
    if (!one.hasSameSizes(other) || !one.hasSameBufferTypes(other)) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eNotComparable, arguments.first, one.toString(),
                               arguments.second, other.toString());
    }
}

boost::shared_ptr<CompareResult> compare(const CompareArguments& arguments, const ImageConstPtr& first,
                                         const ImageConstPtr& second, CommandContext& context)
{
    using namespace imaproc;
    const boost::shared_ptr<const ImgComparisonTolerance> tolerance = toleranceOf(arguments);
    return runProcessor<util::CompareImgLvl1>("compare", context, processor::with<attr::InImg1>(first),
                                              processor::with<attr::InImg2>(second),
                                              processor::with<attr::InOptImgComparisonTolerance>(tolerance))
        ->getStorage<attr::OutCompareResult>();
}

void print(std::ostream& out, const CompareArguments& arguments, const CompareResult& result,
           const DifferenceStatistics& statistics)
{
    const std::string first = printable(arguments.first);
    const std::string second = printable(arguments.second);
    const bool bTolerant = arguments.absolute || arguments.relative;
    out << first << " and " << second << (result.identical ? " are the same" : " differ")
        << (bTolerant ? result.identical ? " within the tolerance\n" : " by more than the tolerance\n" : "\n");
    out << "  pixels      " << numberText(result.nbComparedPixels) << " compared, "
        << numberText(result.nbDifferentPixels) << " differ\n";
    if (result.hasFirstDifference()) {
        const imaproc::attr::PixelPosition& at = result.firstDifference;
        out << "  first       x " << numberText(at.x) << ", y " << numberText(at.y) << ", z " << numberText(at.z)
            << ", c " << numberText(at.c) << ", t " << numberText(at.t) << ": " << shortest(result.firstValue1)
            << " in " << first << ", " << shortest(result.firstValue2) << " in " << second << '\n';
    }
    if (statistics.largest > 0 || statistics.nbNotNumbers > 0) {
        out << "  difference  largest " << shortest(statistics.largest) << ", mean of all pixels "
            << shortest(static_cast<float>(statistics.mean));
        if (statistics.nbNotNumbers > 0) {
            out << ", " << numberText(statistics.nbNotNumbers) << " pixels left out since one of the two is no number";
        }
        out << '\n';
    }
}

void writeJson(JsonWriter& json, const CompareArguments& arguments, const CompareResult& result,
               const DifferenceStatistics& statistics)
{
    const auto optional = [&json](const char* name, const std::optional<GivenTolerance>& tolerance) {
        json.key(name);
        tolerance ? json.value(tolerance->value) : json.null();
    };
    json.beginObject();
    json.member("first", arguments.first);
    json.member("second", arguments.second);
    optional("absoluteTolerance", arguments.absolute);
    optional("relativeTolerance", arguments.relative);
    json.member("identical", result.identical);
    json.member("comparedPixels", result.nbComparedPixels);
    json.member("differentPixels", result.nbDifferentPixels);
    json.key("firstDifference");
    if (result.hasFirstDifference()) {
        const imaproc::attr::PixelPosition& at = result.firstDifference;
        json.beginObject();
        json.member("x", at.x);
        json.member("y", at.y);
        json.member("z", at.z);
        json.member("c", at.c);
        json.member("t", at.t);
        json.member("firstValue", result.firstValue1);
        json.member("secondValue", result.firstValue2);
        json.endObject();
    } else {
        json.null();
    }
    json.member("largestDifference", statistics.largest);
    json.member("meanDifference", statistics.mean);
    json.member("pixelsNotNumbers", statistics.nbNotNumbers);
    json.endObject();
}

void writePicture(const CompareArguments& arguments, const image::BaseImage& first, const image::BaseImage& second,
                  const CompareResult& result, CommandContext& context)
{
    const bool bFound = result.hasFirstDifference();
    const imaproc::attr::PixelPosition& at = result.firstDifference;
    const ImagePtr picture = drawDifference(first, second, bFound ? at.z : 0, bFound ? at.c : 0, bFound ? at.t : 0);
    writeOutput(*arguments.picture, picture, {}, context);
}

void runCompare(const CompareArguments& arguments, CommandContext& context)
{
    if (arguments.picture) {
        checkPicture(*arguments.picture);
    }
    const ImagePtr first = readInput(arguments.first, context);
    const ImagePtr second = readInput(arguments.second, context);
    checkComparable(arguments, *first, *second);
    if (arguments.absolute) {
        checkAbsoluteTolerance(g_absolute, *arguments.absolute, first->getGeometry());
    }
    const boost::shared_ptr<CompareResult> result = compare(arguments, first, second, context);
    if (arguments.picture) {
        writePicture(arguments, *first, *second, *result, context);
    }
    const bool bExactlySame = result->identical && !arguments.absolute && !arguments.relative;
    const DifferenceStatistics statistics = bExactlySame ? DifferenceStatistics() : measureDifferences(*first, *second);
    context.bDifferent = !result->identical;
    if (context.options.bJson) {
        JsonWriter json(context.out);
        writeJson(json, arguments, *result, statistics);
    } else {
        context.progress.wipe();
        print(context.out, arguments, *result, statistics);
    }
}

constexpr VerbRow<CompareArguments> g_row = {
    .name = "compare",
    .summary = "Tell whether two images are the same, and where they differ",
    .operands =
        [](OptionList& list, CompareArguments& arguments) {
            list.add("FIRST", arguments.first, "TIFF or PNG file").valueName(" ").required();
            list.add("SECOND", arguments.second, "TIFF or PNG file of the same sizes and element type")
                .valueName(" ")
                .required();
        },
    .options =
        [](OptionList& list, CompareArguments& arguments) {
            addToleranceOption(list, g_absolute, arguments.absolute,
                               "Let differences of up to so many grey values pass; on\n"
                               "integer images the fraction is dropped")
                .valueName("VALUE");
            addToleranceOption(list, "--relative", arguments.relative,
                               "Let differences of up to this part of the larger absolute\n"
                               "value pass; with --absolute too, those within either")
                .valueName("PART");
            const auto takePicture = [&arguments](const std::string& file) {
                arguments.picture = file;
                return std::nullopt;
            };
            list.add("--picture", takePicture,
                     "Draw the plan of the first difference in both images and\nits differences into a PNG file")
                .valueName("FILE");
        },
    .run = &runCompare};

} // namespace

extern const Verb g_compare;
constinit const Verb g_compare = verbOf<g_row>();

} // namespace orlix::cli
