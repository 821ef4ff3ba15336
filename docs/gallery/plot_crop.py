"""
Crop
====

Cuts a rectangle out of every plan, or a box out of every volume.
"""

# sphinx_gallery_start_ignore
from pictures import Example, outline, show

example = Example("crop")
_, (before, after) = show(example.plan("head.tif", z=35), example.plan("front.tif", z=15))
outline(before, 32, 0, 64, 64)
# sphinx_gallery_end_ignore

# %%
# .. include:: /parts/crop-tabs.txt
#
# Rules
# -----
#
# .. include:: /parts/crop-rules.txt
#
# At the edges
# ------------
#
# - A region that reaches beyond the image is refused, by a pixel or by far; nothing is cut short.
# - The origin of the calibration moves with the region, so that a place keeps its position in millimetres.
# - Of a TIFF file ``orlix crop``, ``orlix.read(file, region=...)`` and ``image::io::readRegion`` read the strips and tiles
#   that the region touches, and no others.
#
# By blocks
# ---------
#
# ``orlix.dask.crop`` slices: only chunks that the region touches are ever computed.
#
# Speed
# -----
#
# .. include:: /parts/crop-speed.txt
