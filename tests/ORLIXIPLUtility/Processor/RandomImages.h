// What random images have to hold, plan by plan, from generators that are stepped through whole plans.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPLUtility/KernelChecks.h"
#include "ORLIXMath/Simd/RandomOracle.h"

namespace orlix::imaproc::util::test {

/// Does every plan of the image hold what `elementsOf.operator()<T>(set, states, nb)` makes of its states? `TLevel3` is
/// the class whose kernels made it.
template <class TLevel3, class TElementsOf>
::testing::AssertionResult isRandom(const image::BaseImage& image, const RandomRun& run, const TElementsOf& elementsOf)
{
    const unsigned long nb = image.getSizeX() * image.getSizeY();
    std::vector<std::byte> expected;
    for (unsigned long t = 0; t < image.getSizeT(); ++t) {
        const image::eImageBufferType type = image.getBufferType(t);
        const eInstructionSet set = testing::runningSet<TLevel3>(type);
        for (unsigned long c = 0; c < image.getSizeC(); ++c) {
            for (unsigned long z = 0; z < image.getSizeZ(); ++z) {
                std::vector<unsigned> states(16);
                fillRandomStates(run.atPlan(z, c, t), 0, 1, 0, 16, states.data());
                image::visitStorageType(type, [&]<class T>() {
                    const std::vector<T> elements = elementsOf.template operator()<T>(set, states, nb);
                    const auto* const first = reinterpret_cast<const std::byte*>(elements.data());
                    expected.insert(expected.end(), first, first + nb * sizeof(T));
                });
            }
        }
    }
    const std::vector<std::byte> found = testing::bytesOf(image);
    const auto place = std::mismatch(expected.begin(), expected.end(), found.begin(), found.end()).first;
    if (place == expected.end() && found.size() == expected.size()) {
        return ::testing::AssertionSuccess();
    }
    return ::testing::AssertionFailure() << image.getGeometry().toString() << ": byte " << place - expected.begin();
}

/// The run that the checks of all operators are made with.
inline RandomRun runOfChecks()
{
    RandomRun run;
    run.bSeeded = true;
    run.seed = 0x5EED;
    run.number = 3;
    return run;
}

/// Every test of a suite, as the thread that runs it starts it, makes its random images of one run.
class RunOfSuite : public ::testing::EmptyTestEventListener
{
public:
    explicit RunOfSuite(const std::string& suite) : m_suite(suite) {}

    void OnTestStart(const ::testing::TestInfo& info) override
    {
        if (info.test_suite_name() == m_suite) {
            m_scope.emplace(runOfChecks());
        }
    }
    void OnTestEnd(const ::testing::TestInfo&) override { m_scope.reset(); }

private:
    std::string m_suite;
    std::optional<RandomRunScope> m_scope;
};

/// FNV-1a, of 64 bits.
inline unsigned long hashOf(const image::BaseImage& image)
{
    unsigned long hash = 0xCBF29CE484222325UL;
    for (const std::byte byte : testing::bytesOf(image)) {
        hash = (hash ^ static_cast<unsigned long>(byte)) * 0x100000001B3UL;
    }
    return hash;
}

} // namespace orlix::imaproc::util::test
