// The files that an image is spread over: the one that was asked for and those that lie beside it.
#pragma once

#include "ORLIXIPL/ORLIXImageIO/Metadata/OmeFiles.h"
#include "ORLIXIPL/ORLIXImageIO/Tiff/TiffFile.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace orlix::image::io {

/// Used by one thread. However many files there are, at most two are open at a time.
class TiffFileSet final : public OmeFiles
{
public:
    /// `source` becomes file 0. Throws as `TiffFile` does.
    TiffFileSet(ByteSource& source, unsigned long maxAllocation);

    unsigned long add(const std::string& name, const std::string& uuid) override;
    unsigned long pagesOf(unsigned long file) const override { return m_files[file].pages.size(); }

    unsigned long getNbFiles() const { return m_files.size(); }
    const TiffPage& getPage(const PagePlace& place) const { return m_files[place.file].pages[place.page]; }
    const std::string& getPathOf(unsigned long file) const { return m_files[file].path; } ///< as messages call it
    unsigned long getBytesOf(unsigned long file) const { return m_files[file].bytes; }

    TiffFile& first() { return m_first; }
    const TiffFile& first() const { return m_first; }
    /// The file, which stays open until another one behind the first is asked for. Throws ORLIXImageIOException where
    /// it is no longer what it was when it was added.
    TiffFile& open(unsigned long file);

private:
    struct Member
    {
        std::string name; ///< in the folder
        std::string path;
        std::string uuid; ///< that it says to have; may be empty
        unsigned long bytes;
        std::vector<TiffPage> pages;
    };

    TiffFile& openBeside(const std::string& name);
    [[noreturn]] void refuse(const std::string& name, const std::string& reason) const;

    unsigned long m_maxAllocation;
    TiffFile m_first;
    std::vector<Member> m_files;
    std::map<std::string, unsigned long> m_numbers; ///< of files, by name
    std::unique_ptr<ByteSource> m_besideSource;
    std::unique_ptr<TiffFile> m_beside; ///< over `m_besideSource`
    std::string m_besideName;
};

} // namespace orlix::image::io
