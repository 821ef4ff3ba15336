// Tiles in groups: every tile once, in the order of its coordinates.
#include "ORLIXIPL/ORLIXImageProcessing/Split/InputImageTileCollSplit.h"

#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXImageProcessing/StorageRecorder.h"
#include "support/Executors.h"

#include <gtest/gtest.h>

#include <map>

namespace orlix::imaproc::test {
namespace {

using image::createImage;
using image::eImageBufferType;
using image::geometry2d;
using image::geometry3d;
using image::Tile2dCoords;
using image::Tile3dCoords;
using orlix::testing::makeAllExecutors;
using orlix::testing::NamedExecutor;

constexpr unsigned long g_unlimited = ~0UL;

/// Files, by the index of a tile as its first pixel tells it, the number of tiles of its group.
class TileProcessor final
    : public processor::Scaffold<TileProcessor, processor::BaseSyncProcessor, PictureLibrary, InTiles>
{
public:
    static constexpr processor::ProcessorText g_text{"TileProcessor", 0};

    processor::RulePtr createRule() const { return processor::none(); }
    void initOutputInitializers(processor::OutputInitializerMap&) const {}

    static std::map<unsigned long, unsigned long> takeSeen()
    {
        const std::lock_guard<std::mutex> lock(mutex());
        return std::exchange(seen(), {});
    }

protected:
    ProcessingResult<bool> mainProcess() override
    {
        const InTiles& tiles = *accessAttribute<InTiles>();
        unsigned long next = 0;
        for (unsigned int i = 0; i < tiles.getNbTiles(); ++i) {
            const image::InputImageTile2d& tile = tiles.getImageTile2d(i);
            const unsigned long index = *static_cast<const unsigned short*>(tile.accessBuffer(0));
            if (i > 0 && index != next) {
                return ProcessingResult<bool>::failure("the tiles of a group follow one another");
            }
            next = index + 1;
            const std::lock_guard<std::mutex> lock(mutex());
            if (!seen().emplace(index, tiles.getNbTiles()).second) {
                return ProcessingResult<bool>::failure("a tile came twice");
            }
        }
        return true;
    }

private:
    static std::mutex& mutex()
    {
        static std::mutex g_mutex;
        return g_mutex;
    }
    static std::map<unsigned long, unsigned long>& seen()
    {
        static std::map<unsigned long, unsigned long> g_seen;
        return g_seen;
    }
};

using TileSplit = InputImageTile2dCollSplit<TileProcessor, InTiles>;
using TileWay = DynamicDispatch<TileProcessor, TileSplit>;
using Boxes = StorageRecorder<InBoxes>;
using BoxSplit = InputImageTile3dCollSplit<Boxes, InBoxes>;

/// A plan whose pixel i holds i.
ImageConstPtr numbered(unsigned long sizeX, unsigned long sizeY)
{
    const ImagePtr image = createImage(*geometry2d(eImageBufferType::UInt16, sizeX, sizeY));
    auto* const pixels = image::planData<unsigned short>(*image, 0, 0, 0);
    for (unsigned long i = 0; i < sizeX * sizeY; ++i) {
        pixels[i] = static_cast<unsigned short>(i);
    }
    return image;
}

/// A tile for each pixel, in their order.
std::vector<Tile2dCoords> tileAtEachPixel(unsigned long sizeX, unsigned long sizeY)
{
    std::vector<Tile2dCoords> coords;
    for (unsigned long i = 0; i < sizeX * sizeY; ++i) {
        coords.push_back({i % sizeX, i / sizeX, 2, 2});
    }
    return coords;
}

/// By tile, the number of tiles in its group.
std::map<unsigned long, unsigned long> groupsOf(core::BaseExecutor& executor, unsigned long group,
                                                unsigned long maxGroup, unsigned long stripBytes)
{
    const ImageConstPtr image = numbered(40, 25);
    const std::vector<Tile2dCoords> coords = tileAtEachPixel(40, 25);
    TileWay way;
    way.accessDispatcher().setDispatchPolicy(policyOf(stripBytes));
    boost::shared_ptr<core::BaseActionProvider> provider;
    const processor::ProviderResult result = way.dispatch(
        core::BasePriority(), provider, tilesByGroup(image, coords, image::mirorBorder2d(), group, maxGroup));
    EXPECT_EQ(result.status, processor::eProviderStatus::eProviderReady) << std::string(result.message);
    EXPECT_EQ(failureOf(core::runOn(executor, *provider)), "no failure");
    return TileProcessor::takeSeen();
}

TEST(InputImageTileCollSplit, EveryTileOnceOnEveryExecutor)
{
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        const std::map<unsigned long, unsigned long> groups = groupsOf(*each.executor, 1, 30, 1UL << 20);
        EXPECT_EQ(groups.size(), 1000u);
        for (const auto& [tile, size] : groups) {
            EXPECT_EQ(size, tile < 990 ? 30u : 10u) << tile;
        }
    }
}

TEST(InputImageTileCollSplit, GroupsAreWholeMultiplesWithinTheirLimit)
{
    core::BaseExecutor& executor = core::accessExecutor();
    EXPECT_EQ(groupsOf(executor, 1, g_unlimited, 1UL << 30)[0], 1000u);
    EXPECT_EQ(groupsOf(executor, 1, 1, 1UL << 30)[0], 1u);
    EXPECT_EQ(groupsOf(executor, 16, 50, 1UL << 30)[0], 48u);
    EXPECT_EQ(groupsOf(executor, 16, g_unlimited, 1)[0], 16u);
    EXPECT_EQ(groupsOf(executor, 16, 5, 1UL << 30)[0], 16u) << "a group is never less than one multiple";
    EXPECT_EQ(groupsOf(executor, 0, 0, 1UL << 30)[0], 1u);
}

TEST(InputImageTileCollSplit, UsesThePolicyThatItWasGiven)
{
    const ImageConstPtr image = numbered(5, 4);
    const std::vector<Tile2dCoords> coords = {{~0UL, 0, 1, 1}};
    const auto firstPixel = [&](TileSplit& split) {
        const auto lower = makeInitialised<TileProcessor>();
        EXPECT_EQ(failureOf(split.processAttribute(*lower, 0, 1, core::BaseRequestOrigin(0))), "no failure");
        EXPECT_EQ(failureOf(lower->run(core::eSynchroType::eSynchroSync)), "no failure");
        return TileProcessor::takeSeen().begin()->first;
    };
    TileSplit split;
    EXPECT_EQ(failureOf(split.initBase(image, coords, 1, g_unlimited)), "no failure");
    EXPECT_EQ(firstPixel(split), 0u) << "the mirror at first";
    const image::BorderFunction third = [](unsigned long, unsigned long) { return 3UL; };
    split.setBorderPolicy({third, third});
    EXPECT_EQ(failureOf(split.initBase(image, coords, 1, g_unlimited)), "no failure");
    EXPECT_EQ(firstPixel(split), 18u);
}

TEST(InputImageTileCollSplit, WithoutTilesOrPixelsThereIsNoGroup)
{
    const std::vector<Tile2dCoords> none;
    const std::vector<Tile2dCoords> some = {{0, 0, 1, 1}, {1, 1, 1, 1}};
    const ImageConstPtr image = numbered(5, 4);
    const ImageConstPtr empty = numbered(0, 4);
    for (const auto& [from, coords] : {std::pair{image, none}, std::pair{empty, some}, std::pair{empty, none}}) {
        TileWay way;
        boost::shared_ptr<core::BaseActionProvider> provider;
        const auto source = tilesByGroup(from, coords, image::mirorBorder2d(), 1, g_unlimited);
        ASSERT_EQ(way.dispatch(core::BasePriority(), provider, source).status,
                  processor::eProviderStatus::eProviderReady);
        EXPECT_EQ(provider->getNbElements(), 0u);
    }
}

TEST(InputImageTileCollSplit, RefusesWhatItCannotCut)
{
    TileSplit tiles;
    BoxSplit boxes;
    const std::vector<Tile2dCoords> coords2d(3);
    const std::vector<Tile3dCoords> coords3d(3);
    const ImageConstPtr nothing;
    EXPECT_EQ(failureOf(tiles.initBase(nothing, coords2d, 1, 1)),
              "There is no image to cut: set the attribute that holds it");
    EXPECT_EQ(failureOf(boxes.initBase(nothing, coords3d, 1, 1)),
              "There is no image to cut: set the attribute that holds it");
    const ImageConstPtr volume = createImage(*geometry3d(eImageBufferType::UInt8, 3, 2, 2));
    EXPECT_EQ(failureOf(tiles.initBase(volume, coords2d, 1, 1)),
              "Strips are cut from one plan, but the image is 3x2x2x1x1 UInt8: cut it into plans first");
    EXPECT_EQ(failureOf(boxes.initBase(volume, coords3d, 1, 1)), "no failure");
    const auto lower = makeInitialised<Boxes>();
    EXPECT_EQ(failureOf(boxes.processAttribute(*lower, 2, 2, core::BaseRequestOrigin(0))),
              "There is no range of 2 from 2 on in 3: ask for one within them");
    EXPECT_EQ(failureOf(boxes.processAttribute(*lower, 2, ~0UL, core::BaseRequestOrigin(0))),
              "There is no range of 18446744073709551615 from 2 on in 3: ask for one within them");
    const ImageConstPtr channels = createImage(*image::geometry5d(eImageBufferType::UInt8, 3, 2, 2, 2, 1));
    EXPECT_EQ(
        failureOf(boxes.initBase(channels, coords3d, 1, 1)),
        "A volume has one channel and one time step, but the image is 3x2x2x2x1 UInt8: cut it into volumes first");
}

TEST(InputImageTileCollSplit, TilesOfVolumesComeTheSameWay)
{
    const ImageConstPtr image = createImage(*geometry3d(eImageBufferType::UInt8, 5, 4, 3));
    const std::vector<Tile3dCoords> coords = {{1, 2, 0, 2, 2, 2}, {0, 0, 2, 5, 1, 1}, {3, 3, 1, 1, 1, 1}};
    BoxSplit split;
    EXPECT_EQ(failureOf(tilesByGroup(image, coords, image::mirorBorder3d(), 1, g_unlimited).init(split)), "no failure");
    const auto lower = makeInitialised<Boxes>();
    EXPECT_EQ(failureOf(split.processAttribute(*lower, 1, 2, core::BaseRequestOrigin(0))), "no failure");
    EXPECT_EQ(failureOf(lower->run(core::eSynchroType::eSynchroSync)), "no failure");
    const std::vector<Boxes::Seen> seen = Boxes::takeSeen();
    ASSERT_EQ(seen.size(), 1u);
    image::InputImageTile3dColl& coll = *std::get<0>(seen.front());
    EXPECT_EQ(coll.getNbTiles(), 2u);
    EXPECT_EQ(coll.getTile(0).accessBuffer(0, 0), image->accessRow(0, 2, 0, 0));
    EXPECT_EQ(coll.getTile(1).accessBuffer(0, 0), image->accessRow(3, 1, 0, 0) + 3);
}

TEST(InputImageTileCollSplit, FeedsItsAttributeOfItsClass)
{
    const ImageConstPtr image = numbered(5, 4);
    const std::vector<Tile2dCoords> coords = tileAtEachPixel(5, 4);
    TileSplit split;
    EXPECT_EQ(failureOf(split.initBase(image, coords, 1, g_unlimited)), "no failure");
    EXPECT_EQ(split.getAttributeName(), "InTiles");
    EXPECT_EQ(split.getAttributeToolTip(), "Tiles of a plan");
    EXPECT_EQ(split.getSplitDynamicType(), processor::eSplitDynamicType::eImageTileCollSplit);
    EXPECT_TRUE(split.isDataLocalized());
    EXPECT_TRUE(split.checkProcessorType(TileProcessor()));
    EXPECT_FALSE(split.checkProcessorType(Boxes()));
    EXPECT_EQ(split.getRangeDemand().nbLines, 20u);
    split.clear();
    EXPECT_EQ(image.use_count(), 1) << "nothing of a run is kept";
}

} // namespace
} // namespace orlix::imaproc::test
