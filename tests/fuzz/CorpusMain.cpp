// Runs a fuzz target once for every input of a folder, without a fuzzer.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
extern "C" __attribute__((weak)) int LLVMFuzzerInitialize(int* argc, char*** argv);

namespace {

std::vector<std::filesystem::path> inputsOf(const std::filesystem::path& folder)
{
    std::vector<std::filesystem::path> inputs;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (entry.is_regular_file()) {
            inputs.push_back(entry.path());
        }
    }
    std::ranges::sort(inputs);
    return inputs;
}

void runOn(const std::filesystem::path& input)
{
    std::ifstream stream(input, std::ios::binary);
    const std::vector<char> content{std::istreambuf_iterator<char>(stream), {}};
    // A block of exactly its size, so that address checkers see a step beyond it.
    const auto exact = std::make_unique<std::uint8_t[]>(content.size());
    std::ranges::copy(content, exact.get());
    LLVMFuzzerTestOneInput(exact.get(), content.size());
}

} // namespace

int main(int argc, char** argv)
{
    if (LLVMFuzzerInitialize) {
        LLVMFuzzerInitialize(&argc, &argv);
    }
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s FOLDER\n", argv[0]);
        return 2;
    }
    try {
        const auto inputs = inputsOf(argv[1]);
        if (inputs.empty()) {
            std::fprintf(stderr, "%s: there are no inputs in it\n", argv[1]);
            return 1;
        }
        for (const auto& input : inputs) {
            std::printf("%s\n", input.filename().c_str()); // the last one that stands here is the one that crashed
            std::fflush(stdout);
            runOn(input);
        }
    } catch (const std::exception& exception) {
        std::fprintf(stderr, "%s: %s\n", argv[1], exception.what());
        return 1;
    }
    return 0;
}
