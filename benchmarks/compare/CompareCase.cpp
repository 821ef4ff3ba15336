#include "compare/CompareCase.h"

namespace orlix::bench {

namespace {

using image::eImageBufferType;

constexpr eImageBufferType::domain g_types[] = {
    eImageBufferType::UInt8,  eImageBufferType::Int8,  eImageBufferType::UInt16, eImageBufferType::Int16,
    eImageBufferType::UInt32, eImageBufferType::Int32, eImageBufferType::Real32};
constexpr std::array<const char*, 4> g_modes = {"exactly", "absolutely", "relatively", "both-ways"};

} // namespace

std::string CompareCase::getName() const
{
    return std::string(g_modes[mode]) + '/' + image::getBufferTypeName(type);
}

boost::shared_ptr<const imaproc::attr::ImgComparisonTolerance> CompareCase::makeTolerance() const
{
    using namespace imaproc::attr;
    switch (mode) {
    case eImgComparisonToleranceMode::eAbsoluteTolerance: return createImgComparisonAbsoluteTolerance(3);
    case eImgComparisonToleranceMode::eRelativeTolerance: return createImgComparisonRelativeTolerance(0.1F);
    case eImgComparisonToleranceMode::eBothTolerances: return createImgComparisonTolerance(3, 0.1F);
    default: return createImgComparisonNoTolerance();
    }
}

std::vector<CompareCase> makeCompareCases()
{
    std::vector<CompareCase> cases;
    for (const auto mode :
         {eImgComparisonToleranceMode::eNoTolerance, eImgComparisonToleranceMode::eAbsoluteTolerance,
          eImgComparisonToleranceMode::eRelativeTolerance, eImgComparisonToleranceMode::eBothTolerances}) {
        for (const eImageBufferType type : g_types) {
            cases.push_back({type, mode});
        }
    }
    return cases;
}

std::string nameComparison(const CompareCase& work, const CompareSize& size, unsigned long nbThreads)
{
    return "compareImg/" + work.getName() + '/' + size.name + "/threads:" + std::to_string(nbThreads);
}

} // namespace orlix::bench
