// Makes a missing output out of nothing: a new data item of its class.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseAttribute.h"
#include "ORLIX/ORLIXBaseProcessing/BaseOutputInitializer.h"

#include <boost/make_shared.hpp>

namespace orlix::processor {

/// Sets an unset `TOutput` to a new object of its storage's class, made by the default constructor.
template <class TOutput>
class AllocateInitializer final : public BaseOutputInitializer
{
public:
    explicit AllocateInitializer(const AttributeRef<TOutput>& output) : m_output(output) {}

    bool isOutputInitNeeded() const override
    {
        const TOutput* const output = m_output.access();
        return output != nullptr && !output->isSet();
    }
    ProcessingResult<bool> initOutput() override
    {
        m_output.access()->init(boost::make_shared<typename TOutput::StorageType::element_type>());
        return true;
    }

private:
    AttributeRef<TOutput> m_output;
};

template <class TOutput>
boost::shared_ptr<BaseOutputInitializer> allocate(const boost::shared_ptr<TOutput>& output)
{
    return boost::make_shared<AllocateInitializer<TOutput>>(output);
}

} // namespace orlix::processor
