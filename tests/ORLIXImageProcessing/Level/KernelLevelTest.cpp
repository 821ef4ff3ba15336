// Level-3 processors over strips: parsers in order of the attributes, kernels by the types that the class names, and
// kernels without a tail over any memory.
#include "ORLIXIPL/ORLIXImageProcessing/Level/KernelLevel.h"

#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXImageProcessing/TestAttributes.h"
#include "support/Images.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::test {
namespace {

using image::createImage;
using image::eImageBufferType;
using image::geometry2d;
using orlix::testing::GuardEdge;
using orlix::testing::WatchedImage;

constexpr auto g_uint8 = eImageBufferType::UInt8;
constexpr auto g_uint16 = eImageBufferType::UInt16;

/// Enters `kernel` into the table of `TAlgorithm`, once.
template <class TAlgorithm>
void enterKernel(const processor::DataTypeIdentifierColl& types, processor::KernelFunction kernel)
{
    processor::AlgorithmFunctionIdentifier row;
    row.init(types, {eInstructionSet::eNone}, 0, kernel);
    static_cast<void>(TAlgorithm::retrieveFunctionSelector().registerFunction(row)); // a repeated test has it already
}

/// out = in + 1 for bytes. Like a kernel without a tail it always works on whole blocks of 64.
class AddOne final : public KernelLevel<AddOne, PictureLibrary, TypedBy<InStrip>, Raw<InStrip>, Raw<OutStrip>>
{
public:
    static constexpr processor::ProcessorText g_text{"AddOne", 0};

    using Rule = processor::NoRule;
    ProcessingResult<bool> kernel(const processor::ProcessingInfo& info)
    {
        const auto source = accessBlock<InStrip>();
        const auto destination = accessBlock<OutStrip>();
        static_assert(std::is_same_v<decltype(source), const void* const>);
        static_assert(std::is_same_v<decltype(destination), void* const>);
        for (unsigned long i = 0; i < (info.nbElements + 63) / 64 * 64; ++i) {
            static_cast<unsigned char*>(destination)[i] =
                static_cast<unsigned char>(static_cast<const unsigned char*>(source)[i] + 1);
        }
        m_infos.push_back(info);
        return succeed();
    }
    std::vector<processor::ProcessingInfo> m_infos;
};

/// The same line by line, with a tail: it stays within its line, or the lines that were joined.
template <template <class> class TRow>
class AddOneByLineOf final
    : public KernelLevel<AddOneByLineOf<TRow>, PictureLibrary, TypedBy<InStrip>, TRow<InStrip>, TRow<OutStrip>>
{
public:
    static constexpr processor::ProcessorText g_text{
        TRow<InStrip>::g_bJoinsLines ? "AddOneByJoinedLines" : "AddOneByLine", 0};

    using Rule = processor::NoRule;
    ProcessingResult<bool> kernel(const processor::ProcessingInfo& info)
    {
        const auto* source = static_cast<const unsigned char*>(this->template accessBlock<InStrip>());
        auto* destination = static_cast<unsigned char*>(this->template accessBlock<OutStrip>());
        for (unsigned long i = 0; i < info.nbElements; ++i) {
            destination[i] = static_cast<unsigned char>(source[i] + 1);
        }
        m_infos.push_back(info);
        return this->succeed();
    }
    std::vector<processor::ProcessingInfo> m_infos;
};
using AddOneByLine = AddOneByLineOf<ByLine>;
using AddOneByJoinedLines = AddOneByLineOf<ByJoinedLines>;

/// Kernels by two types, with a strip that may be left out.
class ByTwoTypes final : public KernelLevel<ByTwoTypes, PictureLibrary, TypedBy<InStrip, OutStrip>, Raw<InStrip>,
                                            Raw<InOptStrip>, Raw<OutStrip>>
{
public:
    static constexpr processor::ProcessorText g_text{"ByTwoTypes", 0};

    using Rule = processor::NoRule;
    template <int which>
    ProcessingResult<bool> kernel(const processor::ProcessingInfo&)
    {
        m_which = which;
        return succeed();
    }
    /// Parsers that a run would have, given what is set.
    unsigned long countParsers()
    {
        processor::DataParserVector parsers;
        EXPECT_EQ(failureOf(initDataParserColl(parsers)), "no failure");
        clearDataParserColl();
        return parsers.size();
    }
    int m_which = 0;
};

processor::DataTypeIdentifierColl typesOf(eImageBufferType type)
{
    processor::DataTypeIdentifierColl types;
    types.init(ImageBufferTypeIdentifier(type));
    return types;
}

template <class TAlgorithm>
boost::shared_ptr<TAlgorithm> makeAlgorithm()
{
    auto algorithm = boost::make_shared<TAlgorithm>();
    EXPECT_EQ(failureOf(algorithm->init(processor::eProcessorRulePolicy::eRulePolicyCheck)), "no failure");
    return algorithm;
}

template <class TAlgorithm>
std::string runOn(TAlgorithm& algorithm, const ImagePtr& in, const ImagePtr& out, unsigned long start,
                  unsigned long size)
{
    algorithm.template set<InStrip>(boost::make_shared<image::InputImageYStrip2d>(*in, start, size));
    algorithm.template set<OutStrip>(boost::make_shared<image::OutputImageYStrip2d>(*out, start, size));
    return failureOf(algorithm.run(core::eSynchroType::eSynchroSync));
}

/// Lines [start, start + size) of `out` must be those of `in` plus one, the others as `before`.
void expectOneMore(const image::BaseImage& in, const image::BaseImage& out, const std::vector<std::byte>& before,
                   unsigned long start, unsigned long size)
{
    const std::vector<std::byte> source = orlix::testing::bytesOf(in);
    std::vector<std::byte> expected = before;
    for (unsigned long i = start * in.getSizeX(); i < (start + size) * in.getSizeX(); ++i) {
        expected[i] = std::byte(static_cast<unsigned char>(static_cast<unsigned char>(source[i]) + 1));
    }
    EXPECT_EQ(orlix::testing::bytesOf(out), expected);
}

template <class TAlgorithm>
void expectAddsOneOverAnyMemory()
{
    enterKernel<TAlgorithm>(typesOf(g_uint8), static_cast<processor::KernelFunction>(&TAlgorithm::kernel));
    const auto algorithm = makeAlgorithm<TAlgorithm>();
    for (const unsigned long sizeX : {1UL, 63UL, 64UL, 100UL}) {
        const auto geometry = geometry2d(g_uint8, sizeX, 12);
        const ImagePtr owned = createImage(*geometry);
        orlix::testing::fillRandom(*owned, sizeX);
        for (const GuardEdge edge : {GuardEdge::eBegin, GuardEdge::eEnd}) {
            for (const unsigned long gap : {0UL, 3UL}) {
                SCOPED_TRACE(std::to_string(sizeX) + ", gap " + std::to_string(gap));
                const WatchedImage watched(*geometry, {edge, gap, 0, 0, true});
                const std::vector<std::byte> before = orlix::testing::bytesOf(*watched.get());
                // From line 2 to the end: what follows the strip is not the image's.
                EXPECT_EQ(runOn(*algorithm, owned, watched.get(), 2, 10), "no failure");
                expectOneMore(*owned, *watched.get(), before, 2, 10);
                const ImagePtr back = createImage(*geometry);
                EXPECT_EQ(runOn(*algorithm, watched.get(), back, 0, 12), "no failure");
                expectOneMore(*watched.get(), *back, orlix::testing::bytesOf(*back), 0, 12);
                EXPECT_TRUE(watched.isOutsideIntact());
            }
        }
    }
}

TEST(KernelLevel, KernelsWithoutATailReachNothingBesideTheStrip)
{
    expectAddsOneOverAnyMemory<AddOne>();
}

TEST(KernelLevel, KernelsByLineReachNothingBesideTheStrip)
{
    expectAddsOneOverAnyMemory<AddOneByLine>();
    expectAddsOneOverAnyMemory<AddOneByJoinedLines>();
}

TEST(KernelLevel, TheModeDecidesHowManyCallsThereAre)
{
    enterKernel<AddOne>(typesOf(g_uint8), static_cast<processor::KernelFunction>(&AddOne::kernel));
    enterKernel<AddOneByLine>(typesOf(g_uint8), static_cast<processor::KernelFunction>(&AddOneByLine::kernel));
    const ImagePtr in = createImage(*geometry2d(g_uint8, 100, 6));
    const ImagePtr out = createImage(*geometry2d(g_uint8, 100, 6));
    const auto whole = makeAlgorithm<AddOne>();
    EXPECT_EQ(runOn(*whole, in, out, 1, 4), "no failure");
    ASSERT_EQ(whole->m_infos.size(), 1u);
    EXPECT_EQ(whole->m_infos[0].nbElements, 400u);
    const auto byLine = makeAlgorithm<AddOneByLine>();
    EXPECT_EQ(runOn(*byLine, in, out, 1, 4), "no failure");
    ASSERT_EQ(byLine->m_infos.size(), 4u);
    EXPECT_EQ(byLine->m_infos[3].nbElements, 100u);
    EXPECT_EQ(byLine->m_infos[3].currentLine, 3u);
    EXPECT_EQ(runOn(*byLine, in, out, 1, 0), "no failure");
    EXPECT_EQ(byLine->m_infos.size(), 4u) << "no lines, no call";
}

TEST(KernelLevel, LinesAreJoinedWhereTheyTouchInEveryStrip)
{
    using enum GuardEdge;
    enterKernel<AddOneByJoinedLines>(typesOf(g_uint8),
                                     static_cast<processor::KernelFunction>(&AddOneByJoinedLines::kernel));
    const auto geometry = geometry2d(g_uint8, 100, 6);
    const WatchedImage pitched(*geometry, {eEnd, 3, 0, 0, true});
    const ImagePtr in = createImage(*geometry);
    const ImagePtr out = createImage(*geometry);
    const auto algorithm = makeAlgorithm<AddOneByJoinedLines>();
    const auto expectCalls = [&](const ImagePtr& from, const ImagePtr& to, unsigned long nbCalls) {
        algorithm->m_infos.clear();
        EXPECT_EQ(runOn(*algorithm, from, to, 1, 4), "no failure");
        ASSERT_EQ(algorithm->m_infos.size(), nbCalls);
        for (unsigned long call = 0; call < nbCalls; ++call) {
            EXPECT_EQ(algorithm->m_infos[call].nbElements, 400 / nbCalls);
            EXPECT_EQ(algorithm->m_infos[call].currentLine, call);
            EXPECT_EQ(algorithm->m_infos[call].firstElement, 0u);
        }
    };
    expectCalls(in, out, 1);
    expectCalls(pitched.get(), out, 4);
    expectCalls(in, pitched.get(), 4);
    expectCalls(in, out, 1);
    EXPECT_EQ(runOn(*algorithm, in, out, 1, 0), "no failure");
    EXPECT_EQ(algorithm->m_infos.size(), 1u) << "no lines, no call";
}

TEST(KernelLevel, OneProcessorServesStripsOfManyTypesAndSizes)
{
    for (const eImageBufferType type : image::g_allBufferTypes) {
        if (image::elementSize(type) == 1) {
            enterKernel<AddOne>(typesOf(type), static_cast<processor::KernelFunction>(&AddOne::kernel));
        }
    }
    const auto algorithm = makeAlgorithm<AddOne>();
    for (const eImageBufferType::domain type : {g_uint8, eImageBufferType::Int8, eImageBufferType::eBufferBinary,
                                                g_uint8, eImageBufferType::eBufferUInt8Like}) {
        for (const unsigned long sizeY : {5UL, 50UL, 1UL}) {
            const ImagePtr in = createImage(*geometry2d(type, 70, sizeY));
            const ImagePtr out = createImage(*geometry2d(type, 70, sizeY));
            orlix::testing::fillRandom(*in, sizeY);
            EXPECT_EQ(runOn(*algorithm, in, out, 0, sizeY), "no failure");
            expectOneMore(*in, *out, orlix::testing::bytesOf(*out), 0, sizeY);
        }
    }
}

TEST(KernelLevel, TypesWithoutAKernelAreAFailure)
{
    const auto algorithm = makeAlgorithm<AddOneByLine>();
    const ImagePtr image = createImage(*geometry2d(eImageBufferType::Real32, 4, 4));
    EXPECT_EQ(runOn(*algorithm, image, image, 0, 4), "AddOneByLine has no kernel for type 7: convert the data first");
}

TEST(KernelLevel, KernelsGoByTheTypesOfTheAttributesThatTheClassNames)
{
    const auto pair = [](eImageBufferType first, eImageBufferType second) {
        processor::DataTypeIdentifierColl types;
        types.init(ImageBufferTypeIdentifier(first), ImageBufferTypeIdentifier(second));
        return types;
    };
    enterKernel<ByTwoTypes>(pair(g_uint8, g_uint16), static_cast<processor::KernelFunction>(&ByTwoTypes::kernel<1>));
    enterKernel<ByTwoTypes>(pair(g_uint16, g_uint8), static_cast<processor::KernelFunction>(&ByTwoTypes::kernel<2>));
    const ImagePtr narrow = createImage(*geometry2d(g_uint8, 9, 4));
    const ImagePtr wide = createImage(*geometry2d(g_uint16, 9, 4));
    const auto algorithm = makeAlgorithm<ByTwoTypes>();
    EXPECT_EQ(runOn(*algorithm, narrow, wide, 0, 4), "no failure");
    EXPECT_EQ(algorithm->m_which, 1);
    EXPECT_EQ(runOn(*algorithm, wide, narrow, 0, 4), "no failure");
    EXPECT_EQ(algorithm->m_which, 2);
    EXPECT_EQ(runOn(*algorithm, wide, wide, 0, 4),
              "ByTwoTypes has no kernel for types 4 and 4: convert the data first");
}

TEST(KernelLevel, AStripThatIsNotSetHasNoParser)
{
    const ImagePtr image = createImage(*geometry2d(g_uint8, 9, 4));
    const auto algorithm = makeAlgorithm<ByTwoTypes>();
    EXPECT_EQ(algorithm->countParsers(), 0u);
    algorithm->set<OutStrip>(boost::make_shared<image::OutputImageYStrip2d>(*image, 0, 4));
    EXPECT_EQ(algorithm->countParsers(), 1u);
    algorithm->set<InStrip>(boost::make_shared<image::InputImageYStrip2d>(*image, 0, 4));
    EXPECT_EQ(algorithm->countParsers(), 2u);
    algorithm->set<InOptStrip>(boost::make_shared<image::InputImageYStrip2d>(*image, 0, 4));
    EXPECT_EQ(algorithm->countParsers(), 3u);
}

} // namespace
} // namespace orlix::imaproc::test
