// orlix._core: the libraries as Python sees them. Everything public stands in python/orlix, which calls this.
#define ORLIX_PYTHON_IMPORTS_NUMPY
#include "Operators.h"
#include "PyImage.h"

namespace {

/// import_array returns from the function that it stands in.
int importNumpy()
{
    import_array1(-1);
    return 0;
}

} // namespace

NB_MODULE(_core, module)
{
    using namespace orlix::python;
    if (importNumpy() != 0) {
        throw nb::python_error();
    }
    bindErrors(module);
    bindImage(module);
    bindPixelwise(module);
    bindCompare(module);
    bindRegions(module);
    bindSlices(module);
    bindSequences(module);
    bindGenerators(module);
    bindValues(module);
    bindFiles(module);
    bindProcessors(module);
    bindMachine(module);
}
