// Gives out the actions of one level, element by element.
#pragma once

#include "ORLIX/ORLIXCore/BaseAction.h"

namespace orlix::core {

/// A fixed number of elements, each of which becomes one action. The run loop calls the virtual operations from one
/// thread at a time.
class ORLIXCORE_API BaseActionProvider
{
public:
    virtual ~BaseActionProvider();

    virtual unsigned long getNbElements() const = 0;
    /// Bytes that all elements together touch: decides whether threads pay.
    virtual unsigned long getCost() const = 0;

    /// Makes the action of the element that `origin` names, ready to run.
    virtual ProcessingResult<bool> queryNextAction(const BaseRequestOrigin& origin,
                                                   boost::shared_ptr<BaseAction>& action) = 0;
    /// Is there anything left to ask for? Where there isn't, the elements that have not been asked for are left out.
    virtual bool hasPendingAction() const = 0;
    /// The action has ended; the provider may take it back.
    virtual void notifyDerived(boost::shared_ptr<BaseAction>& action, bool bSuccess) = 0;
    /// Lets go of everything that belongs to this run.
    virtual void clearDerived() = 0;
    /// The run is to end early: called once the run loop sees that, before it asks for anything else.
    virtual void requestCancellationDerived() = 0;
};

} // namespace orlix::core
