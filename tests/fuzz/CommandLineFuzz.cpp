// Any words are arguments of the command: it does what they say or refuses in one line, and leaves with a code that it
// has promised. The words are the lines of the input. They see a folder of tiny files, as it is at first, and nothing
// else: a word can't leave it.
#include "CommandLine.h"

#include "ORLIX/ORLIXBaseProcessing/AlgorithmFunctionSelector.h"
#include "ORLIX/ORLIXCore/BaseExecutor.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImageIO/WriteImage.h"
#include "orlix/support/TemporaryFolder.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <map>
#include <sstream>

namespace orlix::fuzz {
namespace {

using image::eImageBufferType;
using test::TemporaryFolder;

constexpr std::size_t g_maxWords = 24;
constexpr std::size_t g_maxDigits = 3; // tiles and threads take as much memory as they are told

void require(bool bHolds)
{
    if (!bHolds) {
        std::abort();
    }
}

/// The folder that the command works in, brought back to its first state after each input.
class Playground
{
public:
    Playground()
    {
        std::filesystem::create_directory(m_folder / "folder");
        write("a.tif", *image::geometry2d(eImageBufferType::UInt8, 5, 4));
        write("b.tif", *image::geometry5d(eImageBufferType::UInt16, 5, 4, 2, 3, 2));
        write("r.tif", *image::geometry2d(eImageBufferType::Real32, 5, 4));
        write("i.tif", *image::geometry2d(eImageBufferType::Int32, 5, 4));
        write("m.png", *image::geometry2d(eImageBufferType::eBufferBinary, 5, 4));
        write("c.png", *image::geometry5d(eImageBufferType::UInt8, 5, 4, 1, 3, 1));
        test::writeText(m_folder / "bad.tif", std::string("II*\0no image", 12));
        for (const std::string& name : m_folder.getNames()) {
            m_contents[name] = test::contentOf(m_folder / name);
        }
    }

    const std::string& getPath() const { return m_path; }

    void restore() const
    {
        for (const std::string& name : m_folder.getNames()) {
            if (!m_contents.contains(name)) {
                require(!name.starts_with(".orlix-")); // a temporary file that nobody needs any more
                std::filesystem::remove_all(m_folder / name);
            }
        }
        for (const auto& [name, content] : m_contents) {
            if (name != "folder" && test::contentOf(m_folder / name) != content) {
                test::writeText(m_folder / name, content);
            }
        }
    }

private:
    void write(const std::string& name, const image::BaseImageGeometry& geometry) const
    {
        const ImagePtr image = image::createImage(geometry);
        const unsigned long rowBytes = geometry.getSizeX() * image::elementSize(geometry.getBufferType());
        for (unsigned long t = 0; t < geometry.getSizeT(); ++t) {
            for (unsigned long c = 0; c < geometry.getSizeC(); ++c) {
                for (unsigned long z = 0; z < geometry.getSizeZ(); ++z) {
                    for (unsigned long y = 0; y < geometry.getSizeY(); ++y) {
                        std::memset(image->accessRow(y, z, c, t), (y + z + c + t) % 2 == 0 ? 1 : 0, rowBytes);
                    }
                }
            }
        }
        image::io::writeImage(m_folder / name, image);
    }

    TemporaryFolder m_folder;
    std::string m_path = m_folder.getPath();
    std::map<std::string, std::string> m_contents;
};

/// The process works in another folder while the object lives.
class WorkingFolder
{
public:
    explicit WorkingFolder(const std::string& path) : m_before(std::filesystem::current_path())
    {
        std::filesystem::current_path(path);
    }
    ~WorkingFolder() { std::filesystem::current_path(m_before); }
    WorkingFolder(const WorkingFolder&) = delete;
    WorkingFolder& operator=(const WorkingFolder&) = delete;

private:
    std::filesystem::path m_before;
};

/// What goes to a stream while the object lives goes nowhere else.
class Caught
{
public:
    explicit Caught(std::ostream& stream) : m_stream(stream), m_before(stream.rdbuf(m_text.rdbuf())) {}
    ~Caught() { m_stream.rdbuf(m_before); }
    Caught(const Caught&) = delete;
    Caught& operator=(const Caught&) = delete;

    std::string getText() const { return m_text.str(); }

private:
    std::ostringstream m_text;
    std::ostream& m_stream;
    std::streambuf* m_before;
};

/// A word that names no file out of the folder, and no number of more than a few digits.
std::string tamed(const std::string& word)
{
    std::string out;
    std::size_t nbDigits = 0;
    for (const char c : word) {
        nbDigits = std::isdigit(static_cast<unsigned char>(c)) != 0 ? nbDigits + 1 : 0;
        if (c != '/' && c != '\0' && nbDigits <= g_maxDigits) {
            out += c;
        }
    }
    return out;
}

std::vector<std::string> wordsOf(const std::string& text)
{
    std::vector<std::string> words{"orlix"};
    std::istringstream lines(text);
    for (std::string line; words.size() <= g_maxWords && std::getline(lines, line);) {
        words.push_back(tamed(line));
    }
    return words;
}

void run(const std::vector<std::string>& words)
{
    std::vector<const char*> arguments;
    for (const std::string& word : words) {
        arguments.push_back(word.c_str());
    }
    Caught out(std::cout);
    Caught errors(std::cerr);
    const int code = cli::runCommandLine(static_cast<int>(arguments.size()), arguments.data());
    const std::string told = errors.getText();
    require(code == cli::eExitCode::eSuccess || code == cli::eExitCode::eDifferent || code == cli::eExitCode::eFailure);
    require((code == cli::eExitCode::eFailure) == !told.empty());
    require(told.empty() || (told.starts_with("orlix: ") && told.ends_with('\n')));
    const bool bInfo = std::ranges::find(words, "info") != words.end(); // one line per file
    require(told.empty() || bInfo || std::ranges::count(told, '\n') == 1);
}

} // namespace
} // namespace orlix::fuzz

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    using namespace orlix;
    static const fuzz::Playground g_playground;
    {
        const fuzz::WorkingFolder folder(g_playground.getPath());
        fuzz::run(fuzz::wordsOf(std::string(data, data + size)));
    }
    g_playground.restore();
    core::setNbThreads(0);
    processor::AlgorithmFunctionSelector::setDefaultForcedInstructionSets({});
    return 0;
}
