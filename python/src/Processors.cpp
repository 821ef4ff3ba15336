// Processors by name.
#include "CallImages.h"
#include "Comparisons.h"
#include "Operators.h"
#include "Watch.h"

#include "ORLIX/ORLIXBaseProcessing/CallerCheck.h"
#include "ORLIX/ORLIXBaseProcessing/ProcessorFactory.h"
#include "ORLIXIPL/ORLIXIPLAttributes/ComparisonAttributes.h"
#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/Doubles.h"

#include <nanobind/stl/string.h>
#include <nanobind/stl/vector.h>

#include <algorithm>

namespace orlix::python {

namespace {

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
