#include "peers/ArrayPasses.h"

#include "ORLIXIPL/ORLIXImage/ImageFactory.h"

#include <benchmark/benchmark.h>

#include <memory>

namespace orlix::bench {

namespace {

/// What `operation` makes of each pair of elements, in a new array.
template <class TOut, class TIn, class TOperation>
std::unique_ptr<TOut[]> combine(const TIn* first, const TIn* second, unsigned long size, const TOperation& operation)
{
    auto out = std::make_unique_for_overwrite<TOut[]>(size);
    for (unsigned long i = 0; i < size; ++i) {
        out[i] = static_cast<TOut>(operation(first[i], second[i]));
    }
    return out;
}

void countNonZero(const unsigned char* mask, unsigned long size)
{
    unsigned long count = 0;
    for (unsigned long i = 0; i < size; ++i) {
        count += mask[i];
    }
    benchmark::DoNotOptimize(count);
}

template <class TPass>
std::function<void()> makePass(const image::BaseImage& first, const image::BaseImage& second, const TPass& pass)
{
    const unsigned long size = first.getSizeX() * first.getSizeY();
    std::function<void()> made;
    image::visitStorageType(first.getBufferType(), [&]<class T>() {
        made = [=, a = image::planData<T>(first, 0, 0, 0), b = image::planData<T>(second, 0, 0, 0)] {
            pass(a, b, size);
        };
    });
    return made;
}

} // namespace

std::function<void()> makeArrayCount(const image::BaseImage& first, const image::BaseImage& second)
{
    return makePass(first, second, [](const auto* a, const auto* b, unsigned long size) {
        const auto mask = combine<unsigned char>(a, b, size, [](auto x, auto y) { return x != y; });
        countNonZero(mask.get(), size);
    });
}

std::function<void()> makeArrayCountBeyond(const image::BaseImage& first, const image::BaseImage& second,
                                           float absolute)
{
    return makePass(first, second, [absolute](const auto* a, const auto* b, unsigned long size) {
        using T = std::remove_cv_t<std::remove_pointer_t<decltype(a)>>;
        const auto largest = combine<T>(a, b, size, [](T x, T y) { return x > y ? x : y; });
        const auto smallest = combine<T>(a, b, size, [](T x, T y) { return x < y ? x : y; });
        const auto difference = combine<T>(largest.get(), smallest.get(), size, [](T x, T y) { return x - y; });
        const T limit = static_cast<T>(absolute);
        const auto mask =
            combine<unsigned char>(difference.get(), difference.get(), size, [limit](T x, T) { return x > limit; });
        countNonZero(mask.get(), size);
    });
}

} // namespace orlix::bench
