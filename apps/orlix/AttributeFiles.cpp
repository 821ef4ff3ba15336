// The attributes of one processor as text and files: values, images that are read, images that are written.
#include "AttributeFiles.h"

#include "AttributeText.h"
#include "CommandMessages.h"
#include "DescribeAttributes.h"
#include "DescribeImage.h"
#include "ImageFiles.h"
#include "NearNames.h"
#include "OutputText.h"
#include "PlainText.h"

#include "ORLIX/ORLIXUtil/Raise.h"

#include <filesystem>

namespace orlix::cli {

namespace {

using imaproc::BaseImageAttribute;
using imaproc::BaseInputImageAttribute;
using imaproc::BaseOutputImageAttribute;
using processor::BaseAttribute;

struct Assignment
{
    std::string name;
    std::string value;
};

Assignment parted(const std::string& text)
{
    const std::size_t equals = text.find('=');
    if (equals == 0 || equals == std::string::npos) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eNoAssignment, text);
    }
    return {text.substr(0, equals), text.substr(equals + 1)};
}

bool isImage(const BaseAttribute& attribute)
{
    return dynamic_cast<const BaseInputImageAttribute*>(&attribute) != nullptr ||
           dynamic_cast<const BaseOutputImageAttribute*>(&attribute) != nullptr;
}

void setImage(BaseAttribute& attribute, const ImagePtr& image)
{
    if (attribute.isOutput()) {
        dynamic_cast<BaseOutputImageAttribute&>(attribute).init(image);
    } else {
        dynamic_cast<BaseInputImageAttribute&>(attribute).init(ImageConstPtr(image));
    }
}

void remember(std::map<std::string, std::string>& files, const Assignment& assignment)
{
    if (!files.emplace(assignment.name, assignment.value).second) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eAssignedTwice, assignment.name);
    }
}

/// The same for all spellings of a path.
std::string placeOf(const std::string& file)
{
    std::error_code ignored; // a path that leads nowhere stands for itself
    const std::filesystem::path place = std::filesystem::weakly_canonical(file, ignored);
    return place.empty() ? file : place.string();
}

} // namespace

BaseAttribute& AttributeFiles::attributeNamed(const std::string& name) const
{
    for (const auto& attribute : m_processor->getAttributeColl()) {
        if (attribute->getObjectName() == name) {
            return *attribute;
        }
    }
    raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eUnknownAttribute, m_processor->getObjectName(), name,
                           nearHint(name, m_processor->getAttributeNameColl()),
                           joinNames(m_processor->getAttributeNameColl()));
}

void AttributeFiles::assign(const std::string& assignment)
{
    const Assignment parts = parted(assignment);
    BaseAttribute& attribute = attributeNamed(parts.name);
    if (isImage(attribute)) {
        remember(attribute.isOutput() ? m_targets : m_sources, parts);
        return;
    }
    if (attribute.isSet()) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eAssignedTwice, parts.name);
    }
    if (const ProcessingResult<bool> result = setFromUserText(attribute, parts.value); !result) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eBadAssignment, result.getMessage(),
                               nearValueHint(attribute, parts.value), m_processor->getObjectName());
    }
}

void AttributeFiles::give(const std::string& assignment)
{
    const Assignment parts = parted(assignment);
    const BaseAttribute& attribute = attributeNamed(parts.name);
    if (!attribute.isOutput() || !isImage(attribute)) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eNotGiven, parts.name, parts.name);
    }
    remember(m_sources, parts);
}

void AttributeFiles::check(const FormatOptions& format) const
{
    for (const auto& attribute : m_processor->getAttributeColl()) {
        checkRequired(*attribute);
    }
    checkTargets(format);
}

void AttributeFiles::checkRequired(const BaseAttribute& attribute) const
{
    const std::string& name = attribute.getObjectName();
    if (attribute.isSet() || m_sources.contains(name) || !isRequired(*m_processor, attribute)) {
        return;
    }
    const std::string& owner = m_processor->getObjectName();
    if (isImage(attribute) && attribute.isOutput()) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eNeedsGivenImage, owner, name, name);
    }
    if (isImage(attribute) || attribute.takesText()) {
        raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eNeedsValue, owner, name, attribute.getToolTip(), name,
                               isImage(attribute) ? "FILE" : "VALUE");
    }
    raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eNotFromOutside, owner, name, attribute.getValueKind());
}

void AttributeFiles::checkTargets(const FormatOptions& format) const
{
    Files attributes; // by place
    for (const auto& [name, file] : m_targets) {
        checkOutput(file, format);
        const auto [other, bNew] = attributes.emplace(placeOf(file), name);
        if (!bNew) {
            raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eSameTarget, other->second, name, file);
        }
    }
}

void AttributeFiles::readImages(CommandContext& context)
{
    for (const auto& [name, file] : m_sources) {
        setImage(attributeNamed(name), readInput(file, context));
    }
}

void AttributeFiles::writeImages(const FormatOptions& format, CommandContext& context) const
{
    for (const auto& attribute : m_processor->getAttributeColl()) {
        const auto target = m_targets.find(attribute->getObjectName());
        if (target == m_targets.end()) {
            continue;
        }
        if (!attribute->isHeld()) {
            raise<eCommandMessage>(ORLIX_HERE, eCommandMessage::eOutputNotMade, m_processor->getObjectName(),
                                   target->first);
        }
        writeOutput(target->second, dynamic_cast<const BaseImageAttribute&>(*attribute).getImagePtr(), format.write,
                    context);
    }
}

void AttributeFiles::printValues(std::ostream& out) const
{
    for (const auto& attribute : m_processor->getAttributeColl()) {
        const std::optional<std::string> text = outputText(*attribute);
        if (text) {
            out << printable(attribute->getObjectName() + ": " + *text) << '\n';
        }
    }
}

void AttributeFiles::writeOutputs(JsonWriter& json) const
{
    json.beginObject();
    for (const auto& attribute : m_processor->getAttributeColl()) {
        if (writeOutputMember(json, *attribute)) {
            continue;
        }
        if (const auto target = m_targets.find(attribute->getObjectName()); target != m_targets.end()) {
            const ImageConstPtr image = dynamic_cast<const BaseImageAttribute&>(*attribute).getImagePtr();
            json.key(attribute->getObjectName());
            json.beginObject();
            json.member("file", target->second);
            writeImageMembers(json, image->getGeometry(), image->getGeometricCalibration());
            json.endObject();
        }
    }
    json.endObject();
}

} // namespace orlix::cli
