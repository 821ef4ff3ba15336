// The functions of the module, a file for each kind of operator.
#pragma once

#include "Numpy.h"

namespace orlix::python {

void bindPixelwise(nb::module_& module); ///< copy, erase, threshold, convert
/// A copy of an Image, an array or a view of one, into `out` or, where that is None, a new one.
nb::object copyImage(nb::handle array, nb::handle out, nb::handle progress);

void bindCompare(nb::module_& module);    ///< compare
void bindRegions(nb::module_& module);    ///< crop, paste
void bindSlices(nb::module_& module);     ///< get_slice, put_slice
void bindSequences(nb::module_& module);  ///< append
void bindGenerators(nb::module_& module); ///< random, normal, lines
void bindValues(nb::module_& module);     ///< values
void bindFiles(nb::module_& module);      ///< read, write, info
void bindProcessors(nb::module_& module); ///< processors by name
void bindMachine(nb::module_& module);    ///< threads, instruction sets, memory
void bindErrors(nb::module_& module);     ///< OrlixError, OrlixFileError

} // namespace orlix::python
