// What the verbs share that make an image file out of nothing.
#include "MakeVerb.h"

#include "DescribeImage.h"
#include "ImageFiles.h"

namespace orlix::cli {

void makeFile(const OutputOptions& output, CommandContext& context, const std::function<ImagePtr()>& make,
              const std::function<void(JsonWriter& json)>& addMembers)
{
    checkOutput(output.file, output.format);
    const ImagePtr out = make();
    writeOutput(output.file, out, output.format.write, context);
    if (context.options.bJson) {
        JsonWriter json(context.out);
        json.beginObject();
        json.member("output", output.file);
        addMembers(json);
        writeImageMembers(json, out->getGeometry(), out->getGeometricCalibration());
        json.endObject();
    }
}

} // namespace orlix::cli
