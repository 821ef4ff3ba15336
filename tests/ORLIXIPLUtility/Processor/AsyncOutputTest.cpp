// When an asynchronous run has an output to be asked for: after it has succeeded, and of a processor that is there.
#include "ORLIX/ORLIXBaseProcessing/ORLIXBaseProcessingException.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"
#include "support/Images.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::util {
namespace {

template <class TProcessor>
void expectRefused()
{
    try {
        static_cast<void>(getAsyncProcessorOutput(boost::shared_ptr<TProcessor>()));
        ADD_FAILURE() << "no exception for " << TProcessor::g_text.name;
    } catch (const processor::ORLIXBaseProcessingException& error) {
        EXPECT_EQ(std::string(error.what()), "There is no processor to read an output from: give the " +
                                                 std::string(TProcessor::g_text.name) +
                                                 " that the asynchronous call returned");
    }
}

TEST(AsyncOutputTest, aNullProcessorIsRefused)
{
    expectRefused<CopyImgLvl1>();
    expectRefused<EraseImgLvl1>();
    expectRefused<ConvertImgLvl1>();
    expectRefused<CompareImgLvl1>();
}

TEST(AsyncOutputTest, thereIsNoneBeforeTheEndOfTheRun)
{
    const ImagePtr image = testing::makeRandom(*image::geometry2d(image::eImageBufferType::UInt8, 30, 20));
    const auto erase = testing::makeInitialised<EraseImgLvl1>();
    erase->set<attr::OutImg>(image);
    EXPECT_EQ(getAsyncProcessorOutput(erase), nullptr);
    EXPECT_TRUE(erase->run(core::eSynchroType::eSynchroAsync));
    EXPECT_TRUE(erase->wait());
    EXPECT_EQ(getAsyncProcessorOutput(erase), image);
}

TEST(AsyncOutputTest, thereIsNoneAfterAFailedRunThatWasGivenOne)
{
    const ImagePtr in = testing::makeRandom(*image::geometry2d(image::eImageBufferType::UInt8, 30, 20));
    const ImagePtr out = image::createImage(*image::geometry2d(image::eImageBufferType::UInt8, 30, 21));
    const boost::shared_ptr<CopyImgLvl1> copy = copyImg_async(in, out);
    EXPECT_FALSE(copy->wait());
    EXPECT_EQ(getAsyncProcessorOutput(copy), nullptr);
}

TEST(AsyncOutputTest, aProcessorThatWasNotInitialisedIsRefused)
{
    EXPECT_EQ(testing::messageOf([] { static_cast<void>(getAsyncProcessorOutput(boost::make_shared<CopyImgLvl1>())); }),
              "Processor CopyImgLvl1 has not been initialised: call init before its attributes are used");
}

} // namespace
} // namespace orlix::imaproc::util
