// Where the numbers of random images come from.
#pragma once

#include "ORLIX/ORLIXBaseData/PlanIndex.h"
#include "ORLIXIPL/ORLIXIPLUtility/Export.h"

namespace orlix::imaproc::util {

/// From now on random images depend on `seed`. What an element gets follows from the seed, the number of the random run
/// since it was set, the instruction set of the kernel, element type and parameters, and the place of the element in
/// the image: not from threads, strips or memory. Runs on several threads at once draw their numbers in either order;
/// RandomRunScope names one instead. Any thread; for the whole process.
ORLIXIPLUTILITY_API void setRandomSeed(unsigned long seed);
/// From now on every random image differs from all others of the process, as it is without a seed.
ORLIXIPLUTILITY_API void clearRandomSeed();

/// One run of a random operator: what its bytes depend on besides kernel, type and parameters.
struct ORLIXIPLUTILITY_API RandomRun
{
    bool bSeeded = false; ///< without a seed nothing else counts
    unsigned long seed = 0;
    unsigned long number = 0;
    PlanIndex firstPlan;         ///< of the image, in the whole that it is a part of
    unsigned long firstLine = 0; ///< likewise

    /// The same for the plan (z, c, t) of its image.
    RandomRun atPlan(unsigned long z, unsigned long c, unsigned long t) const;
};

/// Names the number of the random runs that this thread starts while the scope lives, so that each can be had again. Of
/// scopes within one another the innermost counts. A run started asynchronously by an operator's function keeps what
/// was in force at the call.
class ORLIXIPLUTILITY_API RandomRunScope
{
public:
    /// With the seed of the process; without one it changes nothing.
    explicit RandomRunScope(unsigned long number);
    /// With a seed of its own.
    RandomRunScope(unsigned long seed, unsigned long number);
    explicit RandomRunScope(const RandomRun& run);
    ~RandomRunScope();
    RandomRunScope(const RandomRunScope&) = delete;
    RandomRunScope& operator=(const RandomRunScope&) = delete;

private:
    RandomRun m_run;
    const RandomRun* m_outer;
};

/// What a run that starts now on this thread is to use: that of the scope, else a new one with the seed of the process
/// and the next number, else one without a seed.
ORLIXIPLUTILITY_API RandomRun startRandomRun();

/// Fills `states` for generators that make `nbElements` elements of `nbDraws` draws in each of `nbLanes` lanes, for the
/// elements of the run's image from `firstElement` of its first plan on, counted over whole lines of `sizeX`. Returns
/// how many elements such generators make before `firstElement`.
ORLIXIPLUTILITY_API unsigned long fillRandomStates(const RandomRun& run, unsigned long firstElement,
                                                   unsigned long nbElements, unsigned long nbDraws,
                                                   unsigned long nbLanes, unsigned int* states);

} // namespace orlix::imaproc::util
