// Values at points of images whose pixels lie in any order and at any distance, by both methods.
#include "ORLIXIPLUtility/Processor/ExtractImgValues/ValuesOracle.h"
#include "support/Executors.h"
#include "support/StridedImages.h"

namespace orlix::imaproc::util::test {
namespace {

using image::eImageBufferType;
using testing::StridedForm;
using testing::StridedImage;

template <class TKind>
class ExtractImgValuesStridesTest : public ::testing::Test
{
protected:
    using Place = typename TKind::Place;

    static void expectValues(const eImageBufferType& type, const std::array<unsigned long, 3>& sizes,
                             const StridedForm& form, unsigned long nbPoints)
    {
        SCOPED_TRACE(form.name + " " + std::string(image::getBufferTypeName(type)) + " " +
                     ::testing::PrintToString(sizes));
        const ImagePtr values = TKind::make(type, sizes[0], sizes[1], sizes[2]);
        fillValues(*values, nbPoints);
        StridedImage image(values->getGeometry(), form);
        image.take(*values);
        const ImagePtr dense = image.makeDense(); // where pixels share memory, it isn't what they were filled with
        const std::vector<Place> places = pointsWithin<Place>(*dense, nbPoints, nbPoints);
        const auto coords = collOf(places);
        for (const unsigned policy : {0U, 1U, 2U}) {
            const auto each = static_cast<Policy::domain>(policy);
            ASSERT_TRUE(
                hasExpected(*dense, places, policy, valuesIn(TKind::call(image.getConst(), coords, each, tiled()))))
                << "tiled";
            ASSERT_TRUE(
                hasExpected(*dense, places, policy, valuesIn(TKind::call(image.getConst(), coords, each, striped()))))
                << "striped";
        }
        EXPECT_TRUE(image.isOutsideIntact());
    }
};
using Kinds = ::testing::Types<InPlans, InVolumes>;
TYPED_TEST_SUITE(ExtractImgValuesStridesTest, Kinds);

TYPED_TEST(ExtractImgValuesStridesTest, everyFormTypeAndSize)
{
    for (const StridedForm& form : testing::allStridedForms()) {
        for (const eImageBufferType type : testing::fewUnderThreadSanitizer(image::g_allBufferTypes)) {
            for (const auto& sizes :
                 {std::array{1UL, 1UL, 1UL}, std::array{1UL, 7UL, 3UL}, std::array{9UL, 1UL, 2UL},
                  std::array{3UL, 3UL, 3UL}, std::array{63UL, 4UL, 2UL}, std::array{65UL, 33UL, 5UL}}) {
                this->expectValues(type, sizes, form, 60);
            }
        }
    }
}

TYPED_TEST(ExtractImgValuesStridesTest, manyStripsAndGroupsOnEveryExecutor)
{
    const std::vector<StridedForm> forms = testing::allStridedForms();
    unsigned long turn = 0;
    for (const testing::NamedExecutor& each : testing::makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        const testing::ScopedExecutor scoped(each.executor);
        this->expectValues(eImageBufferType::UInt16, {301, 900, 2}, forms[++turn % forms.size()], 3000);
        this->expectValues(eImageBufferType::UInt16, {301, 900, 2}, forms[++turn % forms.size()], 3000);
    }
}

} // namespace
} // namespace orlix::imaproc::util::test
