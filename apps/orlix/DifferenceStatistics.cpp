// How far apart two images are, for people: what a count of differing pixels doesn't tell.
#include "DifferenceStatistics.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace orlix::cli {

namespace {

template <class T>
T read(const std::byte* row, unsigned long x)
{
    T value;
    std::memcpy(&value, row + x * sizeof(T), sizeof(T));
    return value;
}

/// Sums up rows. A sum of its own for each row keeps the error of long sums small.
struct Sums
{
    double total = 0;
    double largest = 0;
    unsigned long nbNumbers = 0;
    unsigned long nbNotNumbers = 0;

    template <class T>
    void addRow(const std::byte* first, const std::byte* second, unsigned long sizeX)
    {
        double sum = 0;
        for (unsigned long x = 0; x < sizeX; ++x) {
            const T a = read<T>(first, x);
            const T b = read<T>(second, x);
            const double difference = a == b ? 0 : std::fabs(static_cast<double>(a) - static_cast<double>(b));
            if (std::isnan(difference)) {
                ++nbNotNumbers;
            } else {
                ++nbNumbers;
                sum += difference;
                largest = std::max(largest, difference);
            }
        }
        total += sum;
    }
};

} // namespace

DifferenceStatistics measureDifferences(const image::BaseImage& first, const image::BaseImage& second)
{
    Sums sums;
    for (unsigned long t = 0; t < first.getSizeT(); ++t) {
        for (unsigned long c = 0; c < first.getSizeC(); ++c) {
            for (unsigned long z = 0; z < first.getSizeZ(); ++z) {
                for (unsigned long y = 0; y < first.getSizeY(); ++y) {
                    image::visitStorageType(first.getBufferType(t), [&]<class T>() {
                        sums.addRow<T>(first.accessRow(y, z, c, t), second.accessRow(y, z, c, t), first.getSizeX());
                    });
                }
            }
        }
    }
    const double count = static_cast<double>(std::max(1UL, sums.nbNumbers));
    return {sums.largest, sums.total / count, sums.nbNotNumbers};
}

double elementAt(const std::byte* row, unsigned long x, const image::eImageBufferType& type)
{
    double value = 0;
    image::visitStorageType(type, [&]<class T>() { value = static_cast<double>(read<T>(row, x)); });
    return value;
}

} // namespace orlix::cli
