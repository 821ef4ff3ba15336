// The attributes of one processor as text and files: values, images that are read, images that are written.
#pragma once

#include "CommandContext.h"
#include "JsonWriter.h"
#include "OutputOptions.h"

#include "ORLIX/ORLIXBaseProcessing/BaseProcessor.h"
#include "ORLIXIPL/ORLIXImageProcessing/BaseImageAttributes.h"

#include <map>
#include <string>

namespace orlix::cli {

/// Takes what a user says of attributes and says, in a CommandException, what is wrong with it. Files are touched by
/// `readImages` and `writeImages` alone.
class AttributeFiles
{
public:
    /// `processor` is initialised.
    explicit AttributeFiles(const boost::shared_ptr<processor::BaseProcessor>& processor) : m_processor(processor) {}

    /// "ATTRIBUTE=VALUE"; for an image the value is the file that an input comes from or an output goes to.
    void assign(const std::string& assignment);
    /// "ATTRIBUTE=FILE": the image that an output holds before the run.
    void give(const std::string& assignment);

    /// Throws where the processor can't be run with this, or where a file can't be written so.
    void check(const FormatOptions& format) const;

    void readImages(CommandContext& context);
    /// Writes the outputs that have a file, in the order of the attributes.
    void writeImages(const FormatOptions& format, CommandContext& context) const;
    /// Tells the outputs that have a text.
    void printValues(std::ostream& out) const;
    /// All of them, and the images that were written, as one object.
    void writeOutputs(JsonWriter& json) const;

private:
    using Files = std::map<std::string, std::string>; ///< by name of attribute

    processor::BaseAttribute& attributeNamed(const std::string& name) const;
    void checkRequired(const processor::BaseAttribute& attribute) const;
    void checkTargets(const FormatOptions& format) const;

    boost::shared_ptr<processor::BaseProcessor> m_processor;
    Files m_sources;
    Files m_targets;
};

} // namespace orlix::cli
