#include "ORLIXIPL/ORLIXIPLUtility/Processor/LinePart.h"

#include "ORLIX/ORLIXCore/BaseExecutor.h"
#include "ORLIX/ORLIXCore/CallWatch.h"
#include "ORLIX/ORLIXCore/Logger/ORLIXCoreLogMessages.h"
#include "ORLIX/ORLIXUtil/Raise.h"
#include "ORLIXIPL/ORLIXIPLUtility/Logger/ORLIXIPLUtilityLogMessages.h"
#include "ORLIXIPL/ORLIXImage/SubImage.h"

#include <algorithm>
#include <exception>
#include <limits>
#include <mutex>

namespace orlix::imaproc::util {

namespace {

constexpr unsigned long g_pieceBytes = 1UL << 16; ///< drawn in some 20 microseconds: much to what a piece costs
constexpr unsigned long g_lineWeight = 8;         ///< how much more a byte costs that is computed

bool reachesBeyond(unsigned long size, unsigned long first, unsigned long whole)
{
    return first > whole || size > whole - first;
}

/// What the caller's watch sees of the pieces: they are the elements of one call. The run of a piece has none of its
/// own, so it tells nothing.
class WatchedPieces
{
public:
    explicit WatchedPieces(unsigned long nbPieces) : m_watch(core::CallWatch::getInnermost()), m_progress{0, nbPieces}
    {
        if (m_watch != nullptr) {
            throwIfCancelled();
            static_cast<void>(m_watch->tell(m_progress));
        }
    }

    template <class TDraw>
    void draw(const TDraw& drawPiece)
    {
        if (m_watch == nullptr) {
            drawPiece();
            return;
        }
        throwIfCancelled();
        drawPiece();
        const std::lock_guard<std::mutex> lock(m_mutex);
        ++m_progress.done;
        static_cast<void>(m_watch->tell(m_progress));
    }

private:
    void throwIfCancelled() const
    {
        if (m_watch->isCancelled()) {
            processor::details::throwRunFailed(ProcessingResult<bool>::failure(
                formatMessage<core::eORLIXCoreMessage>(core::eORLIXCoreMessage::eCancelled)));
        }
    }

    core::CallWatch* m_watch; ///< null where nobody watches
    std::mutex m_mutex;
    core::Progress m_progress;
};

/// Calls `draw` for all pieces below `nbPieces`.
template <class TDraw>
void forEachPiece(unsigned long nbPieces, unsigned long nbPixels, const TDraw& draw)
{
    std::mutex mutex;
    std::exception_ptr failure;
    unsigned long firstFailed = std::numeric_limits<unsigned long>::max();
    WatchedPieces pieces(nbPieces);
    auto drawOrNote = [&](unsigned long piece) {
        try {
            pieces.draw([&] { draw(piece); });
        } catch (...) {
            const std::lock_guard<std::mutex> lock(mutex);
            if (piece < firstFailed) {
                firstFailed = piece;
                failure = std::current_exception();
            }
        }
    };
    core::accessExecutor().forEach(nbPieces, g_lineWeight * nbPixels, drawOrNote);
    if (failure) {
        std::rethrow_exception(failure);
    }
}

} // namespace

void checkPart(const image::BaseImage& out, const attr::Img3dSizeRecord& whole, const attr::Img3dOffsetRecord& first)
{
    if (reachesBeyond(out.getSizeX(), first.X, whole.X) || reachesBeyond(out.getSizeY(), first.Y, whole.Y) ||
        reachesBeyond(out.getSizeZ(), first.Z, whole.Z)) {
        raise<eORLIXIPLUtilityMessage>(ORLIX_HERE, eORLIXIPLUtilityMessage::ePartBeyondWhole,
                                       out.getGeometry().toString(), first.X, first.Y, first.Z, whole.X, whole.Y,
                                       whole.Z);
    }
}

void forEachPieceOfPlans(const image::BaseImage& out, const DrawLines& draw)
{
    const unsigned long nbPixels = out.getGeometry().getNbPixels();
    if (nbPixels == 0) {
        return;
    }
    const unsigned long nbLines = std::clamp(g_pieceBytes / out.getSizeX(), 1UL, out.getSizeY());
    const unsigned long nbOfPlan = (out.getSizeY() - 1) / nbLines + 1;
    const unsigned long nbPlans = nbPixels / out.getSizeX() / out.getSizeY();
    forEachPiece(nbPlans * nbOfPlan, nbPixels, [&](unsigned long piece) {
        const unsigned long plan = piece / nbOfPlan;
        const unsigned long channel = plan / out.getSizeZ();
        const unsigned long t = channel / out.getSizeC();
        const unsigned long firstLine = piece % nbOfPlan * nbLines;
        draw(boost::make_shared<image::SubImage>(out, image::planGeometry(out, t), plan % out.getSizeZ(),
                                                 channel % out.getSizeC(), t),
             firstLine, std::min(nbLines, out.getSizeY() - firstLine));
    });
}

void forEachPlanOfVolumes(const image::BaseImage& out, const DrawPlan& draw)
{
    const unsigned long nbPixels = out.getGeometry().getNbPixels();
    if (nbPixels == 0) {
        return;
    }
    forEachPiece(nbPixels / out.getSizeX() / out.getSizeY(), nbPixels, [&](unsigned long plan) {
        const unsigned long channel = plan / out.getSizeZ();
        const unsigned long t = channel / out.getSizeC();
        draw(boost::make_shared<image::SubImage>(out, image::volumeGeometry(out, t), 0, channel % out.getSizeC(), t),
             plan % out.getSizeZ());
    });
}

} // namespace orlix::imaproc::util
