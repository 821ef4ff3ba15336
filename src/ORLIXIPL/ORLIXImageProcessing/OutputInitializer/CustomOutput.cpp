#include "ORLIXIPL/ORLIXImageProcessing/OutputInitializer/CustomOutput.h"

#include "ORLIXIPL/ORLIXImage/CudaImage.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"

#include <boost/make_shared.hpp>

#include <algorithm>

namespace orlix::imaproc {

namespace {

class CustomImageInitializer final : public processor::BaseOutputInitializer
{
public:
    CustomImageInitializer(const processor::AttributeRef<BaseOutputImageAttribute>& output,
                           const boost::shared_ptr<const BaseCustomImageInfo>& info)
        : m_output(output), m_info(info)
    {}

    bool isOutputInitNeeded() const override
    {
        const BaseOutputImageAttribute* const output = m_output.access();
        return output != nullptr && !output->isSet() && m_info->isOutputInitNeeded();
    }
    ProcessingResult<bool> initOutput() override
    {
        BaseOutputImageAttribute& output = *m_output.access();
        const ImageConstPtr input = m_info->hasInputImage() ? m_info->getInputImage() : ImageConstPtr();
        const image::BaseImageGeometry geometry = makeGeometry(output.getFixedBufferType());
        const ImagePtr made = input ? image::createImageBeside(*input, geometry) : image::createImage(geometry);
        made->setGeometricCalibration(m_info->getGeometricCalibration());
        output.init(made);
        return true;
    }

private:
    image::BaseImageGeometry makeGeometry(const image::eImageBufferType& fixed) const
    {
        const auto with = [&](const auto& type) {
            return image::BaseImageGeometry(type, m_info->getSizeX(), m_info->getSizeY(), m_info->getVolumeGeometry(),
                                            m_info->getColorGeometry(), m_info->getTemporalGeometry());
        };
        if (fixed != image::eImageBufferType::eNoBuffer) {
            return with(fixed);
        }
        const std::vector<image::eImageBufferType> types = m_info->getImageBufferTypeVector();
        const bool bOneType = std::ranges::adjacent_find(types, std::not_equal_to()) == types.end();
        return bOneType ? with(m_info->getImageBufferType()) : with(types);
    }

    processor::AttributeRef<BaseOutputImageAttribute> m_output;
    boost::shared_ptr<const BaseCustomImageInfo> m_info;
};

} // namespace

boost::shared_ptr<processor::BaseOutputInitializer>
customOutput(const processor::AttributeRef<BaseOutputImageAttribute>& output,
             const boost::shared_ptr<const BaseCustomImageInfo>& info)
{
    return boost::make_shared<CustomImageInitializer>(output, info);
}

} // namespace orlix::imaproc
