// Options of verbs that set an attribute of their processor.
#pragma once

#include "CommandMessages.h"

#include <CLI/CLI.hpp>

#include <optional>
#include <string>

namespace orlix::cli {

/// Declares an option whose text is read as an attribute of class `TAttribute` reads it. `value`, empty until the
/// option was given, has to outlive the parser.
template <class TAttribute>
CLI::Option* addAttributeOption(CLI::App& app, const std::string& name,
                                std::optional<typename TAttribute::StorageType>& value, const std::string& description)
{
    const auto read = [name, &value](const std::string& text) {
        TAttribute attribute;
        if (!attribute.setFromText(text)) {
            throw CLI::ValidationError(
                name, formatMessage<eCommandMessage>(eCommandMessage::eBadOption, attribute.getValueKind(), text));
        }
        value = attribute.getValue();
    };
    return app.add_option_function<std::string>(name, read, description);
}

} // namespace orlix::cli
