// How the operators on regions run, and what they refuse before a pixel is written.
#include "ORLIXIPLUtility/Processor/Region/RegionTest.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"
#include "support/SameImages.h"

namespace orlix::imaproc::util {
namespace {

using image::createImage;
using image::eImageBufferType;
using image::geometry2d;
using image::geometry3d;
using testing::bytesOf;
using testing::makeInitialised;
using testing::makeRandom;
using testing::messageOf;
using testing::plainCopy;
using testing::sameImages;

constexpr auto g_sync = core::eSynchroType::eSynchroSync;
constexpr unsigned long g_most = ~0UL;

/// Calls on images of 50x40x6 and, where they would need the tower, of 900x800x3: rules speak alike.
class RefusingTest : public RegionTest
{
protected:
    ImagePtr m_in = makeRandom(geometry(eImageBufferType::UInt8, 50, 40, 6, 2));
    std::string m_name = GetParam() ? "InImg3d" : "InImg";

    /// The failure, of which nothing may be written.
    std::string getFailure(const ImageConstPtr& in, const Region& region, const ImagePtr& out)
    {
        const ImagePtr before = out ? plainCopy(*out) : ImagePtr();
        std::string text = messageOf([&] { m_op.getInto(in, region, out); });
        EXPECT_TRUE(!out || sameImages(*before, *out));
        EXPECT_TRUE(!out || !out->hasGeometricCalibration());
        return text;
    }
    std::string putFailure(const ImageConstPtr& in, const ImageConstPtr& roi, const Region& at, const ImagePtr& out)
    {
        const ImagePtr before = out ? plainCopy(*out) : ImagePtr();
        std::string text = messageOf([&] { m_op.putInto(in, roi, at, out); });
        EXPECT_TRUE(!out || sameImages(*before, *out));
        return text;
    }
    Region region(unsigned long x, unsigned long y, unsigned long sizeX, unsigned long sizeY) const
    {
        return over(*m_in, {x, y, 0, sizeX, sizeY, 6});
    }
    ImagePtr roiFor(const Region& region, unsigned long seed = 3) const
    {
        return makeRandom(roiGeometry(*m_in, region), seed);
    }
    std::string sizes(const std::string& plan, const std::string& depth) const
    {
        return GetParam() ? plan + depth : plan;
    }
};

INSTANTIATE_TEST_SUITE_P(Region, RefusingTest, ::testing::Values(false, true),
                         [](const auto& info) { return info.param ? "Of3Dimensions" : "Of2Dimensions"; });

TEST_P(RefusingTest, regionsThatEndOutside)
{
    const std::string whole = m_name + " is " + sizes("50x40", "x6") + ", the region ";
    Region each = region(41, 0, 10, 10);
    const std::string outsideX = whole + sizes("10x10", "x6") + " at (" + sizes("41, 0", ", 0") + ") ends at x = 51";
    EXPECT_EQ(getFailure(m_in, each, roiFor(each)), outsideX);
    EXPECT_EQ(messageOf([&] { m_op.get(m_in, each); }), outsideX);
    EXPECT_EQ(putFailure(m_in, roiFor(each), each, makeRandom(m_in->getGeometry(), 9)), outsideX);
    const ImagePtr before = plainCopy(*m_in);
    EXPECT_EQ(messageOf([&] { m_op.put(m_in, roiFor(each), each); }), outsideX);
    EXPECT_TRUE(sameImages(*before, *m_in));

    each = region(0, 1, 50, 40);
    EXPECT_EQ(getFailure(m_in, each, roiFor(each)),
              whole + sizes("50x40", "x6") + " at (" + sizes("0, 1", ", 0") + ") ends at y = 41");
    each = region(40, 30, 10, 10);
    const ImagePtr flush = createImage(roiGeometry(*m_in, each));
    m_op.getInto(m_in, each, flush);
    EXPECT_EQ(bytesOf(*flush), regionBytes(*m_in, each)) << "with both edges";
}

TEST_P(RefusingTest, endsThatComeRound)
{
    const std::string ends = "ends at x = 18446744073709551617";
    const Region each = region(g_most, 0, 2, 3);
    EXPECT_NE(getFailure(m_in, each, roiFor(each)).find(ends), std::string::npos);
    EXPECT_NE(messageOf([&] { m_op.get(m_in, each); }).find(ends), std::string::npos);
    EXPECT_NE(putFailure(m_in, roiFor(each), each, makeRandom(m_in->getGeometry(), 9)).find(ends), std::string::npos);
    const ImagePtr before = plainCopy(*m_in);
    EXPECT_NE(messageOf([&] { m_op.put(m_in, roiFor(each), each); }).find(ends), std::string::npos);
    EXPECT_TRUE(sameImages(*before, *m_in));
    const Region down = region(0, g_most - 1, 3, 3);
    EXPECT_NE(getFailure(m_in, down, roiFor(down)).find("ends at y = 18446744073709551617"), std::string::npos);
    // A plan that a call does at once is refused in the same words.
    const ImagePtr plan = makeRandom(*geometry2d(eImageBufferType::UInt8, 50, 40));
    if (!GetParam()) {
        EXPECT_NE(messageOf([&] { getROI2dImg(plan, g_most, 0, 2, 3); }).find(ends), std::string::npos);
        EXPECT_NE(messageOf([&] { putROI2dImg(plan, getROI2dImg(plan, 0, 0, 2, 3), g_most, 0); }).find(ends),
                  std::string::npos);
    }
    EXPECT_NE(messageOf([&] { m_op.get(m_in, region(0, 0, g_most, g_most)); }), "no exception") << "no such memory";
}

TEST_P(RefusingTest, otherTypesAndSizes)
{
    const Region each = region(5, 5, 10, 10);
    image::BaseImageGeometry other = geometry(eImageBufferType::Int8, 10, 10, 6, 2);
    EXPECT_EQ(getFailure(m_in, each, makeRandom(other)), "OutImg is 10x10x6x2x1 Int8, " + m_name +
                                                             " is 50x40x6x2x1 UInt8: element types have to be the "
                                                             "same");
    EXPECT_NE(putFailure(m_in, makeRandom(other), each, makeRandom(m_in->getGeometry(), 9)), "no exception");
    const Region larger = region(5, 5, 10, 11);
    EXPECT_EQ(getFailure(m_in, each, roiFor(larger)),
              "OutImg is 10x11x6x2x1 UInt8, but needs 10 along y where it has 11");
    other = geometry(eImageBufferType::UInt8, 10, 10, 6, 1);
    EXPECT_NE(getFailure(m_in, each, makeRandom(other)), "no exception") << "channels";
    EXPECT_NE(putFailure(m_in, makeRandom(other), each, makeRandom(m_in->getGeometry(), 9)), "no exception");
    other = geometry(eImageBufferType::UInt8, 10, 10, 6, 2, 3);
    EXPECT_NE(getFailure(m_in, each, makeRandom(other)), "no exception") << "time steps";
    EXPECT_NE(putFailure(m_in, makeRandom(other), each, makeRandom(m_in->getGeometry(), 9)), "no exception");
    other = geometry(eImageBufferType::UInt8, 10, 10, 5, 2);
    EXPECT_NE(getFailure(m_in, each, makeRandom(other)), "no exception") << "plans";
    if (!GetParam()) { // in 3d a volume of fewer plans is a region like others
        EXPECT_NE(putFailure(m_in, makeRandom(other), each, makeRandom(m_in->getGeometry(), 9)), "no exception");
    }
    EXPECT_NE(putFailure(m_in, roiFor(each), each, makeRandom(geometry(eImageBufferType::UInt8, 50, 41, 6, 2))),
              "no exception");
    EXPECT_NE(putFailure(m_in, roiFor(each), each, makeRandom(geometry(eImageBufferType::Int8, 50, 40, 6, 2))),
              "no exception");
}

TEST_P(RefusingTest, theInputAsOutput)
{
    const Region all = region(0, 0, 50, 40);
    const ImagePtr before = plainCopy(*m_in);
    EXPECT_EQ(messageOf([&] { m_op.getInto(m_in, all, m_in); }),
              m_name + " and OutImg must not hold the same image: give two");
    EXPECT_TRUE(sameImages(*before, *m_in));
}

TEST_P(RefusingTest, nullImages)
{
    const Region each = region(5, 5, 10, 10);
    const ImagePtr roi = roiFor(each);
    EXPECT_NE(messageOf([&] { m_op.get(ImagePtr(), each); }).find("holds a null pointer"), std::string::npos);
    EXPECT_NE(messageOf([&] { m_op.getInto(ImagePtr(), each, roi); }).find("holds a null pointer"), std::string::npos);
    EXPECT_NE(messageOf([&] { m_op.getInto(m_in, each, ImagePtr()); }).find("holds a null pointer"), std::string::npos);
    EXPECT_NE(messageOf([&] { m_op.put(ImagePtr(), roi, each); }).find("holds a null pointer"), std::string::npos);
    EXPECT_NE(messageOf([&] { m_op.put(m_in, ImagePtr(), each); }).find("holds a null pointer"), std::string::npos);
    EXPECT_NE(messageOf([&] { m_op.putInto(m_in, roi, each, ImagePtr()); }).find("holds a null pointer"),
              std::string::npos);
}

TEST(RegionsOfPlans, AreNoneInThreeDimensions)
{
    const ImagePtr plan = makeRandom(*geometry2d(eImageBufferType::UInt8, 50, 40));
    EXPECT_EQ(messageOf([&] { getROI3dImg(plan, 1, 2, 0, 10, 10, 1); }),
              "InImg3d is 50x40, a single plan: the region 10x10x1 at (1, 2, 0) needs a volume");
    const ImagePtr volume = makeRandom(*geometry3d(eImageBufferType::UInt8, 50, 40, 1));
    const ImagePtr roi = getROI3dImg(volume, 1, 2, 0, 10, 10, 1);
    EXPECT_EQ(bytesOf(*roi), regionBytes(*volume, {1, 2, 0, 10, 10, 1}));
    const ImagePtr flat = createImage(*geometry2d(eImageBufferType::UInt8, 10, 10));
    EXPECT_EQ(messageOf([&] { getROI3dImg(volume, 1, 2, 0, 10, 10, 1, flat); }),
              "OutImg is 10x10x1x1x1 UInt8, but needs a volume of 1 along z where it has a single plan");
}

template <class TStart>
void expectOutputOf(const TStart& running, const std::vector<std::byte>& expected)
{
    EXPECT_TRUE(running->wait());
    EXPECT_EQ(bytesOf(*getAsyncProcessorOutput(running)), expected);
}

TEST(RegionsAsynchronously, GiveTheirOutput)
{
    const ImagePtr in = makeRandom(*geometry3d(eImageBufferType::UInt16, 60, 50, 7));
    const Region flat{3, 4, 0, 20, 10, 7};
    const Region deep{3, 4, 2, 20, 10, 3};
    expectOutputOf(getROI2dImg_async(in, 3, 4, 20, 10), regionBytes(*in, flat));
    expectOutputOf(getROI3dImg_async(in, 3, 4, 2, 20, 10, 3), regionBytes(*in, deep));
    const ImagePtr out2d = createImage(*geometry3d(eImageBufferType::UInt16, 20, 10, 7));
    const ImagePtr out3d = createImage(*geometry3d(eImageBufferType::UInt16, 20, 10, 3));
    const auto given = getROI2dImg_async(in, 3, 4, 20, 10, out2d);
    expectOutputOf(given, regionBytes(*in, flat));
    EXPECT_EQ(getAsyncProcessorOutput(given), out2d);
    expectOutputOf(getROI3dImg_async(in, 3, 4, 2, 20, 10, 3, out3d), regionBytes(*in, deep));
    EXPECT_EQ(bytesOf(*out3d), regionBytes(*in, deep));

    testing::fillRandom(*out2d, 5);
    testing::fillRandom(*out3d, 6);
    const ImagePtr whole = createImage(in->getGeometry());
    expectOutputOf(putROI2dImg_async(in, out2d, 3, 4, whole), bytesOf(*withRegion(*in, *out2d, flat)));
    expectOutputOf(putROI3dImg_async(in, out3d, 3, 4, 2, whole), bytesOf(*withRegion(*in, *out3d, deep)));
    std::vector<std::byte> expected = bytesOf(*withRegion(*in, *out2d, flat));
    expectOutputOf(putROI2dImg_async(in, out2d, 3, 4), expected);
    expected = bytesOf(*withRegion(*in, *out3d, deep));
    expectOutputOf(putROI3dImg_async(in, out3d, 3, 4, 2), expected);
    EXPECT_EQ(bytesOf(*in), expected);

    const auto failed = getROI2dImg_async(in, 60, 0, 1, 1);
    EXPECT_EQ(failed->wait().getMessage(), "InImg is 60x50, the region 1x1 at (60, 0) ends at x = 61");
    EXPECT_EQ(getAsyncProcessorOutput(failed), nullptr);
    EXPECT_NE(messageOf([] { getAsyncProcessorOutput(boost::shared_ptr<PutROI3dImgLvl1>()); }), "no exception");
}

/// A call that is watched takes the tower; its stages are counted.
TEST(PutROIStages, InSituTheFirstStageIsTheOnlyOne)
{
    const ImagePtr in = makeRandom(*geometry3d(eImageBufferType::UInt8, 30, 20, 3));
    const ImagePtr roi = makeRandom(*geometry3d(eImageBufferType::UInt8, 5, 4, 3), 2);
    const auto nbDone = [&](const ImagePtr& out) {
        const auto put = makeInitialised<PutROI2dImgLvl1>();
        put->set<attr::InImg>(in);
        put->set<attr::InROIImg>(roi);
        put->set<attr::InInputImg2dOffset>(attr::createImg2dOffset(7, 8));
        put->set<attr::OutImg>(out);
        core::Progress last;
        put->setProgressObserver([&](const core::Progress& progress) { last = progress; });
        EXPECT_TRUE(put->run(g_sync));
        return last.done;
    };
    const ImagePtr expected = withRegion(*in, *roi, {7, 8, 0});
    const ImagePtr out = createImage(in->getGeometry());
    EXPECT_EQ(nbDone(out), 9U) << "three plans of two strips each";
    EXPECT_TRUE(sameImages(*expected, *out));
    EXPECT_EQ(nbDone(in), 6U) << "three plans of a strip each";
    EXPECT_TRUE(sameImages(*expected, *in));
}

TEST(PutROIStages, AnOutputThatNobodyGaveIsADuplicate)
{
    const ImagePtr in = makeRandom(*geometry3d(eImageBufferType::UInt8, 30, 20, 3));
    const ImagePtr roi = makeRandom(*geometry3d(eImageBufferType::UInt8, 5, 4, 2), 2);
    const auto calibration = boost::make_shared<image::GeometricCalibration>();
    calibration->init3d("mm", 1, 2, 3, 4, 5, 6, 7, 8, 9);
    in->setGeometricCalibration(calibration);
    const auto put = makeInitialised<PutROI3dImgLvl1>();
    put->set<attr::InImg3d>(in);
    put->set<attr::InROIImg3d>(roi);
    put->set<attr::InInputImg3dOffset>(attr::createImg3dOffset(7, 8, 1));
    EXPECT_TRUE(put->run(g_sync));
    const ImagePtr out = put->getStorage<attr::OutImg>();
    EXPECT_TRUE(sameImages(*withRegion(*in, *roi, {7, 8, 1}), *out));
    EXPECT_EQ(out->getGeometricCalibration(), calibration);
}

} // namespace
} // namespace orlix::imaproc::util
