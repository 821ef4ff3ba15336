// Following the UUIDs and names of files in <TiffData>.
#include "ORLIXIPL/ORLIXImageIO/Metadata/OmeFiles.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImageIO/Logger/ORLIXImageIOLogMessages.h"
#include "ORLIXIPL/ORLIXImageIO/Metadata/XmlNames.h"

#include <boost/filesystem/path.hpp>

#include <set>
#include <utility>

namespace orlix::image::io {

namespace {

/// Both are empty where the element names no file.
struct ToldFile
{
    std::string uuid;
    std::string name;

    friend auto operator<=>(const ToldFile&, const ToldFile&) = default;
};

ToldFile toldFileOf(pugi::xml_node tiffData)
{
    const pugi::xml_node uuid = childNamed(tiffData, "UUID");
    return {uuid.text().get(), uuid.attribute("FileName").value()};
}

} // namespace

OmeIdentity::OmeIdentity(pugi::xml_node ome, const PageFacts& facts)
    : m_uuid(ome.attribute("UUID").value()), m_name(boost::filesystem::path(facts.file).filename().string())
{
    std::set<ToldFile> told;
    for (const pugi::xml_node image : ome.children()) {
        for (const pugi::xml_node element : childNamed(image, "Pixels").children()) {
            if (hasName(image, "Image") && hasName(element, "TiffData")) {
                told.insert(toldFileOf(element));
            }
        }
    }
    m_bSeveral = told.size() > 1;
}

bool OmeIdentity::isOwn(pugi::xml_node tiffData) const
{
    const ToldFile told = toldFileOf(tiffData);
    if (told == ToldFile()) {
        return true;
    }
    if (!m_uuid.empty() && !told.uuid.empty()) {
        return m_uuid == told.uuid;
    }
    return !m_bSeveral || told.name == m_name;
}

unsigned long fileOf(pugi::xml_node tiffData, const OmeIdentity& identity, const PageFacts& facts, OmeFiles* files)
{
    if (identity.isOwn(tiffData)) {
        return 0;
    }
    const ToldFile told = toldFileOf(tiffData);
    if (told.name.empty() || !files) {
        raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eOutsideFile, facts.file,
                                    told.name.empty() ? told.uuid : told.name,
                                    told.name.empty() ? "only its UUID is told" : "this file can be no part of a set");
    }
    return files->add(told.name, told.uuid);
}

} // namespace orlix::image::io
