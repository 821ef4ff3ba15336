// An action with data that goes in, comes up on the way, and comes out.
#pragma once

#include "ORLIX/ORLIXCore/BaseAction.h"

namespace orlix::core {

class ORLIXCORE_API BaseComplexAction : public BaseAction
{
public:
    bool isComplexAction() const override { return true; }

    /// Before and after a run: hooks of an action whose data lives elsewhere.
    virtual void syncInputDataDerived() {}
    virtual void syncOutputDataDerived() {}

    virtual void clearInputData() = 0;
    virtual void clearIntermediateData() {}
    virtual void clearOutputData() = 0;
};

} // namespace orlix::core
