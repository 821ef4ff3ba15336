// What the levels of random operators have beyond those of others: they hand down which run their numbers belong to,
// and where in the image.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/RandomRun.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/DispatchLevel.h"

#include <optional>
#include <utility>

namespace orlix::imaproc::util {

/// The run that a level was told to belong to, for its next use alone: an idle processor belongs to none.
class GivenRandomRun
{
public:
    void give(const RandomRun& run) { m_run = run; }
    /// That which was given, else what a run that starts now is to use.
    RandomRun take()
    {
        const std::optional<RandomRun> given = std::exchange(m_run, std::nullopt);
        return given ? *given : startRandomRun();
    }

private:
    std::optional<RandomRun> m_run;
};

/// `TLevel` is a PlanLevel or a StripLevel with rows of this file.
template <class TLevel>
class RandomLevel : public TLevel
{
public:
    /// Names the run that the next run of this processor is.
    void setRandomRun(const RandomRun& run) { m_run.give(run); }

protected:
    using TLevel::retrieveProvider;
    processor::ProviderResult retrieveProvider(const core::BasePriority& priority,
                                               boost::shared_ptr<core::BaseActionProvider>& provider) override
    {
        const RandomRunScope scope(m_run.take()); // for splits that are set up, and for level 3 without them
        return TLevel::retrieveProvider(priority, provider);
    }

private:
    GivenRandomRun m_run;
};

/// `TLevel` is a KernelLevel whose output is `TStrip`.
template <class TLevel, class TStrip>
class RandomKernelLevel : public TLevel
{
public:
    /// Names the run that the next strip belongs to.
    void setRandomRun(const RandomRun& run) { m_given.give(run); }

protected:
    processor::StepResult preProcess() override
    {
        m_run = m_given.take();
        const auto& strip = this->template accessAttribute<TStrip>()->accessStrip();
        m_firstElement = (m_run.firstLine + strip.getStripStartOffsetY()) * strip.getSizeX();
        return processor::StepResult::success();
    }
    /// For kernels: fills the states of `TGenerator`, one a lane, and returns how many elements it makes before those
    /// of the strip.
    template <class TGenerator>
    ORLIX_SIMD_INLINE unsigned long fillStates(unsigned int* states)
    {
        return fillRandomStates(m_run, m_firstElement, TGenerator::s_nbElements, TGenerator::s_nbDraws,
                                TGenerator::s_nbLanes, states);
    }

private:
    GivenRandomRun m_given;
    RandomRun m_run;
    unsigned long m_firstElement = 0; ///< of the strip, in the plan; kernels can't ask strips
};

namespace details {

/// The plans of an image, each with its place.
template <class TProcessor, class TAttribute>
class RandomPlanSplit final : public processor::FeedingSplit<BaseSubImageSplit<ImagePtr>, TProcessor, TAttribute>
{
public:
    void setRun(const RandomRun& run, const image::BaseImage& image)
    {
        m_run = run;
        m_sizeZ = image.getSizeZ();
        m_sizeC = image.getSizeC();
    }
    ProcessingResult<bool> processAttribute(processor::BaseProcessor& lower, unsigned int index,
                                            const core::BaseRequestOrigin&) override
    {
        ImagePtr plan;
        ProcessingResult<bool> result = this->getSubImage(index, plan);
        if (result) {
            this->feed(lower, std::move(plan));
            static_cast<TProcessor&>(lower).setRandomRun(
                m_run.atPlan(index % m_sizeZ, index / m_sizeZ % m_sizeC, index / m_sizeZ / m_sizeC));
        }
        return result;
    }

private:
    RandomRun m_run;
    unsigned long m_sizeZ = 1;
    unsigned long m_sizeC = 1;
};

using BaseRandomStripSplit = BaseImageYStrip2dSplit<image::BaseImage, image::OutputImageYStrip2d>;

/// The strips of a plan, each with the run of the plan.
template <class TProcessor, class TAttribute>
class RandomStripSplit final : public processor::FeedingSplit<BaseRandomStripSplit, TProcessor, TAttribute>
{
public:
    void setRun(const RandomRun& run, const image::BaseImage&) { m_run = run; }
    using BaseRandomStripSplit::processAttribute;
    ProcessingResult<bool> processAttribute(processor::BaseProcessor& lower,
                                            const boost::shared_ptr<image::OutputImageYStrip2d>& strip) override
    {
        this->feed(lower, strip);
        static_cast<TProcessor&>(lower).setRandomRun(m_run);
        return true;
    }

private:
    RandomRun m_run;
};

/// A source together with the run of the level that sets it up.
template <class TSource>
struct RandomSource
{
    TSource source;

    template <class TSplit>
    ProcessingResult<bool> init(TSplit& split) const
    {
        split.setRun(startRandomRun(), *source.image);
        return source.init(split);
    }
};

} // namespace details

/// The image plan by plan, of a RandomLevel.
template <class TAttribute, class TLowerAttribute = TAttribute>
struct ByRandomPlan : ByPlan<TAttribute, TLowerAttribute>
{
    template <class TLower>
    using Split = details::RandomPlanSplit<TLower, TLowerAttribute>;

    template <class TAttributes>
    static auto source(const TAttributes& attributes)
    {
        return details::RandomSource<SubImageSource<ImagePtr>>{ByPlan<TAttribute, TLowerAttribute>::source(attributes)};
    }
};

/// The plan in strips, of a RandomLevel.
template <class TAttribute, class TLowerAttribute>
struct ByRandomYStrip : ByYStrip<TAttribute, TLowerAttribute>
{
    template <class TLower>
    using Split = details::RandomStripSplit<TLower, TLowerAttribute>;

    template <class TAttributes>
    static auto source(const TAttributes& attributes)
    {
        return details::RandomSource<StripSource<ImagePtr>>{ByYStrip<TAttribute, TLowerAttribute>::source(attributes)};
    }
};

} // namespace orlix::imaproc::util
