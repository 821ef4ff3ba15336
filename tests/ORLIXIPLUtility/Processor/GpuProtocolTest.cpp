// Who does the work of a level, what the device is asked in which order, and what each failure comes to.
#include "ORLIX/ORLIXBaseProcessing/ProcessorFactory.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPLUtility/GpuChecks.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"
#include "support/StepImages.h"

namespace orlix::imaproc::util {
namespace {

using image::CudaImage;
using image::eImageBufferType;
using image::geometry2d;
using image::geometry5d;
using image::toDevice;
using image::toHost;
using processor::eProviderStatus;
using testing::eGpuCall;
using testing::makeInitialised;
using testing::messageOf;
using testing::sameImages;
using testing::SoftwareGpuLayer;

constexpr auto g_sync = core::eSynchroType::eSynchroSync;
constexpr const char* g_text = "unspecified launch failure";

class GpuProtocol : public ::testing::Test
{
protected:
    GpuProtocol() { EXPECT_TRUE(core::setGpuSupportActivated(true)); }
    ~GpuProtocol() override
    {
        static_cast<void>(core::setGpuSupportActivated(false));
        m_host.reset(), m_in.reset(), m_out.reset();
        EXPECT_EQ(m_layer.getNbAllocations(), 0U) << "left behind";
        EXPECT_TRUE(m_layer.isSurroundingIntact());
    }

    /// The calls since the last time.
    std::vector<eGpuCall> takeCalls()
    {
        std::vector<eGpuCall> calls = m_layer.getCalls();
        m_layer.forgetCalls();
        return calls;
    }
    unsigned long nbHolds(const ImagePtr& image) { return dynamic_cast<CudaImage&>(*image).getNbPlanTableHolds(); }

    SoftwareGpuLayer m_layer{2};
    hard::GpuLayerScope m_scope{m_layer};
    ImagePtr m_host = testing::makeRandom(*geometry2d(eImageBufferType::UInt8, 50, 40));
    ImagePtr m_in = toDevice(*m_host);
    ImagePtr m_out = toDevice(*testing::makeRandom(m_host->getGeometry(), 2));
};

/// What a level answers to whether the device does its work, and how many elements the device gets.
template <class TLevel>
std::pair<eProviderStatus::domain, unsigned long> ask(TLevel& level, std::string* text = nullptr)
{
    boost::shared_ptr<core::BaseActionProvider> provider;
    const processor::ProviderResult result = level.tryToLaunchGpuProcess(core::BasePriority(0), provider);
    if (text != nullptr) {
        *text = std::string(result.message);
    }
    const unsigned long nbElements = provider ? provider->getNbElements() : 0;
    if (provider) {
        provider->clearDerived();
    }
    return {result.status, nbElements};
}
using Answer = std::pair<eProviderStatus::domain, unsigned long>;
constexpr Answer g_none{eProviderStatus::eProviderNone, 0};
constexpr Answer g_ready{eProviderStatus::eProviderReady, 1};

TEST_F(GpuProtocol, theDeviceWorksWhereAllImagesLieThereAndSupportIsOn)
{
    const auto copy = makeInitialised<CopyImgLvl2>();
    copy->set<attr::InSubImg2d>(m_in);
    copy->set<attr::OutImg>(m_out);
    EXPECT_EQ(ask(*copy), g_ready);
    copy->set<attr::InSubImg2d>(m_host);
    EXPECT_EQ(ask(*copy), g_none);
    copy->set<attr::InSubImg2d>(m_in);
    copy->set<attr::OutImg>(m_host);
    EXPECT_EQ(ask(*copy), g_none);
    copy->set<attr::OutImg>(m_out);
    ASSERT_TRUE(core::setGpuSupportActivated(false));
    EXPECT_EQ(ask(*copy), g_none);
    ASSERT_TRUE(core::setGpuSupportActivated(true));
    EXPECT_EQ(ask(*copy), g_ready);

    const auto erase = makeInitialised<EraseImgLvl2>();
    erase->set<attr::OutSubImg2d>(m_host);
    EXPECT_EQ(ask(*erase), g_none);
    erase->set<attr::OutSubImg2d>(m_out);
    EXPECT_EQ(ask(*erase), g_ready) << "values say nothing";

    const auto threshold = makeInitialised<BasicThresholdImgLvl2>();
    threshold->set<attr::InSubImg2d>(m_in);
    threshold->set<attr::InThresholdMin>(1);
    threshold->set<attr::OutBinImg>(m_host);
    EXPECT_EQ(ask(*threshold), g_none);
    threshold->set<attr::OutBinImg>(m_out);
    EXPECT_EQ(ask(*threshold), g_ready);

    const auto convert = makeInitialised<ConvertImgLvl2>();
    convert->set<attr::InSubImg2d>(m_in);
    convert->set<attr::OutImg>(m_out);
    EXPECT_EQ(ask(*convert), g_ready);
    EXPECT_EQ(m_layer.countCalls(eGpuCall::launch), 0U) << "nobody has run";
}

TEST_F(GpuProtocol, imagesThatAreNotSetSayNothingAndWhatCannotBeCutIsAFailure)
{
    const auto copy = makeInitialised<CopyImgLvl2>();
    std::string text;
    EXPECT_EQ(ask(*copy, &text), Answer(eProviderStatus::eProviderFailed, 0)) << "no image lies on the host";
    EXPECT_EQ(text, "There is no image to cut: set the attribute that holds it");
    copy->set<attr::OutImg>(m_host);
    EXPECT_EQ(ask(*copy), g_none);
}

TEST_F(GpuProtocol, aLevelOfItsOwnIsWholeWorkOfOneLaunch)
{
    takeCalls();
    const auto copy = makeInitialised<CopyImgLvl2>();
    copy->set<attr::InSubImg2d>(m_in);
    copy->set<attr::OutImg>(m_out);
    EXPECT_TRUE(copy->run(g_sync));
    const std::vector<eGpuCall> table = {eGpuCall::selectDevice, eGpuCall::allocate, eGpuCall::upload};
    std::vector<eGpuCall> expected = table;
    expected.insert(expected.end(), table.begin(), table.end());
    expected.insert(expected.end(), {eGpuCall::launch, eGpuCall::synchronize, eGpuCall::takeLastError});
    EXPECT_EQ(takeCalls(), expected) << "tables, the launch, the wait, and what came of it";
    const hard::GpuLaunch& launch = m_layer.getLastLaunch();
    EXPECT_STREQ(launch.kernel, "CopyImg_knl<unsigned char>");
    EXPECT_EQ((std::array{launch.grid.x, launch.grid.y, launch.grid.z}), (std::array{2U, 2U, 1U}));
    EXPECT_EQ((std::array{launch.block.x, launch.block.y, launch.block.z}), (std::array{32U, 32U, 1U}));

    EXPECT_TRUE(copy->run(g_sync));
    EXPECT_EQ(m_layer.countCalls(eGpuCall::allocate), 0U) << "tables are made once";
    EXPECT_EQ(m_layer.countCalls(eGpuCall::upload), 0U);
    EXPECT_EQ(m_layer.countCalls(eGpuCall::launch), 1U);
}

TEST_F(GpuProtocol, copyAndConvertFreeTheirTablesWhateverCameOfThem)
{
    for (const bool bFails : {false, true}) {
        if (bFails) {
            m_layer.failCall(eGpuCall::launch, 0, g_text);
            m_layer.failCall(eGpuCall::launch, 1, g_text);
        }
        EXPECT_EQ(messageOf([&] { copyImg(m_in, m_out); }) == "no exception", !bFails);
        EXPECT_EQ(messageOf([&] { convertImg(m_in, m_out); }) == "no exception", !bFails);
        EXPECT_EQ(nbHolds(m_in), 0U);
        EXPECT_EQ(nbHolds(m_out), 0U);
    }
    m_layer.failCall(eGpuCall::allocate, 1, g_text);
    const ImagePtr in = toDevice(*m_host); // its table is the second allocation
    EXPECT_NE(messageOf([&] { copyImg(in, m_out); }), "no exception");
    EXPECT_EQ(nbHolds(m_out), 0U);
}

TEST_F(GpuProtocol, eraseAndThresholdKeepTheirTables)
{
    eraseImg(m_out, 1);
    eraseImg(m_out, 2);
    EXPECT_EQ(nbHolds(m_out), 2U);
    const ImagePtr binary = image::createCudaImage(*geometry2d(eImageBufferType::eBufferBinary, 50, 40));
    const auto threshold = makeInitialised<BasicThresholdImgLvl1>();
    threshold->set<attr::InImg>(m_in);
    threshold->set<attr::InThresholdMin>(1);
    threshold->set<attr::InThresholdMax>(2);
    threshold->set<attr::OutBinImg>(binary);
    EXPECT_TRUE(threshold->run(g_sync));
    EXPECT_EQ(nbHolds(m_in), 1U);
    EXPECT_EQ(nbHolds(binary), 1U);
    takeCalls();
    eraseImg(m_out, 3);
    EXPECT_EQ(m_layer.countCalls(eGpuCall::allocate), 0U) << "yet no run takes more memory";
}

TEST_F(GpuProtocol, aFailureOfAnyStepIsTheRunsAndNobodyElseTries)
{
    const ImagePtr before = toHost(*m_out);
    for (const eGpuCall call : {eGpuCall::selectDevice, eGpuCall::allocate, eGpuCall::upload, eGpuCall::launch,
                                eGpuCall::synchronize, eGpuCall::takeLastError}) {
        for (unsigned nbBefore = 0; nbBefore < (call < eGpuCall::launch ? 2U : 1U); ++nbBefore) {
            const ImagePtr in = toDevice(*m_host), out = toDevice(*before); // without tables
            m_layer.failCall(call, nbBefore, g_text);
            const std::string text = messageOf([&] { copyImg(in, out); });
            EXPECT_NE(text.find(g_text), std::string::npos) << text;
            EXPECT_EQ(nbHolds(in) + nbHolds(out), 0U);
            const bool bLaunched = call > eGpuCall::launch;
            EXPECT_TRUE(sameImages(*toHost(*out), bLaunched ? *m_host : *before));
            copyImg(in, out);
            EXPECT_TRUE(sameImages(*toHost(*out), *m_host)) << "the next run works";
        }
    }
}

TEST_F(GpuProtocol, aFailureAmongManyPlansEndsTheRunWithItsText)
{
    const ImagePtr host = testing::makeRandom(*geometry5d(eImageBufferType::Int16, 9, 9, 4, 2, 1));
    const ImagePtr in = toDevice(*host);
    for (unsigned nbBefore = 0; nbBefore < 8; ++nbBefore) {
        m_layer.failCall(eGpuCall::launch, nbBefore, g_text);
        EXPECT_NE(messageOf([&] { static_cast<void>(copyImg(in)); }).find(g_text), std::string::npos);
    }
    EXPECT_TRUE(sameImages(*toHost(*copyImg(in)), *host));
}

TEST_F(GpuProtocol, aPlanBeyondTheGridIsAFailedLaunch)
{
    const ImagePtr device = image::createCudaImage(*geometry2d(eImageBufferType::UInt8, 1, 32 * 65535 + 1));
    EXPECT_NE(messageOf([&] { eraseImg(device, 1); }).find("invalid configuration argument"), std::string::npos);
    const ImagePtr widest = image::createCudaImage(*geometry2d(eImageBufferType::UInt8, 1, 32 * 65535));
    EXPECT_EQ(messageOf([&] { eraseImg(widest, 1); }), "no exception");
}

TEST_F(GpuProtocol, imagesOfSeveralDevicesAreRefused)
{
    const ImagePtr other = toDevice(*m_host, 1);
    takeCalls();
    EXPECT_NE(messageOf([&] {
                  copyImg(m_in, other);
              }).find("InSubGpuImg is on GPU 0, OutImg on GPU 1: bring all images to one of them with toDevice first"),
              std::string::npos);
    EXPECT_EQ(takeCalls(), std::vector<eGpuCall>());
    eraseImg(other, 5);
    EXPECT_EQ(m_layer.getSelectedDevice(), 1) << "the images' device does the work";
}

TEST_F(GpuProtocol, level3TakesWholeImagesOfOneType)
{
    const ImagePtr host = testing::makeRandom(*geometry5d(eImageBufferType::UInt32, 33, 5, 3, 2, 2));
    const ImagePtr out = image::createCudaImage(host->getGeometry());
    const auto copy = makeInitialised<CopyImgGpuLvl3>();
    copy->set<attr::InSubGpuImg>(toDevice(*host));
    copy->set<attr::OutImg>(out);
    EXPECT_TRUE(copy->run(g_sync));
    EXPECT_EQ(m_layer.getLastLaunch().grid.z, 12U);
    EXPECT_EQ(copy->getDeviceIndex(), 0);
    EXPECT_TRUE(sameImages(*toHost(*out), *host));

    const ImagePtr onOther = image::createCudaImage(host->getGeometry(), 1);
    copy->set<attr::InSubGpuImg>(toDevice(*host, 1));
    copy->set<attr::OutImg>(onOther);
    EXPECT_TRUE(copy->run(g_sync));
    EXPECT_EQ(copy->getDeviceIndex(), 1);

    const auto types = testing::withTypes(*geometry5d(eImageBufferType::UInt8, 4, 4, 1, 1, 1),
                                          {eImageBufferType::UInt8, eImageBufferType::Real32});
    const auto erase = makeInitialised<EraseImgGpuLvl3>();
    erase->set<attr::OutImg>(image::createCudaImage(types));
    EXPECT_EQ(erase->run(g_sync).getMessage(), "Elements of time step 1 are of type Real32, in an image of 4x4x1x1x2 "
                                               "UInt8/Real32: ask for them by the C++ type that stores it");
}

TEST_F(GpuProtocol, level3RefusesImagesOfTheHost)
{
    const auto made =
        processor::ProcessorFactory::getInstance().createProcessor("orlix::imaproc::util::CopyImgGpuLvl3");
    ASSERT_TRUE(made->init(processor::eProcessorRulePolicy::eRulePolicyCheck));
    dynamic_cast<attr::InSubGpuImg&>(made->getAttribute("InSubGpuImg")).init(m_in);
    dynamic_cast<attr::OutImg&>(made->getAttribute("OutImg")).init(m_host);
    const ImagePtr before = testing::plainCopy(*m_host);
    EXPECT_EQ(made->run(g_sync).getMessage(),
              "OutImg, which is 50x40x1x1x1 UInt8, is in the memory of the host, but has "
              "to be on a GPU: bring it there with toDevice first");
    EXPECT_TRUE(sameImages(*m_host, *before));
}

TEST_F(GpuProtocol, level3ChecksTheRulesOfItsOperator)
{
    const auto copy = makeInitialised<CopyImgGpuLvl3>();
    copy->set<attr::InSubGpuImg>(m_in);
    copy->set<attr::OutImg>(image::createCudaImage(*geometry2d(eImageBufferType::Int8, 50, 40)));
    EXPECT_EQ(copy->run(g_sync).getMessage(), "OutImg is 50x40x1x1x1 Int8, InSubGpuImg is 50x40x1x1x1 UInt8: sizes and "
                                              "element types have to be the same");
    const auto convert = makeInitialised<ConvertImgGpuLvl3>();
    convert->set<attr::InSubGpuImg>(m_in);
    convert->set<attr::OutImg>(image::createCudaImage(*geometry2d(eImageBufferType::Int8, 50, 41)));
    EXPECT_NE(convert->run(g_sync).getMessage().find("have to be the same"), std::string::npos);
    const auto threshold = makeInitialised<BasicThresholdImgGpuLvl3>();
    threshold->set<attr::InSubGpuImg>(m_in);
    threshold->set<attr::OutBinImg>(image::createCudaImage(*geometry2d(eImageBufferType::eBufferBinary, 50, 40)));
    const auto messageFor = [&](double min, double max) {
        threshold->set<attr::InThresholdMin>(min);
        threshold->set<attr::InThresholdMax>(max);
        return threshold->run(g_sync).getMessage();
    };
    EXPECT_EQ(messageFor(1, 2), "");
    EXPECT_NE(messageFor(3, 2), "");
    EXPECT_NE(messageFor(-1, 2).find("InThresholdMin"), std::string::npos);
    EXPECT_NE(messageFor(1, 256).find("InThresholdMax"), std::string::npos);
}

std::vector<unsigned> keysOf(const processor::CudaFunctionSelector& selector)
{
    std::vector<unsigned> keys;
    for (const processor::CudaFunctionIdentifier& row : selector.getFunctions()) {
        keys.push_back(row.getDataTypes().getKey());
    }
    return keys;
}

TEST(GpuRows, standInTheOrderOfTypes)
{
    std::vector<ImageBufferTypeIdentifier> order;
    for (const unsigned type : {1, 2, 3, 4, 5, 6, 7, 8, 11, 9, 10}) {
        order.emplace_back(static_cast<eImageBufferType::domain>(type));
    }
    std::vector<unsigned> single, pairs;
    processor::DataTypeIdentifierColl types;
    for (const ImageBufferTypeIdentifier& in : order) {
        types.init(in);
        single.push_back(types.getKey());
        for (const ImageBufferTypeIdentifier& out : order) {
            types.init(in, out);
            pairs.push_back(types.getKey());
        }
    }
    EXPECT_EQ(keysOf(CopyImgGpuLvl3::accessFunctionSelector()), single);
    EXPECT_EQ(keysOf(EraseImgGpuLvl3::accessFunctionSelector()), single);
    EXPECT_EQ(keysOf(BasicThresholdImgGpuLvl3::accessFunctionSelector()), single);
    EXPECT_EQ(keysOf(ConvertImgGpuLvl3::accessFunctionSelector()), pairs);
}

} // namespace
} // namespace orlix::imaproc::util
