"""
Copy
====

Copies an image, with its axes, element type and calibration.
"""

# sphinx_gallery_start_ignore
from pictures import Example, show

example = Example("copy")
show(example.plan("head.tif", z=35), example.plan("copy.tif", z=35))
# sphinx_gallery_end_ignore

# %%
# .. include:: /parts/copy-tabs.txt
#
# Rules
# -----
#
# .. include:: /parts/copy-rules.txt
#
# At the edges
# ------------
#
# - Arrays with gaps between their rows, regions of larger ones and transposed ones are read where they lie; nothing
#   between their elements is read or written.
# - A new array in Python lies in memory in the order of its input; a new image in C++ is dense.
# - An array without elements is copied to one of the same shape.
# - NaN keep their bits.
#
# By blocks
# ---------
#
# ``orlix.dask.copy`` copies each chunk by itself.
#
# Speed
# -----
#
# .. include:: /parts/copy-speed.txt
