// Opening the files of a set.
#include "ORLIXIPL/ORLIXImageIO/Tiff/TiffFileSet.h"

#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXImageIO/Metadata/OmeMetadata.h"

namespace orlix::image::io {

namespace {

// Of either system that files come from: nothing that could lead out of the folder.
bool isPlainName(const std::string& name)
{
    return !name.empty() && name != "." && name != ".." && name.find_first_of("/\\") == name.npos;
}

} // namespace

TiffFileSet::TiffFileSet(ByteSource& source, unsigned long maxAllocation)
    : m_maxAllocation(maxAllocation),
      m_first(source, maxAllocation), m_files{{"", source.getName(), "", source.getSize(), m_first.getPages()}}
{}

unsigned long TiffFileSet::add(const std::string& name, const std::string& uuid)
{
    const auto [entry, bNew] = m_numbers.emplace(name, m_files.size());
    if (bNew) {
        if (!isPlainName(name)) {
            refuse(name, "it has to be the name of a file in the same folder");
        }
        const TiffFile& file = openBeside(name);
        m_files.push_back({name, file.getSource().getName(), uuidOfOme(file.getFacts().description),
                           file.getSource().getSize(), file.getPages()});
    }
    const std::string& found = m_files[entry->second].uuid;
    if (!uuid.empty() && !found.empty() && uuid != found) {
        refuse(name, "its UUID has to be " + uuid + ", but is " + found);
    }
    return entry->second;
}

TiffFile& TiffFileSet::open(unsigned long file)
{
    if (file == 0) {
        return m_first;
    }
    const Member& member = m_files[file];
    if (m_besideName == member.name) {
        return *m_beside;
    }
    TiffFile& opened = openBeside(member.name);
    if (opened.getPages() != member.pages) {
        opened.getTiff().messages().error = "it changed while it was read";
        opened.getTiff().raiseDamaged(0);
    }
    return opened;
}

TiffFile& TiffFileSet::openBeside(const std::string& name)
{
    m_besideName.clear();
    m_beside.reset(); // before its source
    m_besideSource = m_first.getSource().openBeside(name);
    if (!m_besideSource) {
        refuse(name, "there is no such file beside it");
    }
    m_beside = std::make_unique<TiffFile>(*m_besideSource, m_maxAllocation);
    m_besideName = name;
    return *m_beside;
}

void TiffFileSet::refuse(const std::string& name, const std::string& reason) const
{
    raise<eORLIXImageIOMessage>(ORLIX_HERE, eORLIXImageIOMessage::eOutsideFile, m_files.front().path, name, reason);
}

} // namespace orlix::image::io
