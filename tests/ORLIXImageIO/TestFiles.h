// Whole files in memory, and what reading them fails with.
#pragma once

#include "ORLIXIPL/ORLIXImageIO/ORLIXImageIO.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <span>
#include <string>

namespace orlix::image::io::test {

inline std::span<const std::byte> bytesOf(const std::string& data)
{
    return std::as_bytes(std::span(data.data(), data.size()));
}

inline std::string contentOf(const boost::filesystem::path& file)
{
    std::ifstream stream(file.string(), std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

inline void putContent(const boost::filesystem::path& file, const std::string& content)
{
    std::ofstream(file.string(), std::ios::binary) << content;
}

/// The message of the ORLIXImageIOException that `work` throws; fails the test and returns nothing where it throws
/// none.
template <class TWork>
std::string failureOf(TWork&& work)
{
    try {
        work();
    } catch (const ORLIXImageIOException& exception) {
        return exception.what();
    }
    ADD_FAILURE() << "no failure";
    return {};
}

inline ::testing::AssertionResult contains(const std::string& text, const std::string& part)
{
    return text.find(part) != text.npos ? ::testing::AssertionSuccess()
                                        : ::testing::AssertionFailure() << '"' << text << "\" lacks \"" << part << '"';
}

} // namespace orlix::image::io::test
