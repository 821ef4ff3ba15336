// Extraction of plans, volumes and sub-sequences, and its refusals.
#include "ORLIXIPL/ORLIXBaseImageTools/SubImageExtractor.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"

#include <boost/make_shared.hpp>
#include <boost/weak_ptr.hpp>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <type_traits>

namespace orlix::image {
namespace {

constexpr auto g_uint8 = eImageBufferType::UInt8;
constexpr auto g_uint16 = eImageBufferType::UInt16;

BaseImageGeometry mixedSequence()
{
    TemporalGeometry temporal;
    temporal.initSequence(4);
    const std::vector<eImageBufferType> types = {g_uint8, g_uint16, g_uint16, g_uint8};
    return {types, 5, 4, VolumeGeometry(), ColorGeometry(), temporal};
}

template <class TImage>
class SubImageExtractorTest : public ::testing::Test
{
protected:
    TImage& image() { return *m_image; }

    ImagePtr m_image = createImage(*geometry5d(g_uint16, 5, 4, 3, 2, 6));
    boost::shared_ptr<TImage> m_part;
};

using ImageTypes = ::testing::Types<BaseImage, const BaseImage>;
TYPED_TEST_SUITE(SubImageExtractorTest, ImageTypes);

TYPED_TEST(SubImageExtractorTest, GivesThePlan)
{
    this->m_image->setGeometricCalibration(boost::make_shared<const GeometricCalibration>());
    const BoolResult result = SubImageExtractor::extractPlan<TypeParam>(2, 1, 5, this->image(), this->m_part);
    ASSERT_TRUE(result) << result.getMessage();
    EXPECT_EQ(result.getMessage(), "");
    EXPECT_EQ(this->m_part->getGeometry().toString(), "5x4x1x1x1 UInt16");
    EXPECT_EQ(this->m_part->accessRow(1, 0, 0, 0), this->m_image->accessRow(1, 2, 1, 5));
    EXPECT_TRUE(this->m_part->hasGeometricCalibration());
}

TYPED_TEST(SubImageExtractorTest, GivesTheVolume)
{
    ASSERT_TRUE(SubImageExtractor::extractVolume<TypeParam>(1, 5, this->image(), this->m_part));
    EXPECT_EQ(this->m_part->getGeometry().toString(), "5x4x3x1x1 UInt16");
    EXPECT_EQ(this->m_part->accessRow(1, 2, 0, 0), this->m_image->accessRow(1, 2, 1, 5));
}

TYPED_TEST(SubImageExtractorTest, GivesTheSubSequence)
{
    ASSERT_TRUE(SubImageExtractor::extractSubSequence<TypeParam>(2, 3, this->image(), this->m_part));
    EXPECT_EQ(this->m_part->getGeometry().toString(), "5x4x3x2x3 UInt16");
    EXPECT_EQ(this->m_part->accessRow(1, 2, 1, 2), this->m_image->accessRow(1, 2, 1, 4));
}

TYPED_TEST(SubImageExtractorTest, RefusesIndicesOutsideAndLeavesTheResult)
{
    const boost::shared_ptr<TypeParam> before = this->m_image;
    this->m_part = before;
    const auto message = [](const BoolResult& result) {
        EXPECT_FALSE(result);
        return result.getMessage();
    };
    TypeParam& image = this->image();
    EXPECT_EQ(message(SubImageExtractor::extractPlan<TypeParam>(3, 0, 0, image, this->m_part)),
              "There is no plan (z=3, c=0, t=0) in an image of 5x4x3x2x6 UInt16: give indices below its sizes");
    EXPECT_NE(message(SubImageExtractor::extractPlan<TypeParam>(0, 2, 0, image, this->m_part)), "");
    EXPECT_NE(message(SubImageExtractor::extractPlan<TypeParam>(0, 0, 6, image, this->m_part)), "");
    EXPECT_EQ(message(SubImageExtractor::extractVolume<TypeParam>(2, 0, image, this->m_part)),
              "There is no volume (c=2, t=0) in an image of 5x4x3x2x6 UInt16: give indices below its sizes");
    EXPECT_NE(message(SubImageExtractor::extractVolume<TypeParam>(0, ~0ul, image, this->m_part)), "");
    EXPECT_EQ(message(SubImageExtractor::extractSubSequence<TypeParam>(4, 3, image, this->m_part)),
              "An image of 5x4x3x2x6 UInt16 does not have 3 time steps from step 4 on: give a range within its time"
              " steps");
    EXPECT_NE(message(SubImageExtractor::extractSubSequence<TypeParam>(7, 0, image, this->m_part)), "");
    EXPECT_NE(message(SubImageExtractor::extractSubSequence<TypeParam>(2, ~0ul, image, this->m_part)), "");
    EXPECT_EQ(this->m_part, before);
}

TEST(SubImageExtractor, KeepsPixelsAliveNotTheImage)
{
    ImagePtr image = createImage(*geometry2d(g_uint8, 5, 4));
    planData<unsigned char>(*image, 0, 0, 0)[19] = 77;
    ImagePtr plan;
    ASSERT_TRUE(SubImageExtractor::extractPlan(0, 0, 0, *image, plan));
    const boost::weak_ptr<BaseImage> watch = image;
    image.reset();
    EXPECT_TRUE(watch.expired());
    EXPECT_EQ(planData<unsigned char>(*plan, 0, 0, 0)[19], 77);
}

TEST(SubImageExtractor, SequencesAreSequencesAndSinglesSingle)
{
    ImagePtr part;
    const ImagePtr sequence = createImage(*geometry5d(g_uint8, 5, 4, 1, 1, 3));
    ASSERT_TRUE(SubImageExtractor::extractSubSequence(1, 1, *sequence, part));
    EXPECT_TRUE(part->getGeometry().getTemporalGeometry().isSequence());
    ASSERT_TRUE(SubImageExtractor::extractSubSequence(3, 0, *sequence, part));
    EXPECT_EQ(part->getSizeT(), 0u);
    EXPECT_EQ(part->getBufferType(), g_uint8);

    const ImagePtr single = createImage(*geometry2d(g_uint8, 5, 4));
    ASSERT_TRUE(SubImageExtractor::extractSubSequence(0, 1, *single, part));
    EXPECT_FALSE(part->getGeometry().getTemporalGeometry().isSequence());
    EXPECT_TRUE(part->sharesPixelsWith(*single));
}

TEST(SubImageExtractor, FollowsTheTypesOfTheSteps)
{
    const ImagePtr image = createImage(mixedSequence());
    ImagePtr part;
    for (unsigned long first = 0; first <= 4; ++first) {
        for (unsigned long count = 0; count <= 4 - first; ++count) {
            ASSERT_TRUE(SubImageExtractor::extractSubSequence(first, count, *image, part));
            ASSERT_EQ(part->getSizeT(), count);
            for (unsigned long t = 0; t < count; ++t) {
                EXPECT_EQ(part->getBufferType(t), image->getBufferType(first + t));
                EXPECT_EQ(part->accessRow(2, 0, 0, t), image->accessRow(2, 0, 0, first + t));
            }
        }
    }
    ASSERT_TRUE(SubImageExtractor::extractPlan(0, 0, 2, *image, part));
    EXPECT_EQ(part->getBufferType(), g_uint16);
}

TEST(SubImageExtractor, WorksWithoutPixels)
{
    const ImagePtr image = createImage(*geometry5d(g_uint8, 0, 4, 2, 1, 1));
    ImagePtr plan;
    ASSERT_TRUE(SubImageExtractor::extractPlan(1, 0, 0, *image, plan));
    EXPECT_EQ(plan->getSizeX(), 0u);
    const ImagePtr noPlans = createImage(*geometry3d(g_uint8, 5, 4, 0));
    EXPECT_FALSE(SubImageExtractor::extractPlan(0, 0, 0, *noPlans, plan));
    ASSERT_TRUE(SubImageExtractor::extractVolume(0, 0, *noPlans, plan));
    EXPECT_EQ(plan->getSizeZ(), 0u);
}

/// What `concatenateSequences` and `getGeometryResultingFromSeqConcatenation` both fail with.
std::string joinFailureOf(const std::vector<ImageConstPtr>& images)
{
    ImageConstPtr sequence;
    boost::shared_ptr<BaseImageGeometry> geometry;
    const BoolResult joined = SubImageExtractor::concatenateSequences(images, sequence);
    const BoolResult described = SubImageExtractor::getGeometryResultingFromSeqConcatenation(images, geometry);
    EXPECT_EQ(joined.getMessage(), described.getMessage());
    EXPECT_EQ(sequence, nullptr);
    EXPECT_EQ(geometry, nullptr);
    return joined.getMessage();
}

TYPED_TEST(SubImageExtractorTest, JoinsSequencesInTheirOrder)
{
    this->m_image->setGeometricCalibration(boost::make_shared<const GeometricCalibration>());
    const boost::shared_ptr<TypeParam> one = this->m_image;
    const boost::shared_ptr<TypeParam> other = createImage(*geometry5d(g_uint8, 5, 4, 3, 2, 3));
    const BoolResult result = SubImageExtractor::concatenateSequences<TypeParam>({one, other}, this->m_part);
    ASSERT_TRUE(result) << result.getMessage();
    EXPECT_EQ(this->m_part->getGeometry().toString(), "5x4x3x2x9 UInt16/UInt8");
    EXPECT_TRUE(this->m_part->getGeometry().getTemporalGeometry().isSequence());
    EXPECT_EQ(this->m_part->getImageType(), eImageType::eSubImage);
    EXPECT_TRUE(this->m_part->hasGeometricCalibration());
    for (unsigned long t = 0; t < 9; ++t) {
        EXPECT_EQ(this->m_part->accessRow(1, 2, 1, t),
                  t < 6 ? one->accessRow(1, 2, 1, t) : other->accessRow(1, 2, 1, t - 6));
    }
    boost::shared_ptr<BaseImageGeometry> geometry;
    ASSERT_TRUE(SubImageExtractor::getGeometryResultingFromSeqConcatenation<TypeParam>({one, other}, geometry));
    EXPECT_EQ(geometry->toString(), "5x4x3x2x9 UInt16/UInt8");
    EXPECT_EQ(geometry->getVolumeGeometry(), one->getGeometry().getVolumeGeometry());
}

TEST(SubImageExtractor, JoinsOneImageAndMany)
{
    const ImagePtr single = createImage(*geometry2d(g_uint8, 5, 4));
    ImagePtr joined;
    ASSERT_TRUE(SubImageExtractor::concatenateSequences<BaseImage>({single}, joined));
    EXPECT_TRUE(joined->sharesPixelsWith(*single));
    EXPECT_TRUE(joined->getGeometry().getTemporalGeometry().isSequence());
    ASSERT_TRUE(SubImageExtractor::concatenateSequences<BaseImage>(std::vector<ImagePtr>(50, single), joined));
    EXPECT_EQ(joined->getGeometry().toString(), "5x4x1x1x50 UInt8");
    ImagePtr plan;
    ASSERT_TRUE(SubImageExtractor::extractPlan(0, 0, 49, *joined, plan));
    EXPECT_TRUE(plan->sharesPixelsWith(*single));
}

TEST(SubImageExtractor, JoinsTypesStepByStepThoughFirstOnesAgree)
{
    const ImagePtr mixed = createImage(mixedSequence());
    const ImagePtr plain = createImage(*geometry5d(g_uint8, 5, 4, 1, 1, 2));
    ImageConstPtr joined;
    ASSERT_TRUE(SubImageExtractor::concatenateSequences<const BaseImage>({plain, mixed}, joined));
    EXPECT_EQ(joined->getGeometry().getBufferTypeVector(),
              (std::vector<eImageBufferType>{g_uint8, g_uint8, g_uint8, g_uint16, g_uint16, g_uint8}));
}

TEST(SubImageExtractor, JoinsNoStepsOfSeveralTypesToNoneOfTheFirst)
{
    const ImageConstPtr first = createImage(*geometry5d(g_uint16, 5, 4, 1, 1, 0));
    const ImageConstPtr second = createImage(*geometry5d(g_uint8, 5, 4, 1, 1, 0));
    ImageConstPtr joined;
    ASSERT_TRUE(SubImageExtractor::concatenateSequences<const BaseImage>({first, second}, joined));
    EXPECT_EQ(joined->getGeometry().toString(), "5x4x1x1x0 UInt16");
}

TEST(SubImageExtractor, JoinsNothingThatDoesNotFit)
{
    const ImagePtr image = createImage(*geometry5d(g_uint8, 5, 4, 3, 2, 2));
    const std::string nothing = "There are no sequences to join, or one of them is a null pointer: give images";
    EXPECT_EQ(joinFailureOf({}), nothing);
    EXPECT_EQ(joinFailureOf({nullptr}), nothing);
    EXPECT_EQ(joinFailureOf({image, nullptr}), nothing);
    for (const auto& other : {geometry5d(g_uint8, 6, 4, 3, 2, 2), geometry5d(g_uint8, 5, 5, 3, 2, 2),
                              geometry5d(g_uint8, 5, 4, 4, 2, 2), geometry5d(g_uint8, 5, 4, 3, 1, 2)}) {
        EXPECT_EQ(joinFailureOf({image, createImage(*other)}),
                  "Sequences of 5x4x3x2x2 UInt8 and " + other->toString() +
                      " can't be joined: sizes on x, y, z and c have to be the same");
    }
    const ImagePtr many = createImage(*geometry5d(g_uint8, 0, 4, 1, 1, 1UL << 63));
    EXPECT_EQ(joinFailureOf({many, many}), "Sequences of 0x4x1x1x9223372036854775808 UInt8 and others have more time "
                                           "steps together than can be counted: join fewer");
}

class PixellessImage final : public BaseImage
{
public:
    explicit PixellessImage(const BaseImageGeometry& geometry) : BaseImage(geometry, PixelLayout()) {}
};

TEST(SubImageExtractor, JoinsNoImageWithoutHostPixels)
{
    const ImagePtr image = createImage(*geometry2d(g_uint8, 5, 4));
    const ImagePtr elsewhere = boost::make_shared<PixellessImage>(image->getGeometry());
    ImagePtr joined;
    EXPECT_EQ(SubImageExtractor::concatenateSequences<BaseImage>({image, elsewhere}, joined).getMessage(),
              "An image of 5x4x1x1x1 UInt8 is on a GPU, but has to be in the memory of the host: bring it there with "
              "toHost first");
    EXPECT_EQ(joined, nullptr);
    boost::shared_ptr<BaseImageGeometry> geometry;
    EXPECT_TRUE(SubImageExtractor::getGeometryResultingFromSeqConcatenation<BaseImage>({image, elsewhere}, geometry));
}

RC_GTEST_PROP(SubImageExtractorProperty, APartOfAPartIsThatPartOfTheWhole, ())
{
    const auto size = [] { return *rc::gen::inRange(1ul, 6ul); };
    const ImagePtr image = createImage(*geometry5d(g_uint16, size(), size(), size(), size(), size()));
    const unsigned long first = *rc::gen::inRange(0ul, image->getSizeT());
    const unsigned long count = *rc::gen::inRange(1ul, image->getSizeT() - first + 1);
    const unsigned long z = *rc::gen::inRange(0ul, image->getSizeZ()), c = *rc::gen::inRange(0ul, image->getSizeC());
    const unsigned long t = *rc::gen::inRange(0ul, count);
    ImagePtr steps, volume, plan, direct;
    RC_ASSERT(SubImageExtractor::extractSubSequence(first, count, *image, steps).getValue());
    RC_ASSERT(SubImageExtractor::extractVolume(c, t, *steps, volume).getValue());
    RC_ASSERT(SubImageExtractor::extractPlan(z, 0, 0, *volume, plan).getValue());
    RC_ASSERT(SubImageExtractor::extractPlan(z, c, first + t, *image, direct).getValue());
    RC_ASSERT(plan->sharesPixelsWith(*direct));
}

} // namespace
} // namespace orlix::image
