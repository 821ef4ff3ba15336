// Messages of the command line.
#include "CommandMessages.h"

#include "ORLIX/ORLIXUtil/CatalogueRegistration.h"
#include "ORLIX/ORLIXUtil/Logger/LibraryLog.h"

namespace orlix {

using cli::eCommandMessage;

LibraryLog& MessageCatalogue<eCommandMessage>::log()
{
    static LibraryLog g_log("orlix");
    return g_log;
}

const std::vector<MessageText>& MessageCatalogue<eCommandMessage>::texts()
{
    static const std::vector<MessageText> g_texts = {
        {eCommandMessage::eBadArguments, "%s; `%s --help` tells more"},
        {eCommandMessage::eNoVerb, "a verb is needed, one of %s; `orlix --help` tells more"},
        {eCommandMessage::eUnknownVerb, "\"%s\" is no verb%s; use one of %s; `orlix --help` tells more"},
        {eCommandMessage::eUnknownInstructionSet,
         "--instruction-set: \"%s\" is no instruction set%s; use one that this processor has: %s"},
        {eCommandMessage::eInstructionSetMissing,
         "--instruction-set: this processor lacks %s; use one that it has: %s"},
        {eCommandMessage::eOptionForTiffOnly,
         "%s is for TIFF files, but the output is %s; leave the option out or let the name end in .tif"},
        {eCommandMessage::eOutputClosed, "the standard output can't be written (%s)"},
        {eCommandMessage::eNoMemory, "there is not enough memory; free some or work on a smaller image"},
        {eCommandMessage::eUnknownFailure, "an unknown exception ended the work; please report it"},
        {eCommandMessage::eInterrupted, "interrupted"},
        {eCommandMessage::eNotComparable,
         "%s is %s, %s is %s: only images of the same sizes and element type can be compared; `orlix convert` changes "
         "the type"},
        {eCommandMessage::ePictureNotPng,
         "--picture: the picture is a PNG file, but its name is %s: let it end in .png"},
        {eCommandMessage::eTypeNotHeld, "%s: PNG files hold %s, but the image is %s: let `orlix convert` change the "
                                        "type, or let the name end in .tif"},
        {eCommandMessage::eBadOption, "expected %s, found \"%s\"%s"},
        {eCommandMessage::eUnknownProcessor, "\"%s\" is no processor%s; `orlix processors` lists all"},
        {eCommandMessage::eAmbiguousProcessor, "\"%s\" means several processors; use one of %s"},
        {eCommandMessage::eNoAssignment, "\"%s\" must be an ATTRIBUTE=VALUE; `orlix run --help` tells more"},
        {eCommandMessage::eUnknownAttribute, "%s has no attribute \"%s\"%s; it has %s"},
        {eCommandMessage::eAssignedTwice, "%s is given twice; leave one out"},
        {eCommandMessage::eBadAssignment, "%s%s; `orlix run %s --help` tells more"},
        {eCommandMessage::eNotGiven, "--given is for outputs that are images, but %s is none; write %s=VALUE alone"},
        {eCommandMessage::eNeedsGivenImage,
         "%s writes %s into an image that is there already: read one with --given %s=FILE"},
        {eCommandMessage::eNeedsValue, "%s needs %s (%s): add %s=%s"},
        {eCommandMessage::eNotFromOutside,
         "%s needs %s (%s), which neither a file nor a text can give: run a processor of level 1"},
        {eCommandMessage::eSameTarget, "%s and %s can't both go to %s: name two files"},
        {eCommandMessage::eOutputNotMade, "%s made no %s: there is nothing to write"},
        {eCommandMessage::eUnknownOption, "\"%s\" is no option of `%s`%s; `%s --help` lists all"},
        {eCommandMessage::eBeyondTolerance, "%s %s: tolerances on %s go from 0 to %d"},
        {eCommandMessage::eBeyondType, "%s %s: %s holds %s to %s"},
        {eCommandMessage::eBoundsCross, "%s %s is above %s %s: exchange the two"},
        {eCommandMessage::eNoCodec,
         "--compression: %s is not built into the TIFF library of this system; use one of %s"},
        {eCommandMessage::eValueMissing, "%s needs a value; `%s --help` tells more"},
        {eCommandMessage::eNoValueTaken, "%s takes no value; `%s --help` tells more"},
        {eCommandMessage::eNoFileName, "the name of a file is empty; give one"},
        {eCommandMessage::eNoSize, "the new image needs --size W,H and --type TYPE, or --like IMAGE"},
        {eCommandMessage::eSizeTwice, "--like tells the size too: leave --size out"},
        {eCommandMessage::eNoRegion,
         "a region is needed: add --at, --size or --region; `orlix crop --help` tells more"},
        {eCommandMessage::eRegionTwice, "--region tells what %s tells too; leave one out"},
        {eCommandMessage::eNoDepth, "%s %s: %s is one plan and no volume; give x and y alone"},
        {eCommandMessage::eNoVolume, "%s is %s, one plan and no volume: only volumes have slices"},
        {eCommandMessage::eIndexBeyond,
         "--index %s: %s is %s, so slices along %s go from 0 to %d, or from -1, the last, to -%d"},
        {eCommandMessage::eTypesDiffer,
         "%s is %s, %s is %s: both need the same element type; `orlix convert` changes it"},
        {eCommandMessage::eNoSuchSlice, "%s is %s%s, but a slice along %s of %s is %s: make it such a plan"},
        {eCommandMessage::eOtherAxesDiffer, "%s is %s, %s is %s: both need as many %s"},
        {eCommandMessage::eRegionSticksOut,
         "%s is %s, put at %s into %s, which is %s, it ends beyond the %s of %d: put it elsewhere or crop it"},
        {eCommandMessage::eTableNotRead, "%s can't be read (%s): name a table of points"},
        {eCommandMessage::eTableTooLarge, "%s is larger than %d MiB: give less at a time"},
        {eCommandMessage::eTableHasValues, "%s, line %d: there is a column \"value\" already: rename it"},
        {eCommandMessage::eTableNotWritten, "%s: %s"},
        {eCommandMessage::eColumnTwice, "%s, line %d: there are two columns \"%s\": rename one"},
        {eCommandMessage::eColumnsMissing,
         "%s, line %d: expected the names of columns, x and y among them, found \"%s\""},
        {eCommandMessage::eFieldCount, "%s: expected %d fields, found %d in \"%s\""},
        {eCommandMessage::eBadField, "%s: %s: expected %s, found \"%s\""},
        {eCommandMessage::ePlanNotTold,
         "%s is %s, but %s doesn't say where on %s its points lie: add columns, or give --plan Z,C,T"},
        {eCommandMessage::eNoSuchPlan, "%s: there is no plan %d of channel %d at time %d in %s, which is %s"},
        {eCommandMessage::ePointOutside,
         "%s: %s is outside of %s, whose pixel centres go from %s to %s; --outside mirror takes values there too"},
        {eCommandMessage::eMirrorNeedsTiles, "--outside mirror goes with tiles alone; leave out --method striped"},
        {eCommandMessage::eNotCalibrated, "%s has no pixel sizes: leave out --calibrated, and give points in pixels"},
        {eCommandMessage::eRotated, "the axes of %s are rotated: leave out --calibrated, and give points in pixels"},
        {eCommandMessage::eNotAppendable, "%s is %s, %s is %s: only images of the same sizes on x, y, z and c and the "
                                          "same element type can be appended; "
                                          "`orlix convert` changes the type"},
        {eCommandMessage::eForVolumesOnly,
         "%s is for volumes, but %s %s is a plan: add its depth or leave the option out"},
        {eCommandMessage::eNeedsOption, "%s means nothing without %s: give both or none"},
        {eCommandMessage::eOtherAxes, "%s %s has other axes than %s %s: give as many numbers"},
        {eCommandMessage::eDevicesAlone, "--devices tells of this computer and no file: leave out %s, or --devices"}};
    return g_texts;
}

namespace {

const CatalogueRegistration<eCommandMessage> g_registration;

} // namespace

} // namespace orlix
