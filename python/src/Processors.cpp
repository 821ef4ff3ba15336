// Processors by name.
#include "Comparisons.h"
#include "ImageCall.h"
#include "Operators.h"
#include "Watch.h"

#include "ORLIX/ORLIXBaseProcessing/CallerCheck.h"
#include "ORLIX/ORLIXBaseProcessing/ProcessorFactory.h"
#include "ORLIXIPL/ORLIXIPLAttributes/ComparisonAttributes.h"
#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/Doubles.h"
#include "ORLIXIPL/ORLIXImageProcessing/BaseImageAttributes.h"

#include <nanobind/stl/string.h>
#include <nanobind/stl/vector.h>

#include <algorithm>
#include <map>

namespace orlix::python {

namespace {

using imaproc::BaseInputImageAttribute;
using imaproc::BaseOutputImageAttribute;
using processor::BaseAttribute;
using processor::BaseProcessor;
using processor::ProcessorFactory;

boost::shared_ptr<BaseProcessor> makeProcessor(const std::string& name)
{
    boost::shared_ptr<BaseProcessor> processor = ProcessorFactory::getInstance().createProcessor(name);
    // A class whose init fails says so again, as a text, when it is run.
    static_cast<void>(processor->init(processor::eProcessorRulePolicy::eRulePolicyCheck));
    return processor;
}

nb::object textOrNone(const std::optional<std::string>& text)
{
    return text ? nb::object(nb::str(text->c_str(), text->size())) : nb::none();
}

/// Tool tip, and of each attribute what `orlix.processor.Attribute` holds.
nb::tuple describe(const std::string& name)
{
    const ProcessorFactory::ProcessorInfo info = ProcessorFactory::getInstance().getProcessorInfo(name);
    const boost::shared_ptr<BaseProcessor> processor = makeProcessor(name);
    nb::list attributes;
    for (const auto& attribute : processor->getAttributeColl()) {
        const std::string& ofAttribute = attribute->getObjectName();
        const bool bMade = attribute->isOutput() && processor->makesOutput(ofAttribute);
        attributes.append(
            nb::make_tuple(ofAttribute, attribute->getValueKind(), attribute->getToolTip(), attribute->isOptional(),
                           attribute->isOutput(), !attribute->isOptional() && !bMade,
                           attribute->isOptional() ? textOrNone(attribute->getDefaultText()) : nb::object(nb::none())));
    }
    return nb::make_tuple(info.toolTip, attributes);
}

/// The images of a call: where they came from, and what becomes of those that the call makes.
class CallImages
{
public:
    void give(BaseAttribute& attribute, nb::handle object)
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

    unsigned long getBytes() const { return m_bytes; }
    /// Of the first input; all of an image where there is none.
    std::string getAxes() const { return m_inputs.empty() ? "TCZYX" : m_inputs.front().axes; }

    /// An output is an input itself, or shares no memory with any.
    void requireApart() const
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

    nb::object take(const BaseOutputImageAttribute& attribute) const
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

private:
    struct Given
    {
        nb::object object;
        ImageInput input;
    };

    /// The axes that the image says it has, and channels and lines as the first input has them.
    std::string axesOfOutput(const image::BaseImageGeometry& geometry) const
    {
        std::string axes = axesOf(geometry);
        if (m_inputs.empty()) {
            return axes;
        }
        const std::string& ofInput = m_inputs.front().axes;
        if (ofInput.find('C') != std::string::npos && axes.find('C') == std::string::npos) {
            axes.insert(axes.find('T') == std::string::npos ? 0 : 1, "C");
        }
        if (ofInput == "X" && geometry.getSizeY() == 1) {
            axes.erase(axes.find('Y'), 1);
        }
        return axes;
    }

    std::vector<ImageInput> m_inputs;
    std::map<std::string, Given> m_outputs;
    unsigned long m_bytes = 0;
    bool m_bImages = false; ///< is an input an orlix.Image?
};

/// Of the points of every plan, in the order of plans.
nb::object arrayOf(const imaproc::attr::PlanIndexedDoubles& values)
{
    std::vector<double> all;
    for (unsigned long plan = 0; plan < values.size(); ++plan) {
        const auto ofPlan = values.getItem(plan);
        const auto span = imaproc::attr::valuesOf(*ofPlan);
        all.insert(all.end(), span.begin(), span.end());
    }
    auto nbValues = static_cast<npy_intp>(all.size());
    nb::object array = stealArray(PyArray_SimpleNew(1, &nbValues, NPY_DOUBLE));
    std::copy(all.begin(), all.end(), static_cast<double*>(PyArray_DATA(asArray(array))));
    return array;
}

/// What Python gets of an output that is no image, with places along `axes`; None where it holds nothing.
nb::object valueOf(const BaseAttribute& attribute, const std::string& axes)
{
    if (!attribute.isHeld()) {
        return nb::none();
    }
    if (const auto* const compared = dynamic_cast<const imaproc::attr::OutCompareResult*>(&attribute)) {
        const imaproc::attr::CompareResult& result = compared->getDataItemNode();
        return comparisonOf(result, indexOf(result.firstDifference, axes));
    }
    if (const auto* const doubles =
            dynamic_cast<const processor::BaseOutputDataItemAttribute<imaproc::attr::PlanIndexedDoubles>*>(
                &attribute)) {
        return arrayOf(doubles->getDataItemNode());
    }
    return textOrNone(attribute.getValueText());
}

void setText(BaseAttribute& attribute, const std::string& text)
{
    if (const ProcessingResult<bool> result = attribute.setFromText(text); !result) {
        const std::string message = result.getMessage();
        throw nb::type_error(message.c_str());
    }
}

/// What the rules leave to the caller.
void checkForCaller(const BaseProcessor& processor)
{
    const auto* const unruled = dynamic_cast<const processor::CallerCheck*>(&processor);
    if (unruled == nullptr) {
        return;
    }
    if (const ProcessingResult<bool> result = unruled->checkForCaller(); !result) {
        processor::details::throwRunFailed(result);
    }
}

/// `images` and `texts` by name of attribute, those of images and all others. The outputs by name.
nb::dict runNamed(const std::string& name, const nb::dict& images, const nb::dict& texts, nb::handle progress)
{
    const boost::shared_ptr<BaseProcessor> processor = makeProcessor(name);
    CallImages held;
    for (const auto& [attribute, object] : images) {
        held.give(processor->getAttribute(nb::cast<std::string>(attribute)), object);
    }
    held.requireApart();
    for (const auto& [attribute, text] : texts) {
        setText(processor->getAttribute(nb::cast<std::string>(attribute)), nb::cast<std::string>(text));
    }
    checkForCaller(*processor);
    Watch watch(progress, held.getBytes());
    watch.run([&] { processor::executeSyncRun(processor); });
    nb::dict outputs;
    for (const auto& attribute : processor->getAttributeColl()) {
        if (attribute->isOutput()) {
            const auto* const image = dynamic_cast<const BaseOutputImageAttribute*>(attribute.get());
            outputs[attribute->getObjectName().c_str()] =
                image != nullptr ? held.take(*image) : valueOf(*attribute, held.getAxes());
        }
    }
    return outputs;
}

} // namespace

void bindProcessors(nb::module_& module)
{
    module.def("processors", [] { return ProcessorFactory::getInstance().getProcessorNames(); });
    module.def("processor", &describe, nb::arg("name"));
    module.def("run_processor", &runNamed, nb::arg("name"), nb::arg("images"), nb::arg("texts"),
               nb::arg("progress").none());
}

} // namespace orlix::python
