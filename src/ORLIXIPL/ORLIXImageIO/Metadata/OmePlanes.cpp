// Following <TiffData>.
#include "ORLIXIPL/ORLIXImageIO/Metadata/OmePlanes.h"

#include "ORLIX/ORLIXUtil/NumericLimits.h"
#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImageIO/Logger/ORLIXImageIOLogMessages.h"
#include "ORLIXIPL/ORLIXImageIO/Metadata/TextNumber.h"
#include "ORLIXIPL/ORLIXImageIO/Metadata/XmlNames.h"

#include <algorithm>
#include <set>
#include <utility>

namespace orlix::image::io {

namespace {

constexpr unsigned long g_noPage = NumericLimits<unsigned long>::s_max;

// Plans in the order of the file's pages.
class PlaneTable
{
public:
    /// `pages` are those of all files.
    PlaneTable(const OmeAxes& axes, const PageFacts& facts, unsigned long pages) : m_axes(axes), m_facts(facts)
    {
        unsigned long plans = 0;
        if (__builtin_mul_overflow(axes.sizeZ, axes.sizeC, &plans) ||
            __builtin_mul_overflow(plans, axes.sizeT, &plans) || plans == 0 || plans > pages) {
            refuseOme(facts, "it tells of " + std::to_string(axes.sizeZ) + " plans, " +
                                 std::to_string(axes.sizeC * facts.samples) + " channels and " +
                                 std::to_string(axes.sizeT) + " time steps, but the file has " + std::to_string(pages) +
                                 " pages");
        }
        m_pages.resize(plans);
    }

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

    void set(unsigned long index, unsigned long file, unsigned long page)
    {
        if (m_pages[index].page != g_noPage) {
            refuseOme(m_facts, "two pages, " + std::to_string(m_pages[index].page) + " and " + std::to_string(page) +
                                   ", are given for one plan");
        }
        m_pages[index] = {file, page};
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
            if (m_pages[index].page == g_noPage) {
                raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eMissingPlan, m_facts.file, position[0],
                                            channel, position[2]);
            }
            places.push_back({m_pages[index].page, position[0], channel, position[2], m_pages[index].file});
        }
        std::ranges::sort(places, {}, [](const PagePlace& place) { return std::pair(place.file, place.page); });
        return places;
    }

private:
    struct FilePage
    {
        unsigned long file = 0;
        unsigned long page = g_noPage;
    };

    unsigned long sizeOf(char axis) const
    {
        return axis == 'Z' ? m_axes.sizeZ : axis == 'C' ? m_axes.sizeC : m_axes.sizeT;
    }

    const OmeAxes& m_axes;
    const PageFacts& m_facts;
    std::vector<FilePage> m_pages;
};

void placeRun(pugi::xml_node tiffData, unsigned long file, unsigned long pages, const OmeAxes& axes,
              const PageFacts& facts, PlaneTable& table)
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
        count = std::min(pages, table.getSize() - first);
    }
    if (page > pages || count > pages - page || count > table.getSize() - first) {
        refuseOme(facts, "pages " + std::to_string(page) + " and following, " + std::to_string(count) +
                             " in all, are told of, but the file has " + std::to_string(pages) +
                             " pages and the image " + std::to_string(table.getSize()) + " plans");
    }
    for (unsigned long i = 0; i < count; ++i) {
        table.set(first + i, file, page + i);
    }
}

} // namespace

std::vector<PagePlace> placesOfPlanes(pugi::xml_node pixels, const OmeAxes& axes, const OmeIdentity& identity,
                                      const PageFacts& facts, OmeFiles* files)
{
    std::vector<std::pair<pugi::xml_node, unsigned long>> elements; // and the file that each means
    std::set<unsigned long> used;
    unsigned long pages = 0; // of all files
    const auto pagesOf = [&](unsigned long file) { return file == 0 ? facts.pages : files->pagesOf(file); };
    for (const pugi::xml_node child : pixels.children()) {
        if (hasName(child, "TiffData")) {
            const unsigned long file = fileOf(child, identity, facts, files);
            elements.emplace_back(child, file);
            pages += used.insert(file).second ? pagesOf(file) : 0;
        }
    }
    PlaneTable table(axes, facts, elements.empty() ? facts.pages : pages);
    for (const auto& [element, file] : elements) {
        placeRun(element, file, pagesOf(file), axes, facts, table);
    }
    for (unsigned long index = 0; elements.empty() && index < table.getSize(); ++index) {
        table.set(index, 0, index);
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
