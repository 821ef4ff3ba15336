// What the libraries use of the machine: threads, instruction sets, memory.
#include "Arguments.h"
#include "ArrayImages.h"
#include "Operators.h"

#include "ORLIX/ORLIXBaseProcessing/AlgorithmFunctionSelector.h"
#include "ORLIX/ORLIXBaseProcessing/ProcessorFactory.h"
#include "ORLIX/ORLIXCore/BaseExecutor.h"
#include "ORLIX/ORLIXCore/InstructionSetAvailability.h"
#include "ORLIXIPL/ORLIXImage/PixelMemoryPool.h"

#include <nanobind/stl/string.h>
#include <nanobind/stl/vector.h>

namespace orlix::python {

namespace {

std::vector<std::string> instructionSets()
{
    std::vector<std::string> names;
    for (const eInstructionSet& set : core::getAvailableInstructionSets()) {
        names.emplace_back(core::getInstructionSetName(set));
    }
    return names;
}

/// Of the kernels that run: the widest there is unless one is forced.
eInstructionSet& accessForcedSet()
{
    static eInstructionSet forced = core::getAvailableInstructionSets().back();
    return forced;
}

void setInstructionSet(nb::handle name)
{
    processor::InstructionSetsIdentifier sets;
    eInstructionSet chosen = core::getAvailableInstructionSets().back();
    if (!name.is_none()) {
        const std::string wanted = textOf(name, "name");
        const std::optional<eInstructionSet> set = core::findInstructionSet(wanted);
        if (!set || !core::isAvailable(*set)) {
            std::string text = "instruction set '" + wanted + "': this processor has";
            for (const std::string& known : instructionSets()) {
                text += " " + known;
            }
            throw nb::value_error(text.c_str());
        }
        chosen = *set;
        sets.init(chosen);
    }
    processor::AlgorithmFunctionSelector::setDefaultForcedInstructionSets(sets);
    accessForcedSet() = chosen;
}

void setThreads(nb::handle number)
{
    const long nbThreads = indexOf(number, "n");
    if (nbThreads < 0) {
        throw nb::value_error("the number of threads is 1 or more, or 0 for all that are usable");
    }
    core::setNbThreads(static_cast<unsigned long>(nbThreads));
}

} // namespace

void bindMachine(nb::module_& module)
{
    module.def("version", [] { return ORLIX_VERSION; });
    module.def("set_threads", &setThreads, nb::arg("n").none());
    module.def("get_threads", [] { return core::accessExecutor().getNbThreads(); });
    module.def("instruction_set", [] { return std::string(core::getInstructionSetName(accessForcedSet())); });
    module.def("instruction_sets", &instructionSets);
    module.def("set_instruction_set", &setInstructionSet, nb::arg("name").none());
    module.def("copies_made", &getCopiesMade);
    module.def("release_memory", &image::releasePooledMemory);
    module.def(
        "integers_of", [](nb::handle numbers, const char* what) { return integersOf(numbers, what); },
        nb::arg("numbers").none(), nb::arg("what"));
    module.def(
        "axes_of", [](nb::handle axes, unsigned long nbAxes) { return axesOf(axes, nbAxes); }, nb::arg("axes").none(),
        nb::arg("ndim"));
    module.def(
        "empty",
        [](nb::handle shape, nb::handle dtype) {
            return newArray(integersOf(shape, "shape"), elementTypeNamed(dtype));
        },
        nb::arg("shape").none(), nb::arg("dtype").none());
}

} // namespace orlix::python
