// Which file of a set each <TiffData> element of OME-XML means, and how many pages that file has.
#pragma once

#include "ORLIXIPL/ORLIXImageIO/Metadata/ImageMetadata.h"

#include <pugixml.hpp>

#include <string>

namespace orlix::image::io {

/// The files that the pages of one image lie in. File 0 is the one whose description is read.
class OmeFiles
{
public:
    virtual ~OmeFiles() = default;

    /// The number of the file `name` in the folder of file 0. Throws ORLIXImageIOException where `name` is more than
    /// the name of a file, there is no such file, it is no TIFF file, or it says of itself to have another UUID than
    /// `uuid`, which may be empty.
    virtual unsigned long add(const std::string& name, const std::string& uuid) = 0;

    /// Pages of file 0 or of one that was added.
    virtual unsigned long pagesOf(unsigned long file) const = 0;
};

/// Tells this file's own <TiffData> from those of others. Each file of a set carries the description of the whole set;
/// what it is itself is said by the root's UUID or, where there is none, by its name. Where all elements of the
/// description mean one and the same file, it is this one, even if it was renamed.
class OmeIdentity
{
public:
    OmeIdentity(pugi::xml_node ome, const PageFacts& facts);

    bool isOwn(pugi::xml_node tiffData) const;

private:
    std::string m_uuid;
    std::string m_name;
    bool m_bSeveral = false;
};

/// The number of the file that `tiffData` means. Throws as `OmeFiles::add` does; null `files` know file 0 alone.
unsigned long fileOf(pugi::xml_node tiffData, const OmeIdentity& identity, const PageFacts& facts, OmeFiles* files);

} // namespace orlix::image::io
