// orlix values: the values of an image at the points of a table.
#include "AttributeOption.h"
#include "ImageFiles.h"
#include "JsonWriter.h"
#include "PlainText.h"
#include "RunProcessor.h"
#include "TablePoints.h"
#include "Verb.h"

#include "ORLIX/ORLIXUtil/FileReplacement.h"
#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImg2dValues/ExtractImg2dValuesLvl1.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ExtractImg3dValues/ExtractImg3dValuesLvl1.h"

#include <boost/algorithm/string/classification.hpp>
#include <boost/algorithm/string/split.hpp>

#include <map>
#include <ostream>

namespace orlix::cli {

namespace {

using imaproc::attr::Doubles;
using imaproc::attr::ImageValueExtractionMethod;
using imaproc::attr::InOptInterpolationPolicy;
using imaproc::attr::PlanIndexedDoubles;
using PlacedValues = boost::shared_ptr<PlanIndexedDoubles>;

enum class eMethod { automatic, tiled, striped };
constexpr const char* g_methodNames[] = {"auto", "tiled", "striped"};

struct ValuesArguments
{
    std::string image;
    std::string table;
    std::optional<GivenValue<InOptInterpolationPolicy::StorageType>> policy;
    eMethod method = eMethod::automatic;
    std::optional<std::string> out;
    PointOptions points;
};

/// "Z,C,T"
std::optional<std::string> readPlan(const std::string& text, std::optional<PlanIndex>& plan)
{
    std::vector<std::string> parts;
    boost::algorithm::split(parts, text, boost::algorithm::is_any_of(","));
    std::array<unsigned long, 3> numbers{};
    bool bRead = parts.size() == numbers.size();
    for (unsigned long i = 0; bRead && i < numbers.size(); ++i) {
        bRead = processor::ValueText<unsigned long>::read(parts[i], numbers[i]);
    }
    if (!bRead) {
        return formatMessage<eCommandMessage>(eCommandMessage::eBadOption, "three whole numbers from 0 on, as in 5,0,2",
                                              text, "");
    }
    plan = PlanIndex(numbers[0], numbers[1], numbers[2]);
    return std::nullopt;
}

boost::shared_ptr<const ImageValueExtractionMethod> toMethod(eMethod method)
{
    switch (method) {
    case eMethod::tiled:
        return imaproc::attr::createImageValueExtractionMethod(ImageValueExtractionMethod::s_tiledAlways);
    case eMethod::striped:
        return imaproc::attr::createImageValueExtractionMethod(ImageValueExtractionMethod::s_tiledNever);
    default: return imaproc::attr::createDefaultImageValueExtractionMethod();
    }
}

void checkOptions(const ValuesArguments& arguments)
{
    if (arguments.points.bMirror && arguments.method == eMethod::striped) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eMirrorNeedsTiles);
    }
    if (arguments.out) {
        checkFileName(*arguments.out);
    }
}

void checkCalibration(const std::string& file, const image::BaseImage& image)
{
    const image::GeometricCalibration* const calibration = image.getGeometricCalibration().get();
    if (calibration == nullptr ||
        !(calibration->getPixelSizeX() > 0 && calibration->getPixelSizeY() > 0 && calibration->getPixelSizeZ() > 0)) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eNotCalibrated, file);
    }
    if (calibration->getRotationX() != 0 || calibration->getRotationY() != 0 || calibration->getRotationZ() != 0) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eRotated, file);
    }
}

PlacedValues extract(const ValuesArguments& arguments, const ImageConstPtr& in, const TablePoints& points,
                     CommandContext& context)
{
    using namespace imaproc;
    const attr::eInterpolationPolicy policy =
        arguments.policy ? arguments.policy->value : InOptInterpolationPolicy().getValue();
    const auto withPolicy = processor::with<InOptInterpolationPolicy>(policy);
    // Tiles always, where points may lie outside: strips have no values for those.
    const auto method = toMethod(arguments.points.bMirror ? eMethod::tiled : arguments.method);
    const auto withMethod = processor::with<attr::InOptImageValueExtractionMethod>(method);
    if (points.isVolume()) {
        return runProcessor<util::ExtractImg3dValuesLvl1>("values", context, processor::with<attr::InImg3d>(in),
                                                          processor::with<attr::InPICoords3dColl>(points.getPoints3d()),
                                                          withPolicy, withMethod)
            ->getStorage<attr::OutPIImgGreyValues>();
    }
    return runProcessor<util::ExtractImg2dValuesLvl1>("values", context, processor::with<attr::InImg>(in),
                                                      processor::with<attr::InPICoords2dColl>(points.getPoints2d()),
                                                      withPolicy, withMethod)
        ->getStorage<attr::OutPIImgGreyValues>();
}

/// In the order of the rows.
std::vector<double> inRowOrder(const TablePoints& points, unsigned long nbRows, const PlanIndexedDoubles& values)
{
    std::map<PlanIndex, unsigned long> next;
    std::vector<double> ordered(nbRows);
    for (unsigned long row = 0; row < nbRows; ++row) {
        const PlanIndex& plan = points.getPlan(row);
        ordered[row] = valuesOf(*values.find(plan))[next[plan]++];
    }
    return ordered;
}

/// Line by line to `write`.
template <class TWrite>
void writeTable(const PointTable& table, const std::vector<double>& values, const TWrite& write)
{
    const std::string separator(1, table.getSeparator());
    write(std::string(table.getHeader()) + separator + "value\n");
    for (unsigned long row = 0; row < values.size(); ++row) {
        write(std::string(table.getRow(row)) + separator + shortest(values[row]) + "\n");
    }
}

void writeFile(const std::string& file, const PointTable& table, const std::vector<double>& values)
{
    FileReplacement replacement(file);
    ProcessingResult<bool> result = replacement.open();
    std::string buffer;
    constexpr unsigned long bufferSize = 1UL << 16;
    const auto flush = [&] {
        result = result ? replacement.write(buffer.data(), buffer.size()) : result;
        buffer.clear();
    };
    writeTable(table, values, [&](const std::string& line) {
        buffer += line;
        if (buffer.size() > bufferSize) {
            flush();
        }
    });
    flush();
    result = result ? replacement.commit() : result;
    if (!result) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eTableNotWritten, file, result.getMessage());
    }
}

void writeJson(const ValuesArguments& arguments, const TablePoints& points, const std::vector<double>& values,
               std::ostream& out)
{
    JsonWriter json(out);
    json.beginObject();
    json.member("image", arguments.image);
    json.member("table", arguments.table);
    json.key("points");
    json.beginArray();
    for (unsigned long row = 0; row < values.size(); ++row) {
        const PlanIndex& plan = points.getPlan(row);
        json.beginObject();
        json.member("x", points.getPlace(row)[0]);
        json.member("y", points.getPlace(row)[1]);
        points.isVolume() ? json.member("z", points.getPlace(row)[2]) : json.member("z", plan.z);
        json.member("c", plan.c);
        json.member("t", plan.t);
        json.member("value", values[row]);
        json.endObject();
    }
    json.endArray();
    json.endObject();
}

void runValues(const ValuesArguments& arguments, CommandContext& context)
{
    checkOptions(arguments);
    checkFileName(arguments.table);
    const PointTable table(arguments.table);
    const ImagePtr in = readInput(arguments.image, context);
    if (arguments.points.bCalibrated) {
        checkCalibration(arguments.image, *in);
    }
    const TablePoints points(table, arguments.image, *in, arguments.points);
    const std::vector<double> values = inRowOrder(points, table.getNbRows(), *extract(arguments, in, points, context));
    if (arguments.out) {
        writeFile(*arguments.out, table, values);
    }
    context.progress.wipe();
    if (context.options.bJson) {
        writeJson(arguments, points, values, context.out);
    } else if (!arguments.out) {
        writeTable(table, values, [&context](const std::string& line) { context.out << line; });
    }
}

constexpr VerbRow<ValuesArguments> g_row = {
    .name = "values",
    .summary = "Tell the values of an image at the points of a table",
    .operands =
        [](OptionList& list, ValuesArguments& arguments) {
            list.add("IN", arguments.image, "TIFF or PNG file").valueName(" ").required();
            list.add("POINTS", arguments.table,
                     "Table with the columns x and y in pixels, from 0 at the\n"
                     "centre of the first one; a column z makes points of a volume")
                .valueName(" ")
                .required();
        },
    .options =
        [](OptionList& list, ValuesArguments& arguments) {
            addAttributeOption<InOptInterpolationPolicy>(list, "--interpolation", arguments.policy,
                                                         "What lies between pixels; default: linear")
                .valueName("nearest|linear|cubic");
            list.addChoice(
                "--method", {std::begin(g_methodNames), std::end(g_methodNames)},
                [&arguments](std::size_t index) { arguments.method = static_cast<eMethod>(index); },
                "How pixels are fetched; all give the same values; default: auto");
            list.add(
                    "--out",
                    [&arguments](const std::string& file) -> std::optional<std::string> {
                        arguments.out = file;
                        return std::nullopt;
                    },
                    "Write the table there instead of to the standard output")
                .valueName("FILE");
            list.add(
                    "--plan", [&arguments](const std::string& text) { return readPlan(text, arguments.points.plan); },
                    "Plan, channel and time of points whose rows don't tell\ntheirs in columns c and t")
                .valueName("Z,C,T");
            list.addFlag("--calibrated", arguments.points.bCalibrated,
                         "Coordinates are in the unit of the image's calibration");
            list.addChoice(
                "--outside", {"refuse", "mirror"},
                [&arguments](std::size_t index) { arguments.points.bMirror = index == 1; },
                "What becomes of points beyond the outermost pixel centres:\n"
                "refuse them, or look into the mirror images around;\ndefault: refuse");
        },
    .run = &runValues};

} // namespace

extern const Verb g_values;
constinit const Verb g_values = verbOf<g_row>();

} // namespace orlix::cli
