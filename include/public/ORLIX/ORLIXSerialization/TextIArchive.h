// An archive read from XML that a TextOArchive has written.
#pragma once

#include "ORLIX/ORLIXSerialization/BaseIArchive.h"
#include "ORLIX/ORLIXUtil/ProcessingResult.h"

#include <iosfwd>
#include <memory>
#include <string_view>

namespace orlix {

/// Empty until something is loaded. The checksum may be left out of a text that is written by hand.
class ORLIXSERIALIZATION_API TextIArchive final : public BaseIArchive
{
public:
    /// Loading fails above `maxBytes` of text.
    explicit TextIArchive(std::size_t maxBytes = g_maxArchiveBytes);
    ~TextIArchive() override;

    /// These three replace what was loaded before and start reading at the first entry. They fail, with an empty
    /// archive, if the text is no archive, is damaged, too large, nested too deep, or of a newer format.
    ProcessingResult<bool> loadFromString(std::string_view text);
    ProcessingResult<bool> loadFromStream(std::istream& stream);
    ProcessingResult<bool> loadFromFile(const std::string& file);

    void openSection(const std::string& name) override;
    void closeSection() override;
    void leaveSection(bool bFailed) noexcept override;
    void readValue(const std::string& name, ArchiveValue& value) override;

    /// Raises ORLIXSerializationException unless everything was read.
    void checkEnd() const;

private:
    class Reader;
    std::size_t m_maxBytes;
    std::unique_ptr<Reader> m_reader;
};

} // namespace orlix
