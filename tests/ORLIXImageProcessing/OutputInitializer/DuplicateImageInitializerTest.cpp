// Outputs that nobody gave, made after the input.
#include "ORLIXIPL/ORLIXImageProcessing/OutputInitializer/DuplicateImageInitializer.h"

#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImage/ORLIXImageException.h"
#include "ORLIXImageProcessing/TestAttributes.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::test {
namespace {

using image::createImage;
using image::eImageBufferType;
using image::geometry2d;
using image::geometry5d;

template <class TOutput>
struct Fixture
{
    boost::shared_ptr<InPicture> in = boost::make_shared<InPicture>();
    boost::shared_ptr<TOutput> out = boost::make_shared<TOutput>();
    boost::shared_ptr<processor::BaseOutputInitializer> initializer =
        duplicateInOut<InPicture, TOutput>(out, in, eImageStoragePolicy::eDefaultStorage);

    const image::BaseImage& make(const image::BaseImageGeometry& geometry)
    {
        out->clear();
        in->init(createImage(geometry));
        EXPECT_TRUE(initializer->isOutputInitNeeded());
        EXPECT_EQ(failureOf(initializer->initOutput()), "no failure");
        EXPECT_FALSE(initializer->isOutputInitNeeded());
        EXPECT_NE(out->getStorage(), in->getStorage());
        return out->getImage();
    }
};

void expectSameAxes(const image::BaseImageGeometry& made, const image::BaseImageGeometry& given)
{
    EXPECT_EQ(made.toString(), given.toString());
    EXPECT_TRUE(made.getVolumeGeometry() == given.getVolumeGeometry());
    EXPECT_TRUE(made.getColorGeometry() == given.getColorGeometry());
    EXPECT_TRUE(made.getTemporalGeometry() == given.getTemporalGeometry());
}

TEST(DuplicateInOut, TakesSizesAxesAndTypeOfTheInput)
{
    Fixture<OutPicture> fixture;
    for (const eImageBufferType type : image::g_allBufferTypes) {
        for (const auto& geometry : {geometry2d(type, 7, 5), geometry5d(type, 3, 2, 4, 3, 2), geometry2d(type, 0, 9),
                                     image::geometry3d(type, 4, 4, 1), geometry5d(type, 1, 1, 0, 2, 1)}) {
            const image::BaseImage& made = fixture.make(*geometry);
            expectSameAxes(made.getGeometry(), *geometry);
            EXPECT_EQ(made.getImageType(), image::eImageType::eOwnedImage);
            EXPECT_FALSE(made.hasGeometricCalibration());
        }
    }
    image::TemporalGeometry oneStep;
    oneStep.initSequence(1);
    const image::BaseImageGeometry sequence(eImageBufferType::Int8, 4, 4, {}, {}, oneStep);
    expectSameAxes(fixture.make(sequence).getGeometry(), sequence);
}

TEST(DuplicateInOut, KeepsTheTypeOfEachTimeStep)
{
    Fixture<OutPicture> fixture;
    const image::BaseImageGeometry geometry =
        mixedGeometry({eImageBufferType::UInt8, eImageBufferType::Real32, eImageBufferType::Int16}, 5, 4, 3);
    const image::BaseImage& made = fixture.make(geometry);
    expectSameAxes(made.getGeometry(), geometry);
    EXPECT_EQ(made.getBufferType(1), eImageBufferType::Real32);
}

TEST(DuplicateInOut, ATypeThatTheOutputFixesComesFirst)
{
    Fixture<OutMask> fixture;
    EXPECT_EQ(fixture.make(*geometry2d(eImageBufferType::Real32, 4, 3)).getGeometry().toString(), "4x3x1x1x1 Binary");
    const image::BaseImage& made =
        fixture.make(mixedGeometry({eImageBufferType::UInt8, eImageBufferType::Real32}, 5, 4, 3));
    EXPECT_EQ(made.getGeometry().toString(), "5x4x3x1x2 Binary");
    EXPECT_TRUE(made.getGeometry().hasUniformBufferType());
}

TEST(DuplicateInOut, ATypeThatIsAskedForStandsForTheInputs)
{
    const auto in = boost::make_shared<InPicture>();
    auto kind = boost::make_shared<InKind>();
    const auto out = boost::make_shared<OutPicture>();
    const auto initializer = duplicateInOut<InPicture, OutPicture>(out, in, kind);
    const auto mask = boost::make_shared<OutMask>();
    const auto maskInitializer = duplicateInOut<InPicture, OutMask>(mask, in, kind);
    const auto make = [&](const image::BaseImageGeometry& geometry, const eImageBufferType& type) {
        in->init(createImage(geometry));
        kind->init(type);
        out->clear();
        EXPECT_EQ(failureOf(initializer->initOutput()), "no failure");
        return out->getImage().getGeometry().toString();
    };
    EXPECT_EQ(make(*geometry5d(eImageBufferType::UInt8, 3, 2, 4, 3, 2), eImageBufferType::Real32), "3x2x4x3x2 Real32");
    EXPECT_EQ(make(*geometry5d(eImageBufferType::UInt8, 3, 2, 4, 3, 2), eImageBufferType::UInt8), "3x2x4x3x2 UInt8");
    EXPECT_EQ(
        make(mixedGeometry({eImageBufferType::UInt8, eImageBufferType::Real32}, 5, 4, 3), eImageBufferType::Int16),
        "5x4x3x1x2 Int16");
    EXPECT_TRUE(out->getImage().getGeometry().hasUniformBufferType());
    EXPECT_EQ(failureOf(maskInitializer->initOutput()), "no failure");
    EXPECT_EQ(mask->getImage().getGeometry().toString(), "5x4x3x1x2 Binary") << "what the output fixes comes first";
}

TEST(DuplicateInOut, KeepsTheCalibration)
{
    Fixture<OutPicture> fixture;
    const auto calibration = boost::make_shared<image::GeometricCalibration>();
    calibration->init2d("mm", 0.5F, 0.25F, 1, 2);
    const ImagePtr image = createImage(*geometry2d(eImageBufferType::UInt8, 4, 3));
    image->setGeometricCalibration(calibration);
    fixture.in->init(image);
    EXPECT_EQ(failureOf(fixture.initializer->initOutput()), "no failure");
    ASSERT_TRUE(fixture.out->getImage().hasGeometricCalibration());
    EXPECT_EQ(*fixture.out->getImage().getGeometricCalibration(), *calibration);
}

TEST(DuplicateInOut, AGivenOutputStays)
{
    Fixture<OutPicture> fixture;
    fixture.out->init(createImage(*geometry2d(eImageBufferType::UInt8, 1, 1)));
    EXPECT_FALSE(fixture.initializer->isOutputInitNeeded());
    fixture.out->init(ImagePtr());
    EXPECT_FALSE(fixture.initializer->isOutputInitNeeded()) << "a null pointer was given, too";
}

TEST(DuplicateInOut, NeedsItsInput)
{
    Fixture<OutPicture> fixture;
    const std::string text =
        "The output image can't be made, since the input is not there: set the input before the run";
    EXPECT_EQ(failureOf(fixture.initializer->initOutput()), text);
    fixture.in->init(ImageConstPtr());
    EXPECT_EQ(failureOf(fixture.initializer->initOutput()), text);
    fixture.in.reset();
    EXPECT_EQ(failureOf(fixture.initializer->initOutput()), text);
    EXPECT_FALSE(fixture.out->isSet());
    fixture.out.reset();
    EXPECT_FALSE(fixture.initializer->isOutputInitNeeded());
}

TEST(DuplicateInOut, WhatCannotBeHadIsAnExceptionAndNoImage)
{
    Fixture<OutPicture> fixture;
    unsigned char memory[1] = {};
    // An image that exists without the memory that its duplicate would take.
    const auto huge = geometry5d(eImageBufferType::UInt8, 1, 1UL << 46, 1, 1, 1);
    ASSERT_THROW(static_cast<void>(createImage(*huge)), image::ORLIXImageException);
    fixture.in->init(image::wrapImage(*huge, memory, {1, 0, 0, 0}, nullptr)); // never read
    EXPECT_THROW(static_cast<void>(fixture.initializer->initOutput()), image::ORLIXImageException);
    EXPECT_FALSE(fixture.out->isSet());
}

TEST(DuplicateImageInitializer, AxesThatAreAskedForReplaceTheInputs)
{
    using Initializer = DuplicateImageInitializer<BaseInputImageAttribute, BaseOutputImageAttribute>;
    const auto in = boost::make_shared<InPicture>();
    const auto out = boost::make_shared<OutPicture>();
    Initializer initializer(out, in, eImageStoragePolicy::eDefaultStorage);
    image::TemporalGeometry temporal;
    temporal.initSequence(3);
    image::ColorGeometry color;
    color.initChannels(4);
    image::VolumeGeometry volume;
    volume.init3d(2);
    initializer.init(temporal, color, volume);
    in->init(createImage(*geometry5d(eImageBufferType::UInt16, 6, 5, 9, 9, 9)));
    EXPECT_EQ(failureOf(initializer.initOutput()), "no failure");
    EXPECT_EQ(out->getImage().getGeometry().toString(), "6x5x2x4x3 UInt16");
}

} // namespace
} // namespace orlix::imaproc::test
