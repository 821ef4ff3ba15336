// From a mode and an attribute class to a parser: every kind of strip, and none for what is no strip.
#include "ORLIXIPL/ORLIXImageProcessing/Parser/ParserOf.h"

#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXImageProcessing/Parser/VolumeStripAttributes.h"
#include "ORLIXImageProcessing/TestAttributes.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::test {
namespace {

template <class TMode, class TAttribute>
using BaseOf = typename ParserOf<TMode, TAttribute>::BaseParser;

TEST(ParserOf, GoesByModeAndKindOfStrip)
{
    static_assert(std::same_as<BaseOf<RawStripParserMode, InStrip>, BaseRawYStrip2dParser<BaseInputYStrip2dAttribute>>);
    static_assert(
        std::same_as<BaseOf<RawStripParserMode, OutMaskStrip>, BaseRawYStrip2dParser<BaseOutputYStrip2dAttribute>>);
    static_assert(
        std::same_as<BaseOf<LineStripParserMode, OutStrip>, BaseLineYStrip2dParser<BaseOutputYStrip2dAttribute>>);
    static_assert(
        std::same_as<BaseOf<JoinedLineStripParserMode, InStrip>, BaseLineYStrip2dParser<BaseInputYStrip2dAttribute>>);
    static_assert(
        std::same_as<BaseOf<RawStripParserMode, InVolumeStrip>, BaseRawZStrip3dParser<BaseInputZStrip3dAttribute>>);
    static_assert(
        std::same_as<BaseOf<RawStripParserMode, InOutVolumeStrip>, BaseRawZStrip3dParser<BaseInOutZStrip3dAttribute>>);
    static_assert(
        std::same_as<BaseOf<LineStripParserMode, OutVolumeStrip>, BaseLineZStrip3dParser<BaseOutputZStrip3dAttribute>>);
    static_assert(std::same_as<BaseOf<LineStripParserMode, InMarginStrip>,
                               BaseLineYStrip2dWithKernelParser<BaseInputYStrip2dWithKernelAttribute>>);
    static_assert(std::same_as<BaseOf<JoinedLineStripParserMode, InMarginVolumeStrip>,
                               BaseLineZStrip3dWithKernelParser<BaseInputZStrip3dWithKernelAttribute>>);
}

TEST(ParserOf, HasNoneForWhatIsNoStripAndForAKernelThatWalksByItself)
{
    static_assert(!ParserOf<RawStripParserMode, InPicture>::g_bParser);
    static_assert(!ParserOf<LineStripParserMode, InKind>::g_bParser);
    static_assert(!ParserOf<RawStripParserMode, InPicture>::g_bStrip);
    static_assert(!ParserOf<NoStripParserMode, InStrip>::g_bParser);
    static_assert(!ParserOf<NoStripParserMode, InMarginStrip>::g_bParser);
    static_assert(ParserOf<NoStripParserMode, InMarginStrip>::g_bStrip);
}

template <class TMode, class TAttribute, template <class, class> class TParser, class... TMargins>
void expectParserTypes(const TMargins&... margins)
{
    using Found = ParserOf<TMode, TAttribute>;
    for (const image::eImageBufferType type : image::g_allBufferTypes) {
        const ImagePtr image = image::createImage(*image::geometry2d(type, 3, 2));
        image::visitStorageType(type, [&]<class T>() {
            const auto attribute = stripAttribute<TAttribute>(image, 0UL, 1UL, margins...);
            const auto parser = Found::create(*attribute);
            EXPECT_NE((boost::dynamic_pointer_cast<TParser<T, typename Found::StripBase>>(parser)), nullptr) << type;
            EXPECT_EQ(&parser->getStrip(), attribute->getStorage().get());
        });
    }
    EXPECT_EQ(Found::create(TAttribute()), nullptr) << "without a strip there is no element type, and no complaint";
}

TEST(ParserOf, GoesByTheStorageTypeOfTheStrip)
{
    const image::Margin margin{1, 1};
    expectParserTypes<RawStripParserMode, InStrip, RawYStrip2dParser>();
    expectParserTypes<JoinedLineStripParserMode, OutStrip, LineYStrip2dParser>();
    expectParserTypes<RawStripParserMode, InVolumeStrip, RawZStrip3dParser>();
    expectParserTypes<RawStripParserMode, InOutVolumeStrip, RawZStrip3dParser>();
    expectParserTypes<LineStripParserMode, OutVolumeStrip, LineZStrip3dParser>();
    expectParserTypes<LineStripParserMode, InMarginStrip, LineYStrip2dWithKernelParser>(margin, margin);
    expectParserTypes<LineStripParserMode, InMarginVolumeStrip, LineZStrip3dWithKernelParser>(margin, margin);
}

} // namespace
} // namespace orlix::imaproc::test
