// Gives out tiles of an image in groups.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseDataSplit.h"
#include "ORLIX/ORLIXBaseProcessing/ReusedVector.h"
#include "ORLIXIPL/ORLIXBaseImageTools/ImageTileColl.h"
#include "ORLIXIPL/ORLIXImageProcessing/Export.h"

#include <boost/make_shared.hpp>

#include <type_traits>

namespace orlix::imaproc {

/// `TColl` is image::InputImageTile2dColl or image::InputImageTile3dColl. Tiles are the dispatcher's lines; they are
/// taken from the image by the processor that they are given to.
template <class TColl>
class BaseImageTileCollSplit : public processor::BaseDynamicSplit
{
public:
    using CoordsColl = std::vector<typename TColl::Coords>;
    using Places = typename TColl::Places;

    /// What stands for pixels beyond the border of the image, from the next `initBase` on; the mirror at first.
    void setBorderPolicy(const typename TColl::BorderPolicy& policy) { m_border = policy; }

    /// A tile for each of `coords`, in groups of a multiple of `group` tiles, the last one left out, and of no more
    /// than `maxGroup` where that is not below `group`. Fails for a null image and for one of more than one plan, or
    /// volume. An image without pixels gives out nothing. The split takes coordinates over, or copies them into memory
    /// that it keeps from run to run.
    ProcessingResult<bool> initBase(const ImageConstPtr& image, const CoordsColl& coords, unsigned long group,
                                    unsigned long maxGroup);
    ProcessingResult<bool> initBase(const ImageConstPtr& image, CoordsColl&& coords, unsigned long group,
                                    unsigned long maxGroup);
    /// The same for tiles [0, nbTiles) of `places`, which the split refers to until `clear`. All cost what the first
    /// one does.
    ProcessingResult<bool> initBase(const ImageConstPtr& image, const Places& places, unsigned long nbTiles,
                                    unsigned long group, unsigned long maxGroup);

    processor::eSplitDynamicType getSplitDynamicType() const override
    {
        return processor::eSplitDynamicType::eImageTileCollSplit;
    }
    processor::RangeDemand getRangeDemand() const override { return m_demand; }
    void clear() override
    {
        m_image.reset();
        processor::emptyForReuse(m_coords);
    }

    /// Makes the collection of tiles [start, start + size) and hands it on.
    ProcessingResult<bool> processAttribute(processor::BaseProcessor& lower, unsigned long start, unsigned long size,
                                            const core::BaseRequestOrigin& origin) override;
    virtual ProcessingResult<bool> processAttribute(processor::BaseProcessor& lower,
                                                    const boost::shared_ptr<TColl>& coll) = 0;

protected:
    BaseImageTileCollSplit();

private:
    typename TColl::BorderPolicy m_border;
    ImageConstPtr m_image;
    CoordsColl m_coords; ///< the tiles refer to them, unless places were given
    Places m_places{nullptr};
    processor::RangeDemand m_demand{true, 0, 0, 1};
    boost::shared_ptr<TColl> m_coll; ///< the last one made, for use again once its processor has let it go
};

extern template class ORLIXIMAGEPROCESSING_API BaseImageTileCollSplit<image::InputImageTile2dColl>;
extern template class ORLIXIMAGEPROCESSING_API BaseImageTileCollSplit<image::InputImageTile3dColl>;

using BaseImageTile2dCollSplit = BaseImageTileCollSplit<image::InputImageTile2dColl>;
using BaseImageTile3dCollSplit = BaseImageTileCollSplit<image::InputImageTile3dColl>;

/// Feeds attribute `TAttribute` of processors of class `TProcessor`.
template <class TColl, class TProcessor, class TAttribute>
class InputImageTileCollSplit final
    : public processor::FeedingSplit<BaseImageTileCollSplit<TColl>, TProcessor, TAttribute>
{
public:
    using BaseImageTileCollSplit<TColl>::processAttribute;
    ProcessingResult<bool> processAttribute(processor::BaseProcessor& lower,
                                            const boost::shared_ptr<TColl>& coll) override
    {
        this->feed(lower, coll);
        return true;
    }
};

template <class TProcessor, class TAttribute>
using InputImageTile2dCollSplit = InputImageTileCollSplit<image::InputImageTile2dColl, TProcessor, TAttribute>;
template <class TProcessor, class TAttribute>
using InputImageTile3dCollSplit = InputImageTileCollSplit<image::InputImageTile3dColl, TProcessor, TAttribute>;

} // namespace orlix::imaproc
