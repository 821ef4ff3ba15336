// Which message of which catalogue a text was made from.
#pragma once

#include <string>

namespace orlix {

/// Tells errors apart without a look at their texts: `messageNumber` of MessageCatalogue.h gives that of a message to
/// compare with. Empty for a text that no catalogue made.
struct MessageNumber
{
    std::string catalogue; ///< the enumeration with its namespaces, such as "orlix::imaproc::util::eRuleMessage"
    int id = 0;            ///< in that enumeration

    bool empty() const { return catalogue.empty(); }

    friend bool operator==(const MessageNumber&, const MessageNumber&) = default;
};

} // namespace orlix
