// Slices of volumes whose pixels lie in any order and at any distance, out and in.
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPLUtility/Processor/GetSlice3dImg/SliceOracle.h"
#include "support/Executors.h"
#include "support/SameImages.h"
#include "support/StridedImages.h"

namespace orlix::imaproc::util {
namespace {

using image::eImageBufferType;
using testing::sameImages;
using testing::StridedForm;
using testing::StridedImage;

/// A slice of an image of one form into one of the other, and one put into an image of the other.
void expectSlices(const eImageBufferType& type, const Sizes& sizes, const StridedForm& inForm,
                  const StridedForm& outForm)
{
    StridedImage in(*volumeOf(type, sizes), inForm, testing::GuardEdge::eBegin);
    in.fillRandom(sizes[0]);
    const ImagePtr dense = in.makeDense();
    for (const eAxis::domain axis : g_axes) {
        for (const unsigned long index : someIndices(sizes, axis)) {
            SCOPED_TRACE(nameOf(*dense, axis, index) + ", from " + inForm.name + " to " + outForm.name);
            const ImagePtr expected = plainSlice(*dense, axis, index);
            const StridedImage out(*sliceOf(type, sizes, axis), outForm);
            getSlice3dImg(in.getConst(), axis, index, out.get());
            ASSERT_TRUE(sameImages(*expected, *out.makeDense()));
            ASSERT_TRUE(out.isOutsideIntact());
            ASSERT_TRUE(sameImages(*expected, *getSlice3dImg(in.getConst(), axis, index)));

            StridedImage slice(*sliceOf(type, sizes, axis), inForm);
            slice.fillRandom(index + 3);
            const ImagePtr whole = plainVolumeWith(*dense, *slice.makeDense(), axis, index);
            const StridedImage result(*volumeOf(type, sizes), outForm, testing::GuardEdge::eBegin);
            putSlice3dImg(in.getConst(), slice.getConst(), axis, index, result.get());
            ASSERT_TRUE(sameImages(*whole, *result.makeDense()));
            StridedImage inSitu(*volumeOf(type, sizes), outForm);
            inSitu.take(*dense);
            putSlice3dImg(inSitu.get(), slice.getConst(), axis, index, inSitu.get());
            ASSERT_TRUE(sameImages(*whole, *inSitu.makeDense()));
            ASSERT_TRUE(result.isOutsideIntact() && inSitu.isOutsideIntact());
        }
    }
    ASSERT_TRUE(sameImages(*dense, *in.makeDense())) << "the input is only read";
}

TEST(SliceStridesTest, everyFormToEveryForm)
{
    for (const StridedForm& in : testing::allStridedForms()) {
        for (const StridedForm& out : testing::fewUnderThreadSanitizer(testing::g_stridedForms)) {
            expectSlices(eImageBufferType::UInt16, {9, 6, 5, 2, 2}, in, out);
        }
    }
}

TEST(SliceStridesTest, everyTypeAndShape)
{
    const std::vector<StridedForm> forms = testing::allStridedForms();
    unsigned long turn = 0;
    for (const eImageBufferType type : testing::fewUnderThreadSanitizer(image::g_allBufferTypes)) {
        for (const Sizes& sizes : g_volumes) {
            for (unsigned long i = 0; i < 5; ++i) {
                const StridedForm& out = testing::g_stridedForms[++turn % testing::g_stridedForms.size()];
                expectSlices(type, sizes, forms[turn * 3 % forms.size()], out);
            }
        }
    }
}

TEST(SliceStridesTest, manyStripsUnderEveryExecutor)
{
    const std::vector<StridedForm> forms = testing::allStridedForms();
    unsigned long turn = 0;
    for (const testing::NamedExecutor& each : testing::makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        const testing::ScopedExecutor scoped(each.executor);
        for (unsigned long i = 0; i < 2; ++i) {
            const StridedForm& in = forms[++turn % forms.size()];
            expectSlices(eImageBufferType::UInt8, {20, 61, 141, 1, 1}, in,
                         testing::g_stridedForms[turn * 7 % testing::g_stridedForms.size()]);
        }
    }
}

} // namespace
} // namespace orlix::imaproc::util
