#include "ORLIX/ORLIXCore/RunContext.h"

#include "ORLIX/ORLIXCore/BaseAction.h"
#include "ORLIX/ORLIXCore/Gate.h"

namespace orlix::core {

void RunContext::report(unsigned long done, unsigned long known)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_progress.done += done;
    m_progress.known += known;
    m_observer(m_progress);
}

void RunContext::forEach(unsigned long nbElements, unsigned long cost, const ElementBody& body)
{
    if (m_bInLoop) {
        m_executor.forEach(nbElements, cost, body);
        return;
    }
    struct Outermost
    {
        bool& bInLoop;
        explicit Outermost(bool& bFlag) : bInLoop(bFlag) { bInLoop = true; }
        ~Outermost() { bInLoop = false; }
    } const outermost(m_bInLoop);
    m_executor.forEachApart(nbElements, cost, body);
}

RunContext::ActionUnderWay::ActionUnderWay(RunContext& context, BaseAction& action)
    : m_context(context), m_action(action)
{
    const Gate gate(m_context.m_actionsGate);
    m_pNext = m_context.m_pActions;
    m_ppThis = &m_context.m_pActions;
    m_context.m_pActions = this;
    if (m_pNext != nullptr) {
        m_pNext->m_ppThis = &m_pNext;
    }
}

RunContext::ActionUnderWay::~ActionUnderWay()
{
    const Gate gate(m_context.m_actionsGate);
    *m_ppThis = m_pNext;
    if (m_pNext != nullptr) {
        m_pNext->m_ppThis = m_ppThis;
    }
}

void RunContext::tellActions()
{
    const Gate gate(m_actionsGate);
    for (const ActionUnderWay* each = m_pActions; each != nullptr; each = each->m_pNext) {
        each->m_action.requestCancellationdDerived();
    }
}

} // namespace orlix::core
