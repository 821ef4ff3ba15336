// Options of verbs that set an attribute of their processor.
#pragma once

#include "AttributeText.h"
#include "CommandMessages.h"
#include "GivenValue.h"
#include "OptionList.h"

#include <optional>
#include <string>

namespace orlix::cli {

/// Declares an option whose text is read as an attribute of class `TAttribute` reads it. `value`, empty until the
/// option was given, has to outlive the parser.
template <class TAttribute>
Option addAttributeOption(OptionList& options, const std::string& name,
                          std::optional<GivenValue<typename TAttribute::StorageType>>& value,
                          const std::string& description)
{
    const auto read = [&value](const std::string& text) -> std::optional<std::string> {
        TAttribute attribute;
        if (!setFromUserText(attribute, text)) {
            return formatMessage<eCommandMessage>(eCommandMessage::eBadOption, attribute.getValueKind(), text,
                                                  nearValueHint(attribute, text));
        }
        value = {attribute.getValue(), text};
        return std::nullopt;
    };
    return options.add(name, read, description);
}

} // namespace orlix::cli
