// Attributes that carry tiles.
#pragma once

#include "ORLIXIPL/ORLIXBaseImageTools/ImageTileColl.h"
#include "ORLIXIPL/ORLIXImageProcessing/BaseImageAttributes.h"

namespace orlix::imaproc {

/// What attributes of tiles of either kind have in common. All but `init` and `clear` is for attributes that hold a
/// collection.
template <class TColl>
class BaseInputTileCollAttribute : public BaseImageProcessingAttribute
{
public:
    using CollType = TColl;
    using StorageType = boost::shared_ptr<TColl>;
    static constexpr bool g_bOutput = false;

    eImageProcessingAttributeType getImageProcessingAttributeType() const override
    {
        return eImageProcessingAttributeType::eTileCollAttribute;
    }
    bool isOutput() const override { return false; }
    void clear() override { m_coll.reset(), markUnset(); }

    void init(const StorageType& coll) { m_coll = coll, markSet(!m_coll); }
    const StorageType& getStorage() const { return m_coll; }

    unsigned long getNbTiles() const { return m_coll->getNbTiles(); }
    image::eImageBufferType getImageBufferType() const { return m_coll->getImageBufferType(); }

private:
    StorageType m_coll;
};

class ORLIXIMAGEPROCESSING_API BaseInputTile2dCollAttribute
    : public BaseInputTileCollAttribute<image::InputImageTile2dColl>
{
public:
    /// Until the next tile is asked for.
    const image::InputImageTile2d& getImageTile2d(unsigned int index) const { return getStorage()->getTile(index); }
};

class ORLIXIMAGEPROCESSING_API BaseInputTile3dCollAttribute
    : public BaseInputTileCollAttribute<image::InputImageTile3dColl>
{
public:
    /// Until the next tile is asked for.
    const image::InputImageTile3d& getImageTile3d(unsigned int index) const { return getStorage()->getTile(index); }
};

} // namespace orlix::imaproc
