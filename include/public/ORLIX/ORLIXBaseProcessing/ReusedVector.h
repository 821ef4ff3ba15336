// Vectors that are filled anew in every run.
#pragma once

#include <vector>

namespace orlix::processor {

/// Empties `values` and keeps its memory for the next run, unless it is so much that idle processors shouldn't hold it.
template <class TValue>
void emptyForReuse(std::vector<TValue>& values)
{
    constexpr unsigned long maxKept = 1024;
    if (values.capacity() > maxKept) {
        std::vector<TValue>().swap(values);
    }
    values.clear();
}

} // namespace orlix::processor
