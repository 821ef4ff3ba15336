// Inputs and outputs of functions for which axes mean something.
#pragma once

#include "PyImage.h"

namespace orlix::python {

/// An input: an Image, or an array with its axes.
struct ImageInput
{
    ImagePtr image;
    std::string axes;
    bool bArray = false;
    ArrayImage held; ///< of an array
};
/// `axes` has to be None for an Image. `bWritten`: the function writes to it.
ImageInput takeInput(nb::handle object, nb::handle axes, const char* what, bool bWritten = false);

/// Is `object` an array that a copy is made of faster in the order of its memory than in that of an image's axes? Then
/// a function that changes a part of a copy copies the array first, and changes that.
bool goesByOwnOrder(nb::handle object, nb::handle axes, const char* what);

/// An output of the same kind as the input: a given one, or a new one. `sizes` and `axes` are those of an array, and
/// `imageAxes` what the operator calls them.
class ImageOutput
{
public:
    ImageOutput(const ImageInput& input, nb::handle out, const std::vector<npy_intp>& sizes,
                const std::string& imageAxes);
    /// Null where the operator makes a new Image.
    const ImagePtr& getImage() const { return m_image; }
    /// What Python gets, once the operator has made or written `image`.
    nb::object finish(const ImagePtr& image) const;

private:
    bool m_bArray;
    ImagePtr m_image;
    nb::object m_given;
    ArrayImage m_held;
};

} // namespace orlix::python
