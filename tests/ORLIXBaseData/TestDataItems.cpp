// Data items of the tests' own, in and out of archives.
#include "ORLIXBaseData/TestDataItems.h"

#include "ORLIX/ORLIXSerialization/TextIArchive.h"
#include "ORLIX/ORLIXSerialization/TextOArchive.h"

#include <gtest/gtest.h>

namespace orlix::test {

std::string archiveOf(const BaseDataItem& item)
{
    TextOArchive output;
    EXPECT_TRUE(item.write(output));
    std::string text;
    EXPECT_TRUE(output.saveToString(text));
    return text;
}

ProcessingResult<bool> readFrom(const std::string& archive, BaseDataItem& target)
{
    TextIArchive input;
    const auto loaded = input.loadFromString(archive);
    EXPECT_TRUE(loaded) << loaded.getMessage();
    auto result = target.read(input);
    if (result) {
        input.checkEnd();
    }
    return result;
}

} // namespace orlix::test
