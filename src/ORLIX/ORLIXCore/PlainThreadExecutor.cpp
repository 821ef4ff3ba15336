#include "ORLIX/ORLIXCore/BaseExecutor.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <atomic>
#include <mutex>
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
        for (std::thread& thread : m_posted) {
            thread.join();
        }
    }

    unsigned long getNbThreads() const override { return m_nbThreads; }

    void forEach(unsigned long nbElements, unsigned long, const ElementBody& body) override
    {
        std::atomic<unsigned long> next{0};
        const auto work = [&] {
            for (unsigned long element = next++; element < nbElements; element = next++) {
                body(element);
            }
        };
        std::vector<std::thread> helpers;
        for (unsigned long i = 1; i < std::min(m_nbThreads, nbElements); ++i) {
            helpers.emplace_back(work);
        }
        work();
        for (std::thread& helper : helpers) {
            helper.join();
        }
    }

    void post(boost::function<void()> task) override
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_posted.emplace_back(std::move(task));
    }

private:
    unsigned long m_nbThreads;
    std::mutex m_mutex;
    std::vector<std::thread> m_posted;
};

} // namespace

boost::shared_ptr<BaseExecutor> makePlainThreadExecutor(unsigned long nbThreads)
{
    return boost::make_shared<PlainThreadExecutor>(nbThreads);
}

} // namespace orlix::core
