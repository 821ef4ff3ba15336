// Small types that actions, providers and executors speak in.
#pragma once

#include "ORLIX/ORLIXUtil/Enumeration.h"
#include "ORLIX/ORLIXUtil/ProcessingResult.h"

#include <boost/function.hpp>

namespace orlix::core {

/// How `BaseAction::run` runs: to the end on the calling thread, or started and left running.
struct eSynchroType
{
    enum domain { eSynchroSync = 0, eSynchroAsync = 1 };
    ORLIX_ENUMERATION(eSynchroType, eSynchroSync);
};

/// How urgent the work of a provider is, handed down from level to level. 0 is the level that a caller starts.
class BasePriority
{
public:
    BasePriority() = default;
    explicit BasePriority(unsigned depth) : m_depth(depth) {}
    unsigned getDepth() const { return m_depth; }

private:
    unsigned m_depth = 0;
};

/// Who asks a provider for work, and for which of its elements.
class BaseRequestOrigin
{
public:
    explicit BaseRequestOrigin(unsigned long element) : m_element(element) {}
    unsigned long getElement() const { return m_element; }

private:
    unsigned long m_element;
};

/// Elements finished, and elements known so far: the second grows while levels are entered.
struct Progress
{
    unsigned long done = 0;
    unsigned long known = 0;
};

/// Called by one thread at a time, on whichever thread finished an element. Must not throw.
using ProgressObserver = boost::function<void(const Progress&)>;

/// Called once at the end of a run, with its result. Must not throw.
using FinishObserver = boost::function<void(const ProcessingResult<bool>&)>;

} // namespace orlix::core
