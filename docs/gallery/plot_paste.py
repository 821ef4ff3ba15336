"""
Paste
=====

Puts a smaller image into a larger one.
"""

# sphinx_gallery_start_ignore
from pictures import Example, outline, show

example = Example("paste")
_, (region, after) = show(example.plan("front.tif", z=14), example.plan("pasted.tif", z=70))
outline(after, 0, 64, 64, 64)
# sphinx_gallery_end_ignore

# %%
# .. include:: /parts/paste-tabs.txt
#
# Rules
# -----
#
# .. include:: /parts/paste-rules.txt
#
# At the edges
# ------------
#
# - What would stick out is refused, and nothing is written.
# - In place, ``out=image`` in Python, only the pixels of the region are touched.
# - In 2d the region has as many plans as the image, and each gets its own.
# - The calibration is that of the larger image.
#
# By blocks
# ---------
#
# ``orlix.dask.paste`` joins the chunks around the region with it, by slices.
#
# Speed
# -----
#
# .. include:: /parts/paste-speed.txt
