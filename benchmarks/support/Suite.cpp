#include "support/Suite.h"

#include "ORLIX/ORLIXCore/BaseExecutor.h"
#include "ORLIX/ORLIXCore/InstructionSetAvailability.h"
#include "ORLIX/ORLIXHardware/ORLIXHardware.h"
#include "support/FlowLoops.h"
#include "support/Table.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <exception>
#include <iostream>

namespace orlix::bench {

namespace {

std::string shareToText(const std::optional<Share>& share)
{
    return share ? toText(*share) : "-";
}

void countShare(benchmark::State& state, const std::string& name, const std::optional<Share>& share)
{
    if (share) {
        state.counters[name] = share->median;
        state.counters[name + "_spread"] = share->spread;
    }
}

/// What the rates of a comparison are set against; null where it has no such candidate.
struct References
{
    explicit References(const ComparisonResult& result)
        : ordinaryLoop(result.findFastest({eRole::eOrdinaryLoop})),
          bestLoop(result.findFastest({eRole::eOrdinaryLoop, eRole::eStreamingLoop})),
          peer(result.findFastest({eRole::ePeer}))
    {}

    const Series* ordinaryLoop;
    const Series* bestLoop;
    const Series* peer;
};

benchmark::TimeUnit unitFor(unsigned long bytes)
{
    return bytes < 1UL << 20 ? benchmark::kNanosecond : benchmark::kMillisecond;
}

void describeMachine()
{
    benchmark::AddCustomContext("processor", hard::getProcessorInfo().getModelName());
    benchmark::AddCustomContext("usable_threads", std::to_string(core::getNbUsableThreads()));
    benchmark::AddCustomContext("L2", bytesToText(hard::getL2CacheBytes()));
    benchmark::AddCustomContext("last_level_cache", bytesToText(hard::getLastLevelCacheBytes()));
    benchmark::AddCustomContext("loops", core::getInstructionSetName(selectFlowLoops(1, 1).set));
}

} // namespace

void Suite::add(const std::string& name, Comparison comparison, PrintResult print)
{
    m_entries.push_back(
        std::make_unique<Entry>(Entry{name, std::move(comparison), std::move(print), nullptr, std::vector<bool>()}));
    Entry& entry = *m_entries.back();
    for (std::size_t i = 0; i < entry.comparison.getCandidates().size(); ++i) {
        const auto tell = [this, &entry, i](benchmark::State& state) {
            const ComparisonResult& result = retrieveResult(entry, i);
            const Series& series = result.getSeries()[i];
            for (auto _ : state) {
                state.SetIterationTime(result.getSeconds(series));
            }
            state.counters["GB/s"] = result.getRate(series) * 1e-9;
            state.counters["rounds"] = static_cast<double>(result.getNbRounds());
            state.counters["preemptions"] = static_cast<double>(result.getNbPreemptions());
            const References references(result);
            countShare(state, "of_ordinary_loop", result.getShare(series, references.ordinaryLoop));
            countShare(state, "of_best_loop", result.getShare(series, references.bestLoop));
            countShare(state, "of_peer", result.getShare(series, references.peer));
        };
        const std::string row = name + "/" + entry.comparison.getCandidates()[i].name;
        benchmark::RegisterBenchmark(row.c_str(), tell)
            ->Iterations(1)
            ->UseManualTime()
            ->Unit(unitFor(entry.comparison.getBytes()));
    }
}

const ComparisonResult& Suite::retrieveResult(Entry& entry, std::size_t candidate) const
{
    if (!entry.result || entry.isTold[candidate]) {
        entry.result = std::make_unique<ComparisonResult>(entry.comparison.run(m_options.seconds));
        entry.isTold.assign(entry.result->getSeries().size(), false);
    }
    entry.isTold[candidate] = true;
    return *entry.result;
}

const ComparisonResult* Suite::find(const std::string& name) const
{
    for (const std::unique_ptr<Entry>& entry : m_entries) {
        if (entry->name == name) {
            return entry->result.get();
        }
    }
    return nullptr;
}

void Suite::printTables(std::ostream& stream) const
{
    bool bAny = false;
    for (const std::unique_ptr<Entry>& entry : m_entries) {
        if (entry->result) {
            stream << '\n'
                   << entry->result->getTitle() << ", " << entry->result->getNbRounds() << " rounds, "
                   << entry->result->getNbPreemptions() << " preemptions\n";
            entry->print(stream, *entry->result);
            bAny = true;
        }
    }
    if (bAny) {
        for (const PrintEnd& print : m_ends) {
            print(stream, *this);
        }
    }
}

void Suite::printRates(std::ostream& stream, const ComparisonResult& result)
{
    const References references(result);
    Table table({"", "a pass", "GB/s", "of ordinary loop", "of best loop",
                 references.peer ? "of " + references.peer->name : ""});
    for (const Series& series : result.getSeries()) {
        table.addRow({series.name, secondsToText(result.getSeconds(series)), toText(result.getRate(series) * 1e-9, 1),
                      shareToText(result.getShare(series, references.ordinaryLoop)),
                      shareToText(result.getShare(series, references.bestLoop)),
                      shareToText(result.getShare(series, references.peer))});
    }
    table.print(stream);
}

int runSuite(int argc, char** argv, const std::function<void(Suite&)>& fill)
{
    try {
        for (int i = 1; i < argc; ++i) {
            if (std::strcmp(argv[i], "--help") == 0) {
                std::cout << describeOptions() << "and Google Benchmark's own:\n";
            }
        }
        Suite suite(parseOptions(argc, argv));
        benchmark::Initialize(&argc, argv);
        if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
            return 2;
        }
        describeMachine();
        fill(suite);
        benchmark::RunSpecifiedBenchmarks();
        benchmark::Shutdown();
        suite.printTables(std::cout);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 2;
    }
}

} // namespace orlix::bench
