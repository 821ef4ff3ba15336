// Sequences whose pixels lie in any order and at any distance, one after the other.
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "support/Images.h"
#include "support/StridedImages.h"

namespace orlix::imaproc::util {
namespace {

using image::eImageBufferType;
using image::geometry5d;
using testing::bytesOf;
using testing::StridedForm;
using testing::StridedImage;

void expectAppended(const eImageBufferType& type, const std::array<unsigned long, 4>& sizes, const StridedForm& one,
                    const StridedForm& other, const StridedForm& result)
{
    SCOPED_TRACE(one.name + " and " + other.name + " to " + result.name + ", " +
                 std::string(image::getBufferTypeName(type)) + " " + ::testing::PrintToString(sizes));
    const auto geometry = [&](unsigned long steps) {
        return *geometry5d(type, sizes[0], sizes[1], sizes[2], sizes[3], steps);
    };
    StridedImage first(geometry(3), one);
    StridedImage second(geometry(2), other, testing::GuardEdge::eBegin);
    first.fillRandom(1);
    second.fillRandom(2);
    std::vector<std::byte> expected = bytesOf(*first.makeDense());
    const std::vector<std::byte> others = bytesOf(*second.makeDense());
    expected.insert(expected.end(), others.begin(), others.end());

    EXPECT_EQ(bytesOf(*appendSeqImg(first.getConst(), second.getConst())), expected);
    const StridedImage out(geometry(5), result);
    appendSeqImg(first.getConst(), second.getConst(), out.get());
    EXPECT_EQ(bytesOf(*out.makeDense()), expected);
    const ImagePtr grown = first.makeDense();
    appendSeqImg(grown, second.getConst(), grown);
    EXPECT_EQ(bytesOf(*grown), expected);
    EXPECT_TRUE(out.isOutsideIntact() && first.isOutsideIntact() && second.isOutsideIntact());
}

TEST(AppendSeqImgStridesTest, everyFormTypeAndWidth)
{
    const std::vector<StridedForm> forms = testing::allStridedForms();
    unsigned long turn = 0;
    for (const StridedForm& form : forms) {
        for (const eImageBufferType type : testing::fewUnderThreadSanitizer(image::g_allBufferTypes)) {
            for (const unsigned long width :
                 testing::fewUnderThreadSanitizer(std::array{1UL, 63UL, 64UL, 65UL, 199UL})) {
                ++turn;
                const StridedForm& other = forms[turn * 3 % forms.size()];
                const StridedForm& result = testing::g_stridedForms[turn * 7 % testing::g_stridedForms.size()];
                expectAppended(type, {width, 5, 1, 1}, form, other, result);
                expectAppended(type, {width, 4, 2, 2}, form, other, result);
            }
        }
    }
}

} // namespace
} // namespace orlix::imaproc::util
