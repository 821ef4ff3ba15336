// Places and sizes as Python gives them: in the order of an array's axes.
#include "Places.h"

#include "Arguments.h"

#include <vector>

namespace orlix::python {

Place placeOf(nb::handle numbers, const char* what)
{
    const std::vector<npy_intp> values = integersOf(numbers, what);
    for (const npy_intp value : values) {
        if (value < 0) {
            const std::string text = std::string(what) + ": " + std::to_string(value) + " is below 0";
            throw nb::value_error(text.c_str());
        }
    }
    if (values.size() != 2 && values.size() != 3) {
        const std::string text = std::string(what) + " has " + std::to_string(values.size()) +
                                 " numbers; 2 are needed for a plan, (y, x), or 3 for a volume, (z, y, x)";
        throw nb::value_error(text.c_str());
    }
    Place place;
    place.b3d = values.size() == 3;
    place.x = static_cast<unsigned long>(values[values.size() - 1]);
    place.y = static_cast<unsigned long>(values[values.size() - 2]);
    place.z = place.b3d ? static_cast<unsigned long>(values[0]) : 0;
    return place;
}

unsigned axisNamed(const std::string& name)
{
    if (name == "x" || name == "y" || name == "z") {
        return static_cast<unsigned>(name[0] - 'x');
    }
    const std::string text = "axis '" + name + "': 'x', 'y' or 'z' is needed";
    throw nb::value_error(text.c_str());
}

unsigned long indexWithin(long index, unsigned long size, const char* what)
{
    const long place = index < 0 ? index + static_cast<long>(size) : index;
    if (place < 0 || static_cast<unsigned long>(place) >= size) {
        const std::string text =
            std::string(what) + " " + std::to_string(index) + " is outside: there are " + std::to_string(size);
        throw nb::index_error(text.c_str());
    }
    return static_cast<unsigned long>(place);
}

} // namespace orlix::python
