// NumPy arrays: taking them from callers, and copying those that can't be used where they lie.
#include "Arrays.h"

#include <nanobind/stl/string.h>

#include <algorithm>
#include <atomic>
#include <numeric>

namespace orlix::python {

namespace {

std::atomic<unsigned long> g_copies{0};

bool isOfModule(nb::handle object, const char* prefix)
{
    const nb::object module = nb::getattr(object.type(), "__module__", nb::none());
    return nb::isinstance<nb::str>(module) && nb::cast<std::string>(module).rfind(prefix, 0) == 0;
}

/// The stable ABI has no question for it before Python 3.11. Raises where the memory was lent once, and is gone.
bool lendsBuffer(nb::handle object)
{
    const nb::object view = nb::steal(PyMemoryView_FromObject(object.ptr()));
    if (!view.is_valid() && PyErr_ExceptionMatches(PyExc_TypeError) == 0) {
        throw nb::python_error();
    }
    PyErr_Clear();
    return view.is_valid();
}

} // namespace

nb::object stealArray(PyObject* array)
{
    if (array == nullptr) {
        throw nb::python_error();
    }
    return nb::steal(array);
}

nb::object takeArray(nb::handle object, const char* what)
{
    if (isArray(object)) {
        return nb::borrow(object);
    }
    const std::string type = nb::cast<std::string>(nb::getattr(object.type(), "__name__"));
    if (isOfModule(object, "dask.")) {
        const std::string text = std::string(what) + " is a Dask array, whose elements are not there yet: use the "
                                                     "function of the same name in orlix.dask, or compute() it";
        throw nb::type_error(text.c_str());
    }
    const nb::object numpy = nb::module_::import_("numpy");
    if (nb::hasattr(object, "__dlpack__")) {
        return numpy.attr("from_dlpack")(object);
    }
    if (lendsBuffer(object) || nb::hasattr(object, "__array_interface__")) {
        return numpy.attr("asarray")(object);
    }
    const std::string text = std::string(what) + " is of type " + type +
                             ": an orlix.Image, a NumPy array or an object that lends its memory is needed; "
                             "numpy.asarray makes an array of a list";
    throw nb::type_error(text.c_str());
}

ArrayMemory memoryOf(PyArrayObject* array)
{
    const auto nbAxes = static_cast<std::size_t>(PyArray_NDIM(array));
    return {static_cast<std::byte*>(PyArray_DATA(array)),
            {PyArray_DIMS(array), nbAxes},
            {PyArray_STRIDES(array), nbAxes},
            PyArray_ITEMSIZE(array)};
}

unsigned long bufferBytesOf(PyArrayObject* array)
{
    const bool bOnePiece = PyArray_IS_C_CONTIGUOUS(array) || PyArray_IS_F_CONTIGUOUS(array);
    for (nb::handle base = PyArray_BASE(array); bOnePiece && base.is_valid() && isArray(base);
         base = PyArray_BASE(array)) {
        array = asArray(base);
    }
    return static_cast<unsigned long>(PyArray_NBYTES(array));
}

void requireWritable(PyArrayObject* array)
{
    if (!PyArray_ISWRITEABLE(array)) {
        throw nb::value_error("the output is read only: give an array that may be written, or no output");
    }
    if (PyArray_ISBYTESWAPPED(array)) {
        throw nb::value_error("the output is in foreign byte order: give an array of the machine's own order");
    }
}

bool isDistinct(PyArrayObject* array)
{
    const ArrayMemory memory = memoryOf(array);
    std::vector<std::size_t> order(memory.sizes.size());
    std::iota(order.begin(), order.end(), 0);
    std::sort(order.begin(), order.end(), [&](std::size_t one, std::size_t other) {
        return std::abs(memory.strides[one]) < std::abs(memory.strides[other]);
    });
    std::ptrdiff_t reach = memory.elementBytes;
    for (const std::size_t axis : order) {
        if (memory.sizes[axis] <= 1) {
            continue;
        }
        if (std::abs(memory.strides[axis]) < reach) {
            return false;
        }
        reach += std::abs(memory.strides[axis]) * (memory.sizes[axis] - 1);
    }
    return true;
}

void requireDistinct(PyArrayObject* array)
{
    if (!isDistinct(array)) {
        throw nb::value_error("elements of the output lie on one another: give an array that has each of its own");
    }
}

void countCopy()
{
    g_copies.fetch_add(1, std::memory_order_relaxed);
}

unsigned long getCopiesMade()
{
    return g_copies.load(std::memory_order_relaxed);
}

std::vector<npy_intp> sizesOf(PyArrayObject* array)
{
    return {PyArray_DIMS(array), PyArray_DIMS(array) + PyArray_NDIM(array)};
}

} // namespace orlix::python
