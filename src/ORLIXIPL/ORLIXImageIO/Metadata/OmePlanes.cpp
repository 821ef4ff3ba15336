// Following <TiffData>.
#include "ORLIXIPL/ORLIXImageIO/Metadata/OmePlanes.h"

#include "ORLIX/ORLIXUtil/NumericLimits.h"
#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImageIO/Logger/ORLIXImageIOLogMessages.h"
#include "ORLIXIPL/ORLIXImageIO/Metadata/TextNumber.h"
#include "ORLIXIPL/ORLIXImageIO/Metadata/XmlNames.h"

#include <algorithm>
#include <cstring>

namespace orlix::image::io {

namespace {

constexpr unsigned long g_noPage = NumericLimits<unsigned long>::s_max;

// Plans in the order of the file's pages.
class PlaneTable
{
public:
    PlaneTable(const OmeAxes& axes, const PageFacts& facts)
        : m_axes(axes), m_facts(facts), m_pages(axes.sizeZ * axes.sizeC * axes.sizeT, g_noPage)
    {}

    unsigned long getSize() const { return m_pages.size(); }

    unsigned long indexOf(unsigned long z, unsigned long c, unsigned long t) const
    {
        unsigned long index = 0;
        for (std::size_t axis = 5; axis-- > 2;) {
            const char name = m_axes.order[axis];
            index = index * sizeOf(name) + (name == 'Z' ? z : name == 'C' ? c : t);
        }
        return index;
    }

    void set(unsigned long index, unsigned long page)
    {
        if (m_pages[index] != g_noPage) {
            refuseOme(m_facts, "two pages, " + std::to_string(m_pages[index]) + " and " + std::to_string(page) +
                                   ", are given for one plan");
        }
        m_pages[index] = page;
    }

    std::vector<PagePlace> toPlaces() const
    {
        std::vector<PagePlace> places;
        for (unsigned long index = 0; index < m_pages.size(); ++index) {
            unsigned long position[3] = {}, rest = index;
            for (std::size_t axis = 2; axis < 5; ++axis) {
                const char name = m_axes.order[axis];
                position[name == 'Z' ? 0 : name == 'C' ? 1 : 2] = rest % sizeOf(name);
                rest /= sizeOf(name);
            }
            const unsigned long channel = position[1] * m_facts.channels;
            if (m_pages[index] == g_noPage) {
                raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eMissingPlan, m_facts.file, position[0],
                                            channel, position[2]);
            }
            places.push_back({m_pages[index], position[0], channel, position[2]});
        }
        std::ranges::sort(places, {}, &PagePlace::page);
        return places;
    }

private:
    unsigned long sizeOf(char axis) const
    {
        return axis == 'Z' ? m_axes.sizeZ : axis == 'C' ? m_axes.sizeC : m_axes.sizeT;
    }

    const OmeAxes& m_axes;
    const PageFacts& m_facts;
    std::vector<unsigned long> m_pages;
};

// Each file of a set carries the whole set's description; its own identity is the root's UUID.
void checkFile(pugi::xml_node ome, pugi::xml_node tiffData, const PageFacts& facts)
{
    const char* const own = ome.attribute("UUID").value();
    const pugi::xml_node uuid = childNamed(tiffData, "UUID");
    if (uuid && *own != '\0' && std::strcmp(uuid.text().get(), own) != 0) {
        const char* const fileName = uuid.attribute("FileName").value();
        raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eOutsideFile, facts.file,
                                    *fileName != '\0' ? fileName : uuid.text().get());
    }
}

void placeRun(pugi::xml_node tiffData, const OmeAxes& axes, const PageFacts& facts, PlaneTable& table)
{
    const unsigned long page = numberAttribute(tiffData, "IFD", 0, facts);
    const bool bCountTold = tiffData.attribute("PlaneCount") || tiffData.attribute("IFD");
    unsigned long count = numberAttribute(tiffData, "PlaneCount", 1, facts);
    const unsigned long z = numberAttribute(tiffData, "FirstZ", 0, facts);
    const unsigned long c = numberAttribute(tiffData, "FirstC", 0, facts);
    const unsigned long t = numberAttribute(tiffData, "FirstT", 0, facts);
    if (z >= axes.sizeZ || c >= axes.sizeC || t >= axes.sizeT) {
        refuseOme(facts, "FirstZ, FirstC and FirstT (" + std::to_string(z) + ", " + std::to_string(c) + ", " +
                             std::to_string(t) + ") must be below SizeZ, SizeC and SizeT");
    }
    const unsigned long first = table.indexOf(z, c, t);
    if (!bCountTold) {
        count = std::min(facts.pages, table.getSize() - first);
    }
    if (page > facts.pages || count > facts.pages - page || count > table.getSize() - first) {
        refuseOme(facts, "pages " + std::to_string(page) + " and following, " + std::to_string(count) +
                             " in all, are told of, but the file has " + std::to_string(facts.pages) +
                             " pages and the image " + std::to_string(table.getSize()) + " plans");
    }
    for (unsigned long i = 0; i < count; ++i) {
        table.set(first + i, page + i);
    }
}

} // namespace

std::vector<PagePlace> placesOfPlanes(pugi::xml_node ome, pugi::xml_node pixels, const OmeAxes& axes,
                                      const PageFacts& facts)
{
    PlaneTable table(axes, facts);
    bool bTold = false;
    for (const pugi::xml_node child : pixels.children()) {
        if (hasName(child, "TiffData")) {
            checkFile(ome, child, facts);
            placeRun(child, axes, facts, table);
            bTold = true;
        }
    }
    for (unsigned long index = 0; !bTold && index < table.getSize(); ++index) {
        table.set(index, index);
    }
    return table.toPlaces();
}

unsigned long numberAttribute(pugi::xml_node element, const char* name, unsigned long fallback, const PageFacts& facts)
{
    const pugi::xml_attribute attribute = element.attribute(name);
    if (!attribute) {
        return fallback;
    }
    const auto number = numberFrom<unsigned long>(attribute.value());
    if (!number) {
        refuseOme(facts, std::string(name) + " must be a whole number, but is \"" + attribute.value() + "\"");
    }
    return *number;
}

void refuseOme(const PageFacts& facts, const std::string& reason)
{
    raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eBadDescription, facts.file, "OME-XML", reason);
}

} // namespace orlix::image::io
