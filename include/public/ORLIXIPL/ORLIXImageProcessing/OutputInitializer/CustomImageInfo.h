// What a missing output image has to look like where that follows from other attributes.
#pragma once

#include "ORLIXIPL/ORLIXImageProcessing/BaseImageAttributes.h"
#include "ORLIXIPL/ORLIXImageProcessing/OutputInitializer/DuplicateImageInitializer.h"

#include <vector>

namespace orlix::imaproc {

/// Says what an output image is made as, at the moment it is asked: nothing is kept but weak references to attributes.
/// Asked by one thread at a time. See customOutput.
class ORLIXIMAGEPROCESSING_API BaseCustomImageInfo
{
public:
    virtual ~BaseCustomImageInfo();

    /// For images that follow from no other one.
    void initBase() {}

    /// Asked where the output has not been given: false leaves it that way.
    virtual bool isOutputInitNeeded() const;
    virtual image::eImageBufferType getImageBufferType() const = 0; ///< of time step 0
    /// One entry per time step; `getImageBufferType` for each of them unless overridden.
    virtual std::vector<image::eImageBufferType> getImageBufferTypeVector() const;
    virtual unsigned long getSizeX() const = 0;
    virtual unsigned long getSizeY() const = 0;
    virtual image::VolumeGeometry getVolumeGeometry() const = 0;
    virtual image::ColorGeometry getColorGeometry() const = 0;
    virtual image::TemporalGeometry getTemporalGeometry() const = 0;
    virtual eImageStoragePolicy getImageInitializerDistributionPolicy() const;
    virtual bool hasInputImage() const = 0;
    /// The image that the output follows from, and beside which it is made; null where there is none.
    virtual ImageConstPtr getInputImage() const = 0;
    /// What the output is made with: the calibration of the input image unless overridden; null for none.
    virtual boost::shared_ptr<const image::GeometricCalibration> getGeometricCalibration() const;
};

/// The same for outputs that look like an input image in all that a class does not override. What follows from the
/// input image throws ORLIXImageProcessingException where the attribute holds none, or is gone.
class ORLIXIMAGEPROCESSING_API BaseFromImageCustomImageInfo : public BaseCustomImageInfo
{
public:
    void initBase(const boost::weak_ptr<const BaseImageAttribute>& input) { m_input = input; }

    image::eImageBufferType getImageBufferType() const override;
    std::vector<image::eImageBufferType> getImageBufferTypeVector() const override;
    unsigned long getSizeX() const override;
    unsigned long getSizeY() const override;
    image::VolumeGeometry getVolumeGeometry() const override;
    image::ColorGeometry getColorGeometry() const override;
    image::TemporalGeometry getTemporalGeometry() const override;
    bool hasInputImage() const override;
    ImageConstPtr getInputImage() const override;

private:
    const image::BaseImageGeometry& getInputGeometry(ImageConstPtr& image) const;

    boost::weak_ptr<const BaseImageAttribute> m_input;
};

} // namespace orlix::imaproc
