#include "ORLIX/ORLIXCore/BaseExecutor.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <atomic>
#include <numeric>
#include <random>
#include <vector>

namespace orlix::core {

namespace {

class ShuffledExecutor final : public BaseExecutor
{
public:
    explicit ShuffledExecutor(unsigned long seed) : m_seed(seed) {}

    unsigned long getNbThreads() const override { return 1; }

    void forEach(unsigned long nbElements, unsigned long, const ElementBody& body) override
    {
        std::vector<unsigned long> order(nbElements);
        std::iota(order.begin(), order.end(), 0UL);
        std::shuffle(order.begin(), order.end(), std::mt19937_64(m_seed++));
        for (const unsigned long element : order) {
            body(element);
        }
    }

    void post(boost::function<void()> task) override { task(); }

private:
    std::atomic<unsigned long> m_seed; // every call gets an order of its own
};

} // namespace

boost::shared_ptr<BaseExecutor> makeShuffledExecutor(unsigned long seed)
{
    return boost::make_shared<ShuffledExecutor>(seed);
}

} // namespace orlix::core
