// Progress: on a terminal, and nowhere else.
#include "orlix/support/NoiseImages.h"
#include "orlix/support/Program.h"
#include "orlix/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace orlix::test {
namespace {

class ProgressTest : public ::testing::Test
{
protected:
    ProgressTest()
    {
        image::io::writeImage(m_folder / "in.tif",
                              makeNoise(*image::geometry3d(image::eImageBufferType::UInt8, 300, 200, 4)));
    }
    ProgramResult copy(Program::eStreams streams, const std::vector<std::string>& options = {})
    {
        std::vector<std::string> arguments{"copy", m_folder / "in.tif", m_folder / "out.tif"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return Program(arguments, streams).finish();
    }

    const TemporaryFolder m_folder;
};

TEST_F(ProgressTest, TerminalShowsEveryPhaseAndIsWiped)
{
    const ProgramResult result = copy(Program::eStreams::terminal);
    EXPECT_EQ(result.exitCode, 0);
    std::size_t place = 0;
    for (const char* phase : {"read [", "copy [", "write ["}) {
        place = result.out.find(phase, place);
        ASSERT_NE(place, std::string::npos) << phase << " in " << result.out;
    }
    EXPECT_NE(result.out.find("write [##############################] 100 %"), std::string::npos) << result.out;
    EXPECT_EQ(result.out.find('\n'), std::string::npos);
    const std::size_t last = result.out.rfind('\r', result.out.size() - 2);
    EXPECT_EQ(result.out.find_first_not_of(" \r", last), std::string::npos) << "something is left on the terminal";
}

TEST_F(ProgressTest, PipeShowsNothing)
{
    const ProgramResult result = copy(Program::eStreams::pipes);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out + result.err, "");
}

TEST_F(ProgressTest, QuietTerminalShowsNothing)
{
    const ProgramResult result = copy(Program::eStreams::terminal, {"--quiet"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out, "");
}

} // namespace
} // namespace orlix::test
