// The benchmarks of one program: comparisons as rows of Google Benchmark, and the tables at the end.
#pragma once

#include "support/Comparison.h"
#include "support/Options.h"

#include <functional>
#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

namespace orlix::bench {

class Suite
{
public:
    using PrintResult = std::function<void(std::ostream&, const ComparisonResult&)>;
    using PrintEnd = std::function<void(std::ostream&, const Suite&)>;

    explicit Suite(const Options& options) : m_options(options) {}

    const Options& getOptions() const { return m_options; }

    /// Registers a row `<name>/<candidate>` for each candidate; the first row that runs runs the whole comparison, the
    /// others tell what it found. A row that is repeated runs it again. `print` writes the table at the end.
    void add(const std::string& name, Comparison comparison, PrintResult print = printRates);
    /// Something to print after the tables, where there are any.
    void addEnd(PrintEnd print) { m_ends.push_back(std::move(print)); }

    /// The last result of a comparison; null where it has not run.
    const ComparisonResult* find(const std::string& name) const;

    void printTables(std::ostream& stream) const;

    /// Times, rates, and shares of the rates of the best ordinary loop, of the best loop and of the C library.
    static void printRates(std::ostream& stream, const ComparisonResult& result);

private:
    struct Entry
    {
        std::string name;
        Comparison comparison;
        PrintResult print;
        std::unique_ptr<ComparisonResult> result;
        std::vector<bool> isTold; ///< by candidate: has its row told this result
    };
    const ComparisonResult& retrieveResult(Entry& entry, std::size_t candidate) const;

    Options m_options;
    std::vector<std::unique_ptr<Entry>> m_entries;
    std::vector<PrintEnd> m_ends;
};

/// `main` of a benchmark program: reads the arguments, lets `fill` add to the suite, runs it and prints the tables.
int runSuite(int argc, char** argv, const std::function<void(Suite&)>& fill);

} // namespace orlix::bench
