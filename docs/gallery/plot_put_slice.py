"""
Put a slice
===========

Puts an image into a volume as its slice across x, y or z.
"""

# sphinx_gallery_start_ignore
from pictures import Example, show

example = Example("put-slice")
show(example.plan("head.tif", z=35), example.plan("doubled.tif", z=35), example.plan("doubled.tif", y=8), height=3.4)
# sphinx_gallery_end_ignore

# %%
# .. include:: /parts/put-slice-tabs.txt
#
# Rules
# -----
#
# .. include:: /parts/put-slice-rules.txt
#
# At the edges
# ------------
#
# - The slice has the sizes of the volume without the axis, and its element type; anything else is refused in Python and on
#   the command line. In C++ ``takesSlice`` tells.
# - In place, ``out=volume`` in Python, only the slice is written.
#
# By blocks
# ---------
#
# ``orlix.dask.put_slice`` joins what lies before the slice, the slice and what lies behind.
#
# Speed
# -----
#
# .. include:: /parts/put-slice-speed.txt
