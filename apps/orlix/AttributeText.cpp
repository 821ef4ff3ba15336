// Attributes as users write their values.
#include "AttributeText.h"

#include "NearNames.h"

#include "ORLIXIPL/ORLIXImageProcessing/BufferTypeAttribute.h"

#include <boost/algorithm/string/predicate.hpp>

#include <locale>

namespace orlix::cli {

namespace {

struct OtherName
{
    const char* name;
    image::eImageBufferType::domain type;
};

constexpr OtherName g_otherNames[] = {{"float32", image::eImageBufferType::Real32},
                                      {"bool", image::eImageBufferType::eBufferBinary}};

bool holdsElementType(const processor::BaseAttribute& attribute)
{
    return dynamic_cast<const imaproc::BufferTypeAttribute*>(&attribute) != nullptr;
}

} // namespace

ProcessingResult<bool> setFromUserText(processor::BaseAttribute& attribute, const std::string& text)
{
    for (const OtherName& other : g_otherNames) {
        if (holdsElementType(attribute) && boost::algorithm::iequals(text, other.name, std::locale::classic())) {
            return attribute.setFromText(image::getBufferTypeName(other.type));
        }
    }
    return attribute.setFromText(text);
}

std::string nearValueHint(const processor::BaseAttribute& attribute, const std::string& text)
{
    std::vector<std::string> names;
    if (holdsElementType(attribute)) {
        for (const image::eImageBufferType type : image::g_allBufferTypes) {
            names.push_back(image::getBufferTypeName(type));
        }
        for (const OtherName& other : g_otherNames) {
            names.push_back(other.name);
        }
    }
    return nearHint(text, names);
}

} // namespace orlix::cli
