// appendSeqImg as a caller sees it: what ends up where.
#include "ORLIXIPL/ORLIXBaseImageTools/SubImageExtractor.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"
#include "support/Executors.h"
#include "support/SameImages.h"
#include "support/StepImages.h"

#include <rapidcheck/gtest.h>

namespace orlix::imaproc::util {
namespace {

using image::createImage;
using image::eImageBufferType;
using image::geometry2d;
using image::geometry5d;
using image::SubImageExtractor;
using testing::bytesOf;
using testing::fillRandom;
using testing::makeGrown;
using testing::makeRandom;
using testing::sameImages;
using testing::WatchedImage;
using Bytes = std::vector<std::byte>;

Bytes bytesOfBoth(const image::BaseImage& first, const image::BaseImage& second)
{
    Bytes bytes = bytesOf(first);
    const Bytes others = bytesOf(second);
    bytes.insert(bytes.end(), others.begin(), others.end());
    return bytes;
}

/// Appends in every way and looks at all pixels, those of the inputs too.
void expectAppended(const ImagePtr& first, const ImagePtr& second)
{
    const Bytes expected = bytesOfBoth(*first, *second);
    const Bytes secondBefore = bytesOf(*second);
    const unsigned long sizeT = first->getSizeT() + second->getSizeT();

    const ImagePtr made = appendSeqImg(first, second);
    EXPECT_EQ(made->getSizeT(), sizeT);
    EXPECT_TRUE(made->getGeometry().getTemporalGeometry().isSequence());
    EXPECT_EQ(made->getImageType(), image::eImageType::eOwnedImage);
    EXPECT_EQ(bytesOf(*made), expected);

    fillRandom(*made, 0xBAD);
    appendSeqImg(first, second, made);
    EXPECT_EQ(bytesOf(*made), expected);

    const ImagePtr grown = testing::plainCopy(*first);
    appendSeqImg(grown, second, grown);
    EXPECT_EQ(grown->getGeometry().toString(), made->getGeometry().toString());
    EXPECT_EQ(bytesOf(*grown), expected);
    EXPECT_EQ(bytesOfBoth(*first, *second), expected) << "inputs are only read";
    EXPECT_EQ(bytesOf(*second), secondBefore);
}

TEST(AppendSeqImg, threeStepsAndFourAreSevenInThatOrder)
{
    const ImagePtr first = makeRandom(*geometry5d(eImageBufferType::UInt16, 37, 29, 1, 1, 3), 1);
    const ImagePtr second = makeRandom(*geometry5d(eImageBufferType::UInt16, 37, 29, 1, 1, 4), 2);
    first->setGeometricCalibration(boost::make_shared<const image::GeometricCalibration>());
    const ImagePtr made = appendSeqImg(first, second);
    EXPECT_EQ(made->getGeometry().toString(), "37x29x1x1x7 UInt16");
    EXPECT_EQ(made->getGeometricCalibration(), first->getGeometricCalibration());
    EXPECT_EQ(bytesOf(*made), bytesOfBoth(*first, *second));
}

TEST(AppendSeqImg, everyTypeAndLineLength)
{
    for (const eImageBufferType type : image::g_allBufferTypes) {
        for (const unsigned long x : {1UL, 15UL, 16UL, 33UL, 63UL, 64UL, 65UL, 199UL}) {
            SCOPED_TRACE(std::string(image::getBufferTypeName(type)) + ", " + std::to_string(x));
            expectAppended(makeRandom(*geometry5d(type, x, 7, 1, 1, 2), 1),
                           makeRandom(*geometry5d(type, x, 7, 1, 1, 3), 2));
        }
    }
}

TEST(AppendSeqImg, volumesOfSeveralChannelsOnEveryExecutor)
{
    for (const testing::NamedExecutor& each : testing::makeAllExecutors()) {
        const testing::ScopedExecutor scope(each.executor);
        expectAppended(makeRandom(*geometry5d(eImageBufferType::Int32, 37, 29, 4, 3, 2), 1),
                       makeRandom(*geometry5d(eImageBufferType::Int32, 37, 29, 4, 3, 1), 2));
    }
}

TEST(AppendSeqImg, manyStrips)
{
    for (const unsigned nbThreads : {1U, 2U, 4U}) {
        const testing::ScopedExecutor scope(core::makePlainThreadExecutor(nbThreads));
        expectAppended(makeRandom(*geometry5d(eImageBufferType::Real32, 1021, 600, 1, 1, 1), 1),
                       makeRandom(*geometry5d(eImageBufferType::Real32, 1021, 600, 1, 1, 2), 2));
    }
}

TEST(AppendSeqImg, eachStepKeepsItsElementType)
{
    const auto plan = *geometry2d(eImageBufferType::UInt8, 33, 21);
    const std::vector<eImageBufferType> types = {eImageBufferType::UInt8, eImageBufferType::Real32};
    expectAppended(makeRandom(*geometry5d(eImageBufferType::UInt8, 33, 21, 1, 1, 2), 1),
                   makeRandom(*geometry5d(eImageBufferType::Real32, 33, 21, 1, 1, 3), 2));
    expectAppended(makeRandom(testing::withTypes(plan, types), 1),
                   makeRandom(*geometry2d(eImageBufferType::eBufferBinary, 33, 21), 2));
    const ImagePtr made = appendSeqImg(makeRandom(*geometry2d(eImageBufferType::UInt16, 33, 21)),
                                       makeRandom(testing::withTypes(plan, types)));
    EXPECT_EQ(made->getGeometry().toString(), "33x21x1x1x3 UInt16/UInt8/Real32");
}

TEST(AppendSeqImg, emptyAxes)
{
    for (int axis = 0; axis < 5; ++axis) {
        unsigned long sizes[] = {7, 5, 3, 2, 2};
        sizes[axis] = 0;
        const auto geometry = geometry5d(eImageBufferType::UInt8, sizes[0], sizes[1], sizes[2], sizes[3], sizes[4]);
        const auto other =
            geometry5d(eImageBufferType::UInt8, sizes[0], sizes[1], sizes[2], sizes[3], axis == 4 ? 3 : sizes[4]);
        expectAppended(makeRandom(*geometry), makeRandom(*other));
        expectAppended(makeRandom(*other), makeRandom(*geometry));
        expectAppended(makeRandom(*geometry), makeRandom(*geometry));
    }
}

TEST(AppendSeqImg, wrappedMemoryIsTouchedNowhereElse)
{
    for (const eImageBufferType type : {eImageBufferType::UInt8, eImageBufferType::Real32}) {
        for (const testing::WrapForm& form :
             {testing::WrapForm{.rowGap = 3, .planGap = 5}, testing::WrapForm{.planGap = 7},
              testing::WrapForm{testing::GuardEdge::eBegin}, testing::WrapForm{.misalignment = 3, .bAtPage = false}}) {
            const WatchedImage first(*geometry5d(type, 61, 9, 2, 1, 2), form);
            const WatchedImage second(*geometry5d(type, 61, 9, 2, 1, 1), form);
            const WatchedImage out(*geometry5d(type, 61, 9, 2, 1, 3), form);
            fillRandom(*first.get(), 1);
            fillRandom(*second.get(), 2);
            const Bytes expected = bytesOfBoth(*first.get(), *second.get());
            appendSeqImg(first.get(), second.get(), out.get());
            EXPECT_EQ(bytesOf(*out.get()), expected);
            const ImagePtr grown = makeRandom(*geometry5d(type, 61, 9, 2, 1, 2), 3);
            appendSeqImg(grown, second.get(), grown);
            EXPECT_EQ(bytesOf(*grown).size(), expected.size());
            EXPECT_TRUE(first.isOutsideIntact() && second.isOutsideIntact() && out.isOutsideIntact());
        }
    }
}

TEST(AppendSeqImg, smallImagesOfSeveralChannelsOrPlans)
{
    for (const auto& [sizeZ, sizeC] : {std::pair(1UL, 2UL), std::pair(2UL, 1UL)}) {
        expectAppended(makeRandom(*geometry5d(eImageBufferType::UInt16, 5, 4, sizeZ, sizeC, 1)),
                       makeRandom(*geometry5d(eImageBufferType::UInt16, 5, 4, sizeZ, sizeC, 2), 2));
    }
}

TEST(AppendSeqImg, ofAViewOverSeveralImagesEachStepIsWrittenAsItLies)
{
    // The first step has room behind its plan, the second one has not.
    const ImagePtr roomy = createImage(*geometry2d(eImageBufferType::UInt8, 5, 4));
    const WatchedImage tight(*geometry2d(eImageBufferType::UInt8, 5, 4), {});
    ImagePtr both;
    ASSERT_TRUE(SubImageExtractor::concatenateSequences<image::BaseImage>({roomy, tight.get()}, both));
    const ImagePtr first = makeRandom(*geometry2d(eImageBufferType::UInt8, 5, 4));
    const ImagePtr second = makeRandom(*geometry2d(eImageBufferType::UInt8, 5, 4), 2);
    appendSeqImg(first, second, both);
    EXPECT_EQ(bytesOf(*roomy), bytesOf(*first));
    EXPECT_EQ(bytesOf(*tight.get()), bytesOf(*second));
    EXPECT_TRUE(tight.isOutsideIntact());
}

TEST(AppendSeqImg, inSituNoPixelMovesAndViewsStayWhatTheyWere)
{
    const ImagePtr image = makeRandom(*geometry5d(eImageBufferType::UInt8, 64, 64, 2, 1, 3), 1);
    const ImagePtr second = makeRandom(*geometry5d(eImageBufferType::UInt8, 64, 64, 2, 1, 2), 2);
    const Bytes before = bytesOf(*image);
    const Bytes expected = bytesOfBoth(*image, *second);
    ImagePtr view;
    ASSERT_TRUE(SubImageExtractor::extractSubSequence(0, 3, *image, view));
    std::vector<const std::byte*> places;
    testing::forEachRow(*image, [&](unsigned long, std::byte* row) { places.push_back(row); });

    appendSeqImg(image, second, image);

    std::size_t next = 0;
    testing::forEachRow(*image,
                        [&](unsigned long t, const std::byte* row) { EXPECT_TRUE(t >= 3 || row == places[next++]); });
    EXPECT_EQ(bytesOf(*image), expected);
    EXPECT_EQ(bytesOf(*view), before);
    EXPECT_EQ(view->getSizeT(), 3u);
    appendSeqImg(image, view, image);
    EXPECT_EQ(image->getSizeT(), 8u) << "its own older steps may be appended to an image";
    ImagePtr last;
    ASSERT_TRUE(SubImageExtractor::extractSubSequence(5, 3, *image, last));
    EXPECT_EQ(bytesOf(*last), before);
}

TEST(AppendSeqImg, onePlanAfterTheOther)
{
    const ImagePtr sequence = makeRandom(*geometry2d(eImageBufferType::UInt8, 20, 10), 0);
    Bytes expected = bytesOf(*sequence);
    for (unsigned long t = 1; t < 60; ++t) {
        const ImagePtr plan = makeRandom(*geometry2d(eImageBufferType::UInt8, 20, 10), t);
        appendSeqImg(sequence, plan, sequence);
        const Bytes bytes = bytesOf(*plan);
        expected.insert(expected.end(), bytes.begin(), bytes.end());
    }
    EXPECT_EQ(sequence->getGeometry().toString(), "20x10x1x1x60 UInt8");
    EXPECT_EQ(bytesOf(*sequence), expected);
}

TEST(AppendSeqImg, anImageToItselfAndImagesThatHaveGrown)
{
    const ImagePtr image = makeRandom(*geometry5d(eImageBufferType::Int16, 33, 21, 2, 1, 2), 1);
    EXPECT_EQ(bytesOf(*appendSeqImg(image, image)), bytesOfBoth(*image, *image));
    const ImagePtr grown = makeGrown(*geometry5d(eImageBufferType::Int16, 33, 21, 2, 1, 4), 2);
    expectAppended(grown, image);
    expectAppended(testing::joined(image, grown), grown);
}

RC_GTEST_PROP(AppendSeqImgProperty, appendThenCutGivesTheParts, ())
{
    const auto types = rc::gen::container<std::vector<eImageBufferType>>(
        rc::gen::element<eImageBufferType>(eImageBufferType::UInt8, eImageBufferType::Int16, eImageBufferType::Real32));
    const auto size = [] { return *rc::gen::inRange(1UL, 40UL); };
    const auto geometry = geometry5d(eImageBufferType::UInt8, size(), size(), size() % 3 + 1, size() % 3 + 1, 1);
    const ImagePtr first = makeRandom(testing::withTypes(*geometry, *rc::gen::nonEmpty(types)), 1);
    const ImagePtr second = makeRandom(testing::withTypes(*geometry, *rc::gen::nonEmpty(types)), 2);
    const ImagePtr before = testing::plainCopy(*first);
    const unsigned long cut = first->getSizeT();
    ImagePtr whole = first;
    if (*rc::gen::arbitrary<bool>()) {
        appendSeqImg(first, second, first);
    } else {
        whole = appendSeqImg(first, second);
    }
    ImagePtr front, back;
    RC_ASSERT(SubImageExtractor::extractSubSequence(0, cut, *whole, front).getValue());
    RC_ASSERT(SubImageExtractor::extractSubSequence(cut, second->getSizeT(), *whole, back).getValue());
    RC_ASSERT(static_cast<bool>(sameImages(*front, *before)));
    RC_ASSERT(static_cast<bool>(sameImages(*back, *second)));
}

} // namespace
} // namespace orlix::imaproc::util
