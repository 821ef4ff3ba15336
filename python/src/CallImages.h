// The images of a call of a processor that is known by its name.
#pragma once

#include "ImageCall.h"

#include "ORLIXIPL/ORLIXImageProcessing/BaseImageAttributes.h"

#include <map>

namespace orlix::python {

/// Where the images came from, and what becomes of those that the call makes.
class CallImages
{
public:
    void give(processor::BaseAttribute& attribute, nb::handle object);

    unsigned long getBytes() const { return m_bytes; }
    /// Of the first input; all of an image where there is none.
    std::string getAxes() const { return m_inputs.empty() ? "TCZYX" : m_inputs.front().axes; }

    /// An output is an input itself, or shares no memory with any.
    void requireApart() const;

    /// What Python gets of an output.
    nb::object take(const imaproc::BaseOutputImageAttribute& attribute) const;

private:
    struct Given
    {
        nb::object object;
        ImageInput input;
    };

    /// The axes that the image says it has, and channels and lines as the first input has them.
    std::string axesOfOutput(const image::BaseImageGeometry& geometry) const;

    std::vector<ImageInput> m_inputs;
    std::map<std::string, Given> m_outputs;
    unsigned long m_bytes = 0;
    bool m_bImages = false; ///< is an input an orlix.Image?
};

} // namespace orlix::python
