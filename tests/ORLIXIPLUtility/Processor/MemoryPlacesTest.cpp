// Every operator, instruction set and type in the loops for each place of memory: stores past the caches, lines fetched
// ahead, plain ones; outputs that begin with a cache line and outputs that don't.
#include "ORLIX/ORLIXHardware/CacheInfo.h"
#include "ORLIXIPLUtility/Processor/BasicThresholdImg/ThresholdOracle.h"
#include "ORLIXIPLUtility/Processor/CompareImg/CompareOracle.h"
#include "ORLIXIPLUtility/Processor/ConvertImg/ConvertImgChecks.h"
#include "ORLIXIPLUtility/Processor/EraseImg/EraseOracle.h"
#include "support/Executors.h"
#include "support/PlacedImage.h"
#include "support/SameImages.h"

#include <optional>
#include <string>

namespace orlix::imaproc::util::test {
namespace {

using image::eImageBufferType;
using image::geometry2d;
using simd::eMemoryPlace;
using testing::placedIn;
using testing::WatchedImage;
using testing::WrapForm;

constexpr eInstructionSet::domain g_sets[] = {eInstructionSet::eNone, eInstructionSet::eSSE2, eInstructionSet::eAVX,
                                              eInstructionSet::eAVX2, eInstructionSet::eAVX512};
constexpr eMemoryPlace g_places[] = {eMemoryPlace::memory, eMemoryPlace::assistedMemory,
                                     eMemoryPlace::lastLevelCacheFilled, eMemoryPlace::assistedLastLevelCache,
                                     eMemoryPlace::secondLevelCache};
constexpr auto g_binary = eImageBufferType::eBufferBinary;

struct Size
{
    unsigned long x;
    unsigned long y;
};

/// What a wrapped block has to hold for a kernel to work in it directly is a whole number of 64 elements; other counts
/// go through a padded copy, where nothing is stored past the caches: see Output. Loops take up to 1024 elements a
/// turn, so there are turns, and rests of all kinds.
constexpr Size g_sizes[] = {{64, 1}, {192, 1}, {61, 64}, {129, 64}, {1, 1}, {1025, 1}, {61, 37}};

/// Calls `check(place, form, size)` for all combinations worth a run: every element of the first cache line as the
/// beginning of the largest whole blocks in memory, and a few for the rest. The memory ends, or begins, beside a
/// forbidden page.
template <class TCheck>
void forEachPlacement(const TCheck& check)
{
    for (const eMemoryPlace place : g_places) {
        for (const Size& size : g_sizes) {
            const bool bEveryOffset = place == eMemoryPlace::memory && size.x == 61 && size.y == 64;
            for (unsigned long offset = 0; offset < 64; offset += bEveryOffset || offset > 60 ? 1 : 31) {
                for (const testing::GuardEdge edge : {testing::GuardEdge::eEnd, testing::GuardEdge::eBegin}) {
                    SCOPED_TRACE(std::to_string(size.x) + "x" + std::to_string(size.y) + ", " + std::to_string(offset) +
                                 " elements behind a cache line, place " + std::to_string(static_cast<int>(place)));
                    check(place, WrapForm{edge, 0, 0, offset, false}, size);
                    if (::testing::Test::HasFatalFailure()) {
                        return;
                    }
                }
            }
        }
    }
}

/// An image in watched memory; where kernels would work in a padded copy of that, for one of the two edges an own image
/// that has the room.
class Output
{
public:
    Output(const image::BaseImageGeometry& geometry, const WrapForm& form)
    {
        const bool bWholeBlocks = geometry.getNbPixels() % 64 == 0;
        if (bWholeBlocks || form.misalignment != 0 || form.edge == testing::GuardEdge::eBegin) {
            m_watched.emplace(geometry, form);
        } else {
            m_own = testing::makeRandom(geometry, 99);
        }
    }
    const ImagePtr& get() const { return m_watched ? m_watched->get() : m_own; }
    bool isOutsideIntact() const { return !m_watched || m_watched->isOutsideIntact(); }

private:
    std::optional<WatchedImage> m_watched;
    ImagePtr m_own;
};

/// Calls `check()` under each instruction set of a class of kernels, or under that which the environment forces; where
/// a set has no kernel, a lower one runs.
template <class TAlgorithm, class TCheck>
void forEachSet(const TCheck& check)
{
    const std::optional<eInstructionSet> asked = testing::getForcedInstructionSet();
    for (const eInstructionSet::domain set : g_sets) {
        if (core::isAvailable(set) && (!asked || *asked == set)) {
            const testing::ForcedSet<TAlgorithm> forced(set);
            SCOPED_TRACE(core::getInstructionSetName(set));
            check();
        }
    }
}

/// As an input lies beside it: at another place within the cache line.
WrapForm shifted(WrapForm form)
{
    form.misalignment = (form.misalignment + 5) % 64;
    return form;
}

constexpr eImageBufferType::domain g_storages[] = {
    eImageBufferType::UInt8, eImageBufferType::Int16,  eImageBufferType::UInt16, eImageBufferType::Int32,
    eImageBufferType::Int8,  eImageBufferType::UInt32, eImageBufferType::Real32, eImageBufferType::eBufferBinary};

TEST(MemoryPlacesTest, copiesOfEverySetAndType)
{
    forEachSet<CopyImgLvl3>([] {
        for (const eImageBufferType type : g_storages) {
            forEachPlacement([&](eMemoryPlace place, const WrapForm& form, const Size& size) {
                const WatchedImage in(*geometry2d(type, size.x, size.y), shifted(form));
                testing::fillRandom(*in.get(), size.x);
                const Output out(*geometry2d(type, size.x, size.y), form);
                copyImg(in.get(), placedIn(place, *out.get()));
                ASSERT_TRUE(testing::sameImages(*in.get(), *out.get())) << image::getBufferTypeName(type);
                ASSERT_TRUE(in.isOutsideIntact() && out.isOutsideIntact()) << image::getBufferTypeName(type);
            });
        }
    });
}

TEST(MemoryPlacesTest, erasuresOfEverySetAndType)
{
    forEachSet<EraseImgLvl3>([] {
        for (const eImageBufferType type : g_storages) {
            forEachPlacement([&](eMemoryPlace place, const WrapForm& form, const Size& size) {
                const Output out(*geometry2d(type, size.x, size.y), form);
                eraseImg(placedIn(place, *out.get()), 77.25);
                ASSERT_TRUE(isErased(*out.get(), 77.25)) << image::getBufferTypeName(type);
                ASSERT_TRUE(out.isOutsideIntact()) << image::getBufferTypeName(type);
            });
        }
    });
}

TEST(MemoryPlacesTest, thresholdsOfEverySetAndType)
{
    forEachSet<BasicThresholdImgLvl3>([] {
        for (const eImageBufferType type : g_storages) {
            const Bounds bounds = middleOf(type);
            forEachPlacement([&](eMemoryPlace place, const WrapForm& form, const Size& size) {
                const WatchedImage in(*geometry2d(type, size.x, size.y), shifted(form));
                testing::fillRandom(*in.get(), size.x);
                const Output out(*geometry2d(g_binary, size.x, size.y), form);
                ASSERT_EQ(runThreshold(in.get(), bounds.low, bounds.high, placedIn(place, *out.get())), "");
                ASSERT_TRUE(isThreshold(*in.get(), bounds.low, bounds.high, *out.get()));
                ASSERT_TRUE(in.isOutsideIntact() && out.isOutsideIntact()) << image::getBufferTypeName(type);
            });
        }
    });
}

/// From one type to all, and from all to one: the loop depends on the sizes of both alone.
TEST(MemoryPlacesTest, conversionsOfEverySet)
{
    forEachSet<ConvertImgLvl3>([] {
        const auto check = [](eImageBufferType from, eImageBufferType to) {
            forEachPlacement([&](eMemoryPlace place, const WrapForm& form, const Size& size) {
                const WatchedImage in(*geometry2d(from, size.x, size.y), shifted(form));
                testing::fillRandom(*in.get(), size.x);
                const Output out(*geometry2d(to, size.x, size.y), form);
                convertImg(in.get(), placedIn(place, *out.get()));
                ASSERT_TRUE(testing::isConverted(*in.get(), *out.get()));
                ASSERT_TRUE(in.isOutsideIntact() && out.isOutsideIntact())
                    << image::getBufferTypeName(from) << " to " << image::getBufferTypeName(to);
            });
        };
        for (const eImageBufferType type :
             {eImageBufferType::UInt8, eImageBufferType::UInt16, eImageBufferType::Real32}) {
            check(eImageBufferType::Int16, type);
            check(eImageBufferType::Real32, type);
            check(type, eImageBufferType::eBufferBinary);
        }
    });
}

/// What a kernel writes first of an output may be what it has yet to read: lines of the output's own are cut out of the
/// middle of such images, and their ends are written apart.
TEST(MemoryPlacesTest, imagesOntoThemselvesBesideACacheLine)
{
    forEachSet<BasicThresholdImgLvl3>([] {
        forEachPlacement([&](eMemoryPlace place, const WrapForm& form, const Size& size) {
            const WatchedImage image(*geometry2d(g_binary, size.x, size.y), form);
            testing::fillRandom(*image.get(), size.x + size.y);
            const ImagePtr before = copyImg(image.get());
            const ImagePtr same = placedIn(place, *image.get());
            ASSERT_EQ(runThreshold(same, 0, 0, same), ""); // a second time over would turn every element back
            ASSERT_TRUE(isThreshold(*before, 0, 0, *image.get()));
            ASSERT_TRUE(image.isOutsideIntact());
        });
    });
}

/// Comparisons store nothing: what may go wrong is how far they read.
TEST(MemoryPlacesTest, comparisonsOfEverySetAndType)
{
    forEachSet<CompareImgLvl3>([] {
        for (const eImageBufferType type : g_storages) {
            forEachPlacement([&](eMemoryPlace place, const WrapForm& form, const Size& size) {
                const WatchedImage one(*geometry2d(type, size.x, size.y), form);
                const WatchedImage other(*geometry2d(type, size.x, size.y), shifted(form));
                testing::fillRandom(*one.get(), size.x);
                testing::fillRandom(*other.get(), size.x);
                other.get()->accessRow(size.y - 1, 0, 0, 0)[(size.x - 1) * image::elementSize(type)] ^= std::byte{2};
                ASSERT_TRUE(comparesAsExpected(placedIn(place, *one.get()), placedIn(place, *other.get()), {}))
                    << image::getBufferTypeName(type);
            });
        }
    });
}

/// Strips begin at whole blocks of 64 elements of their plan, wherever in a cache line that begins.
TEST(MemoryPlacesTest, manyStripsOfPlansBesideACacheLine)
{
    const testing::ScopedExecutor scope(core::makePlainThreadExecutor(4));
    for (const unsigned long offset : {0UL, 1UL, 7UL}) {
        const auto geometry = image::geometry5d(eImageBufferType::UInt16, 701, 497, 2, 1, 2);
        const auto binary = image::geometry5d(g_binary, 701, 497, 2, 1, 2);
        const WrapForm form = {testing::GuardEdge::eEnd, 0, 0, offset, false};
        const WatchedImage in(*geometry, form);
        testing::fillRandom(*in.get(), offset);
        const WatchedImage out(*geometry, form);
        const ImagePtr far = placedIn(eMemoryPlace::memory, *out.get());
        copyImg(in.get(), far);
        EXPECT_TRUE(testing::sameImages(*in.get(), *out.get()));
        EXPECT_TRUE(comparesAsExpected(in.get(), far, {}));
        eraseImg(far, 40000);
        EXPECT_TRUE(isErased(*out.get(), 40000));
        EXPECT_TRUE(out.isOutsideIntact());
        const WatchedImage mask(*binary, form);
        EXPECT_EQ(runThreshold(in.get(), 1000, 30000, placedIn(eMemoryPlace::memory, *mask.get())), "");
        EXPECT_TRUE(isThreshold(*in.get(), 1000, 30000, *mask.get()));
        convertImg(in.get(), placedIn(eMemoryPlace::memory, *mask.get()));
        EXPECT_TRUE(testing::isConverted(*in.get(), *mask.get()));
        EXPECT_TRUE(in.isOutsideIntact() && mask.isOutsideIntact());
    }
}

/// The sizes from which on stores go past the caches by themselves, as owned plans and as plans beside a cache line.
TEST(MemoryPlacesTest, halfOfTheLastLevelCache)
{
    constexpr unsigned long sizeX = 16381;
    const unsigned long sizeY = hard::getLastLevelCacheBytes() / 2 / sizeX + 2;
    const unsigned long nbPixels = sizeX * sizeY;
    const ImagePtr inMemory = image::createImage(*geometry2d(eImageBufferType::UInt8, nbPixels + 64, 1));
    const ImagePtr outMemory = image::createImage(inMemory->getGeometry());
    for (const unsigned long offset : {0UL, 5UL}) {
        const auto wrap = [&](const image::BaseImage& memory, eImageBufferType type) {
            return image::wrapImage(*geometry2d(type, sizeX, sizeY), memory.accessRow(0, 0, 0, 0) + offset,
                                    {sizeX, 0, 0, 0}, nullptr);
        };
        const ImagePtr in = wrap(*inMemory, eImageBufferType::UInt8);
        const ImagePtr out = wrap(*outMemory, eImageBufferType::UInt8);
        const ImagePtr mask = wrap(*outMemory, g_binary);
        ASSERT_EQ(levelOf(out->getPixelLayout().place), eMemoryPlace::lastLevelCacheFilled);
        unsigned char* const from = image::planData<unsigned char>(*in, 0, 0, 0);
        unsigned char* const to = image::planData<unsigned char>(*out, 0, 0, 0);
        for (unsigned long i = 0; i < nbPixels; ++i) {
            from[i] = static_cast<unsigned char>(i * 7 + i / 4096);
        }
        std::memset(to, 0x5C, nbPixels + 64 - offset);
        const auto nbWrong = [&](const auto& expected) {
            unsigned long nb = 0;
            for (unsigned long i = 0; i < nbPixels; ++i) {
                nb += to[i] == expected(from[i]) ? 0 : 1;
            }
            for (unsigned long i = nbPixels; i < nbPixels + 64 - offset; ++i) {
                nb += to[i] == 0x5C ? 0 : 1;
            }
            return nb;
        };
        copyImg(in, out);
        EXPECT_EQ(nbWrong([](unsigned char value) { return value; }), 0U);
        EXPECT_TRUE(compareImg(in, out)->identical);
        eraseImg(out, 3);
        EXPECT_EQ(nbWrong([](unsigned char) { return 3; }), 0U);
        EXPECT_EQ(runThreshold(in, 100, 155.5, mask), "");
        EXPECT_EQ(nbWrong([](unsigned char value) { return value >= 100 && value <= 155 ? 1 : 0; }), 0U);
        convertImg(in, mask);
        EXPECT_EQ(nbWrong([](unsigned char value) { return value == 0 ? 0 : 1; }), 0U);
    }
}

} // namespace
} // namespace orlix::imaproc::util::test
