#include "ORLIX/ORLIXCore/BaseExecutor.h"

#include "ORLIX/ORLIXCore/ForkCount.h"
#include "ORLIX/ORLIXCore/SharedElements.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <atomic>
#include <thread>
#include <vector>

namespace orlix::core {

namespace {

class PlainThreadExecutor final : public BaseExecutor
{
public:
    explicit PlainThreadExecutor(unsigned long nbThreads) : m_nbThreads(std::max(1UL, nbThreads)) {}
    ~PlainThreadExecutor() override
    {
        if (m_nbForks == getForkCount()) { // in a forked child they don't exist
            for (int nbTasks = m_nbTasks->load(); nbTasks != 0; nbTasks = m_nbTasks->load()) {
                m_nbTasks->wait(nbTasks);
            }
        }
    }
    PlainThreadExecutor(const PlainThreadExecutor&) = delete;
    PlainThreadExecutor& operator=(const PlainThreadExecutor&) = delete;

    unsigned long getNbThreads() const override { return m_nbThreads; }

    void forEach(unsigned long nbElements, unsigned long, const ElementBody& body) override
    {
        SharedElements elements(nbElements, body);
        std::vector<std::thread> helpers;
        try {
            for (unsigned long i = 1; i < std::min(m_nbThreads, nbElements); ++i) {
                helpers.emplace_back([&elements] { elements.help(); });
            }
        } catch (const std::exception&) {
            // Where there are no more threads to be had, fewer do the work.
        }
        elements.doAll();
        for (std::thread& helper : helpers) {
            helper.join();
        }
    }

    void post(boost::function<void()> task) override
    {
        const boost::shared_ptr<std::atomic<int>> nbTasks = m_nbTasks;
        ++*nbTasks;
        try {
            std::thread([task = std::move(task), nbTasks]() mutable {
                task();
                task.clear();
                --*nbTasks;
                nbTasks->notify_all();
            }).detach();
        } catch (...) {
            --*nbTasks;
            throw;
        }
    }

private:
    unsigned long m_nbThreads;
    unsigned m_nbForks = getForkCount();
    boost::shared_ptr<std::atomic<int>> m_nbTasks = boost::make_shared<std::atomic<int>>(0);
};

} // namespace

boost::shared_ptr<BaseExecutor> makePlainThreadExecutor(unsigned long nbThreads)
{
    return boost::make_shared<PlainThreadExecutor>(nbThreads);
}

} // namespace orlix::core
