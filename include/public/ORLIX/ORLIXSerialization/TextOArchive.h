// An archive written as XML that people can read.
#pragma once

#include "ORLIX/ORLIXSerialization/BaseOArchive.h"
#include "ORLIX/ORLIXUtil/ProcessingResult.h"

#include <iosfwd>
#include <memory>

namespace orlix {

/// Numbers come back exactly, not-a-number and infinities included. The text carries a checksum over its entries, so
/// that damage is noticed, and doesn't depend on the program's locale.
class ORLIXSERIALIZATION_API TextOArchive final : public BaseOArchive
{
public:
    /// Saving fails above `maxBytes` of text.
    explicit TextOArchive(std::size_t maxBytes = g_maxArchiveBytes);
    ~TextOArchive() override;

    void openSection(const std::string& name) override;
    void closeSection() override;
    void leaveSection(bool bFailed) noexcept override;
    void writeValue(const std::string& name, const ArchiveValue& value) override;

    /// These three give what was written so far. They fail if a section is open or was interrupted by an exception, if
    /// the archive is larger than an archive may be, or if the target can't take it.
    ProcessingResult<bool> saveToString(std::string& text) const;
    ProcessingResult<bool> saveToStream(std::ostream& stream) const;
    /// The file is replaced as a whole: on failure it is what it was before.
    ProcessingResult<bool> saveToFile(const std::string& file) const;

private:
    class Writer;
    std::unique_ptr<Writer> m_writer;
};

} // namespace orlix
