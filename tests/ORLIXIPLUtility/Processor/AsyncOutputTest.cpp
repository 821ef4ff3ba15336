// What every operator's asynchronous form answers when it is asked for the output of no processor.
#include "ORLIX/ORLIXBaseProcessing/ORLIXBaseProcessingException.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::util {
namespace {

template <class TProcessor>
void expectRefused()
{
    try {
        static_cast<void>(getAsyncProcessorOutput(boost::shared_ptr<TProcessor>()));
        ADD_FAILURE() << "no exception for " << TProcessor::g_name;
    } catch (const processor::ORLIXBaseProcessingException& error) {
        EXPECT_EQ(std::string(error.what()), "There is no processor to read an output from: give the " +
                                                 std::string(TProcessor::g_name) +
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

} // namespace
} // namespace orlix::imaproc::util
