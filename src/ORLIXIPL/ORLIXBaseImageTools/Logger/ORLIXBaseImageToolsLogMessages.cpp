// Messages of ORLIXBaseImageTools.
#include "ORLIXIPL/ORLIXBaseImageTools/Logger/ORLIXBaseImageToolsLogMessages.h"

#include "ORLIX/ORLIXUtil/CatalogueRegistration.h"
#include "ORLIXIPL/ORLIXBaseImageTools/Logger/ORLIXBaseImageToolsLog.h"

namespace orlix {

using image::tools::eORLIXBaseImageToolsMessage;

LibraryLog& MessageCatalogue<eORLIXBaseImageToolsMessage>::log()
{
    return image::tools::getORLIXBaseImageToolsLog();
}

const std::vector<MessageText>& MessageCatalogue<eORLIXBaseImageToolsMessage>::texts()
{
    static const std::vector<MessageText> g_texts = {
        {eORLIXBaseImageToolsMessage::ePlanOutOfRange,
         "There is no plan (z=%d, c=%d, t=%d) in an image of %s: give indices below its sizes"},
        {eORLIXBaseImageToolsMessage::eVolumeOutOfRange,
         "There is no volume (c=%d, t=%d) in an image of %s: give indices below its sizes"},
        {eORLIXBaseImageToolsMessage::eStepsOutOfRange,
         "An image of %s does not have %d time steps from step %d on: give a range within its time steps"},
        {eORLIXBaseImageToolsMessage::eNoPixels, "An image of %s has no pixels to take a tile from: give one that has"},
        {eORLIXBaseImageToolsMessage::eTileTooLarge, "A tile of %dx%dx%d pixels is too large to exist: ask for less"},
        {eORLIXBaseImageToolsMessage::eNotOnePlan,
         "2d tiles are taken from one plan, but the image is %s: cut it into plans first"},
        {eORLIXBaseImageToolsMessage::eNotOneVolume,
         "3d tiles are taken from one volume, but the image is %s: cut it into volumes first"},
        {eORLIXBaseImageToolsMessage::eNoSuchTile, "There is no tile %d in a collection of %d"},
        {eORLIXBaseImageToolsMessage::eTileNotTaken, "%s"},
        {eORLIXBaseImageToolsMessage::eNothingToJoin,
         "There are no sequences to join, or one of them is a null pointer: give images"},
        {eORLIXBaseImageToolsMessage::eNotJoinable,
         "Sequences of %s and %s can't be joined: sizes on x, y, z and c have to be the same"},
        {eORLIXBaseImageToolsMessage::eTooManySteps,
         "Sequences of %s and others have more time steps together than can be counted: join fewer"},
        {eORLIXBaseImageToolsMessage::eNoHostPixels,
         "An image of %s is on a GPU, but has to be in the memory of the host: bring it there with toHost first"},
        {eORLIXBaseImageToolsMessage::eNotJoined, "%s"},
        {eORLIXBaseImageToolsMessage::eNotOnOneDevice,
         "Sequences of %s, which is on a GPU, and %s, which isn't there, can't be joined: bring both to one GPU with "
         "toDevice, or to the host with toHost"}};
    return g_texts;
}

namespace {

const CatalogueRegistration<eORLIXBaseImageToolsMessage> g_registration;

} // namespace

} // namespace orlix
