// Failed calls and runs tell which message says so: that of the rule or step itself.
#include "ORLIX/ORLIXBaseProcessing/Logger/ORLIXBaseProcessingLogMessages.h"
#include "ORLIX/ORLIXUtil/BaseException.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPL/ORLIXImageProcessing/Logger/ORLIXImageProcessingLogMessages.h"
#include "support/Images.h"

#include <functional>

namespace orlix::imaproc::util {
namespace {

using image::eImageBufferType;
using image::geometry2d;

struct FailureNumbers : ::testing::Test
{
    ImagePtr m_small = testing::makeRandom(*geometry2d(eImageBufferType::UInt8, 8, 8));
    ImagePtr m_large = testing::makeRandom(*geometry2d(eImageBufferType::UInt8, 9, 8));
    ImagePtr m_real = testing::makeRandom(*geometry2d(eImageBufferType::Real32, 8, 8));
};

/// What the function throws and what the run that it starts results in: the same text and number.
template <class TStart>
MessageNumber numberOf(const std::function<void()>& call, const TStart& start)
{
    const ProcessingResult<bool> result = start()->wait();
    EXPECT_FALSE(result);
    try {
        call();
    } catch (const BaseException& exception) {
        EXPECT_EQ(exception.getMessage(), result.getMessage());
        EXPECT_EQ(exception.getMessageNumber(), result.getMessage().getNumber());
        return exception.getMessageNumber();
    }
    return {};
}

TEST_F(FailureNumbers, areThoseOfRules)
{
    EXPECT_EQ(numberOf([&] { copyImg(m_small, m_large); }, [&] { return copyImg_async(m_small, m_large); }),
              messageNumber<eImageRuleMessage>(eImageRuleMessage::eSizeOrTypeDiffers));
    EXPECT_EQ(numberOf([&] { convertImg(m_real, m_large); }, [&] { return convertImg_async(m_real, m_large); }),
              messageNumber<eImageRuleMessage>(eImageRuleMessage::eSizeDiffers));
}

TEST_F(FailureNumbers, areThoseOfPropertiesWithWordsOfTheirOwn)
{
    EXPECT_EQ(
        numberOf([&] { getROI2dImg(m_small, 1, 1, 8, 2); }, [&] { return getROI2dImg_async(m_small, 1, 1, 8, 2); }),
        messageNumber<eImageRuleMessage>(eImageRuleMessage::eRegionOutside));
    EXPECT_EQ(numberOf([&] { putROI2dImg(m_small, m_large, 0, 0); },
                       [&] { return putROI2dImg_async(m_small, m_large, 0, 0); }),
              messageNumber<eImageRuleMessage>(eImageRuleMessage::eRegionOutside));
}

TEST_F(FailureNumbers, areThoseOfRegionsWhoseEndComesRoundToASmallNumber)
{
    EXPECT_EQ(numberOf([&] { getROI2dImg(m_small, ~0UL, 1, 2, 2); },
                       [&] { return getROI2dImg_async(m_small, ~0UL, 1, 2, 2); }),
              messageNumber<eImageRuleMessage>(eImageRuleMessage::eRegionOutside));
}

TEST_F(FailureNumbers, areThoseOfAttributes)
{
    EXPECT_EQ(numberOf([&] { copyImg(nullptr, m_large); }, [&] { return copyImg_async(nullptr, m_large); }),
              messageNumber<processor::eProcessorMessage>(processor::eProcessorMessage::eAttributeIsNull));
}

/// Whatever fails below the rules, it says so under the name of a catalogue.
TEST_F(FailureNumbers, areReadable)
{
    const MessageNumber number =
        numberOf([&] { copyImg(m_small, m_real); }, [&] { return copyImg_async(m_small, m_real); });
    EXPECT_EQ(number.catalogue, "orlix::imaproc::eImageRuleMessage");
    EXPECT_EQ(number.id, 0);
}

} // namespace
} // namespace orlix::imaproc::util
