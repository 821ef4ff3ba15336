// Regions of images whose pixels lie in any order and at any distance.
#include "ORLIXIPLUtility/Processor/Region/RegionTest.h"
#include "support/Executors.h"
#include "support/SameImages.h"
#include "support/StridedImages.h"

namespace orlix::imaproc::util {
namespace {

using image::eImageBufferType;
using testing::sameImages;
using testing::StridedForm;
using testing::StridedImage;

class RegionStridesTest : public RegionTest
{
protected:
    /// Takes the region out of an image of one form into one of the other, and puts it back elsewhere.
    void expectRegions(const image::BaseImageGeometry& whole, const Region& each, const StridedForm& inForm,
                       const StridedForm& outForm)
    {
        SCOPED_TRACE(whole.toString() + ", from " + inForm.name + " to " + outForm.name);
        StridedImage in(whole, inForm, testing::GuardEdge::eBegin);
        in.fillRandom(each.x + 1);
        const ImagePtr denseIn = in.makeDense();
        const Region region = over(*denseIn, each);
        const StridedImage out(roiGeometry(*denseIn, region), outForm);
        m_op.getInto(in.getConst(), region, out.get());
        ASSERT_EQ(testing::bytesOf(*out.makeDense()), regionBytes(*denseIn, region));
        ASSERT_TRUE(out.isOutsideIntact());
        ASSERT_EQ(testing::bytesOf(*m_op.get(in.getConst(), region)), regionBytes(*denseIn, region));

        StridedImage roi(out.get()->getGeometry(), inForm);
        roi.fillRandom(7);
        const ImagePtr expected = withRegion(*denseIn, *roi.makeDense(), region);
        const StridedImage result(whole, outForm, testing::GuardEdge::eBegin);
        m_op.putInto(in.getConst(), roi.getConst(), region, result.get());
        ASSERT_TRUE(sameImages(*expected, *result.makeDense()));
        StridedImage changed(whole, outForm);
        changed.take(*denseIn);
        m_op.put(changed.get(), roi.getConst(), region);
        ASSERT_TRUE(sameImages(*expected, *changed.makeDense()));
        ASSERT_TRUE(result.isOutsideIntact() && changed.isOutsideIntact());
        ASSERT_TRUE(sameImages(*denseIn, *in.makeDense())) << "the input is only read";
    }
};

INSTANTIATE_TEST_SUITE_P(Region, RegionStridesTest, ::testing::Values(false, true),
                         [](const auto& info) { return info.param ? "Of3Dimensions" : "Of2Dimensions"; });

TEST_P(RegionStridesTest, everyFormToEveryForm)
{
    for (const StridedForm& in : testing::allStridedForms()) {
        for (const StridedForm& out : testing::fewUnderThreadSanitizer(testing::g_stridedForms)) {
            expectRegions(geometry(eImageBufferType::UInt16, 40, 7, 3, 2, 2), {3, 1, 1, 33, 5, 2}, in, out);
        }
    }
}

TEST_P(RegionStridesTest, everyTypeAndWidth)
{
    const std::vector<StridedForm> forms = testing::allStridedForms();
    unsigned long turn = 0;
    for (const eImageBufferType type : testing::fewUnderThreadSanitizer(image::g_allBufferTypes)) {
        for (const unsigned long width :
             testing::fewUnderThreadSanitizer(std::array{0UL, 1UL, 2UL, 63UL, 64UL, 65UL, 199UL, 200UL})) {
            for (const StridedForm& in : forms) {
                const StridedForm& out = testing::g_stridedForms[++turn % testing::g_stridedForms.size()];
                const Region region = {width % 5, 1, 0, width, 4, 2};
                expectRegions(geometry(type, width + width % 5 + width % 2, 5, 3), region, in, out);
                // A call on one plan, or on one volume, may be done straight away.
                if (!GetParam()) {
                    expectRegions(*image::geometry2d(type, width + width % 5 + 1, 6), region, in, out);
                }
            }
        }
    }
}

TEST_P(RegionStridesTest, manyStripsOnEveryExecutor)
{
    const image::BaseImageGeometry whole = geometry(eImageBufferType::UInt8, 431, 301, 5);
    const std::vector<StridedForm> forms = testing::allStridedForms();
    unsigned long turn = 0;
    for (const testing::NamedExecutor& named : testing::makeAllExecutors()) {
        SCOPED_TRACE(named.name);
        const testing::ScopedExecutor scope(named.executor);
        for (unsigned long i = 0; i < 3; ++i) {
            const StridedForm& in = forms[++turn % forms.size()];
            const StridedForm& out = testing::g_stridedForms[turn * 7 % testing::g_stridedForms.size()];
            expectRegions(whole, {11, 3, 1, 403, 291, 4}, in, out);
        }
    }
}

} // namespace
} // namespace orlix::imaproc::util
