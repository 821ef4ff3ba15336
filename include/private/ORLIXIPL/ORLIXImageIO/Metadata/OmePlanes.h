// Which page of a TIFF file holds which plan, as the <TiffData> elements of OME-XML say.
#pragma once

#include "ORLIXIPL/ORLIXImageIO/Metadata/OmeFiles.h"

#include <pugixml.hpp>

#include <string>

namespace orlix::image::io {

/// Sizes of the plans that pages hold: `sizeC` counts pages, each of which may give several channels.
struct OmeAxes
{
    std::string order; ///< "XYZCT" and so on, fastest first
    unsigned long sizeZ, sizeC, sizeT;
};

/// A place for each of the z * c * t plans, which are at most as many as the pages of all files. Throws as
/// `metadataOfOme` does.
std::vector<PagePlace> placesOfPlanes(pugi::xml_node pixels, const OmeAxes& axes, const OmeIdentity& identity,
                                      const PageFacts& facts, OmeFiles* files);

/// An attribute that must be a whole number, or `fallback` where it is missing.
unsigned long numberAttribute(pugi::xml_node element, const char* name, unsigned long fallback, const PageFacts& facts);

[[noreturn]] void refuseOme(const PageFacts& facts, const std::string& reason);

} // namespace orlix::image::io
