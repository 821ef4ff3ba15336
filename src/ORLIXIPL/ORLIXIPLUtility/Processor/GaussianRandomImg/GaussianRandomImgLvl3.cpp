#include "ORLIX/ORLIXBaseProcessing/ProcessorRegistration.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ElementValue.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GaussianRandomImg/GaussianRandomImgLvl3.kernel.h"

namespace orlix::imaproc::util {

ORLIX_KERNEL_TABLE(GaussianRandomImgLvl3, plain, EveryBufferType)

namespace {

const processor::ProcessorRegistration<GaussianRandomImgLvl3, eProcessorMessage>
    g_registration(GaussianRandomImgLvl3Kernels::g_tables);

} // namespace

GaussianRandomImgLvl3::GaussianRandomImgLvl3() = default;
GaussianRandomImgLvl3::~GaussianRandomImgLvl3() = default;

processor::StepResult GaussianRandomImgLvl3::preProcess()
{
    const attr::GaussianParameter& parameter = accessAttribute<attr::InGaussianParameter>()->getDataItemNode();
    m_mean = toElementValue(parameter.get<attr::GaussianParameter::Mean>()).as<float>();
    m_stdDev = toElementValue(parameter.get<attr::GaussianParameter::StdDev>()).as<float>();
    return RandomKernelLevel::preProcess();
}

} // namespace orlix::imaproc::util
