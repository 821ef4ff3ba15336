// The images of a call of a processor that is known by its name.
#include "CallImages.h"

#include "Watch.h"

#include <nanobind/stl/string.h>

namespace orlix::python {

using imaproc::BaseInputImageAttribute;
using imaproc::BaseOutputImageAttribute;

void CallImages::give(processor::BaseAttribute& attribute, nb::handle object)
{
    const std::string& name = attribute.getObjectName();
    const ImageInput input = takeInput(object, nb::none(), name.c_str(), attribute.isOutput());
    if (auto* const output = dynamic_cast<BaseOutputImageAttribute*>(&attribute)) {
        output->init(input.image);
        m_outputs[name] = {nb::borrow(object), input};
    } else {
        dynamic_cast<BaseInputImageAttribute&>(attribute).init(ImageConstPtr(input.image));
        m_bImages = m_bImages || !input.bArray;
        m_inputs.push_back(input);
    }
    m_bytes += bytesOf(*input.image);
}

void CallImages::requireApart() const
{
    for (const auto& [name, output] : m_outputs) {
        for (const ImageInput& input : m_inputs) {
            const nb::object& one = output.input.held.array;
            const nb::object& other = input.held.array;
            if (output.input.bArray && input.bArray && !one.is(other) &&
                mayOverlap(memoryOf(asArray(one)), memoryOf(asArray(other)))) {
                const std::string text = name + " overlaps an input: give the same array, or one that shares no "
                                                "memory with it";
                throw nb::value_error(text.c_str());
            }
        }
    }
}

nb::object CallImages::take(const BaseOutputImageAttribute& attribute) const
{
    const auto given = m_outputs.find(attribute.getObjectName());
    if (given != m_outputs.end()) {
        if (given->second.input.bArray) {
            given->second.input.held.bringBack();
        }
        return given->second.object;
    }
    const ImagePtr& image = attribute.getStorage();
    const std::string axes = axesOfOutput(image->getGeometry());
    return m_bImages ? toPython(image, axes) : arrayOf(image, axes);
}

std::string CallImages::axesOfOutput(const image::BaseImageGeometry& geometry) const
{
    std::string axes = axesOf(geometry);
    if (m_inputs.empty()) {
        return axes;
    }
    const std::string& ofInput = m_inputs.front().axes;
    if (ofInput.find('C') != std::string::npos && axes.find('C') == std::string::npos) {
        axes.insert(axes.find('T') == std::string::npos ? 0 : 1, 1, 'C');
    }
    if (ofInput == "X" && geometry.getSizeY() == 1) {
        axes.erase(axes.find('Y'), 1);
    }
    return axes;
}

} // namespace orlix::python
