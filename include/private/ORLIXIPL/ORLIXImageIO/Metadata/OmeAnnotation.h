// What an image knows and OME-XML has no place for, kept in an annotation of our own.
#pragma once

#include "ORLIXIPL/ORLIXImageIO/Metadata/ImageMetadata.h"

#include <pugixml.hpp>

namespace orlix::image::io {

/// Adds <StructuredAnnotations> with one annotation to <OME>: element type, is a single plan a volume, is a single
/// step a sequence, the whole calibration.
void addAnnotation(pugi::xml_node ome, const BaseImageGeometry& geometry, const CalibrationPtr& calibration);

/// Takes into `metadata` what the annotation adds to what the rest of <OME> told: the element type where it is stored
/// as the samples are, volume and sequence where they have one plan or step, and the calibration where it has the
/// pixel sizes and the unit of <Pixels>. An annotation that contradicts <Pixels> was left behind by a later change of
/// the file and is not followed.
void followAnnotation(pugi::xml_node ome, ImageMetadata& metadata);

} // namespace orlix::image::io
