// Finding XML elements by name whatever prefix their namespace has.
#pragma once

#include <pugixml.hpp>

#include <string_view>

namespace orlix::image::io {

inline bool hasName(pugi::xml_node node, std::string_view name)
{
    std::string_view full = node.name();
    if (const auto colon = full.find(':'); colon != full.npos) {
        full.remove_prefix(colon + 1);
    }
    return full == name;
}

/// First child of that name; an empty node where there is none.
inline pugi::xml_node childNamed(pugi::xml_node parent, std::string_view name)
{
    return parent.find_child([&](pugi::xml_node child) { return hasName(child, name); });
}

} // namespace orlix::image::io
