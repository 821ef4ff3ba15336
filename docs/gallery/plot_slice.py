"""
Slice
=====

Cuts one slice out of a volume, across x, y or z.
"""

# sphinx_gallery_start_ignore
from pictures import Example, show

example = Example("slice")
_, (before, _) = show(example.plan("head.tif", z=35), example.plan("slice.png", "zx"))
before.axhline(64, color="tab:orange", linewidth=2)
# sphinx_gallery_end_ignore

# %%
# .. include:: /parts/slice-tabs.txt
#
# Rules
# -----
#
# .. include:: /parts/slice-rules.txt
#
# At the edges
# ------------
#
# - The two axes that remain keep their order: across x a slice has y across and z down. Pixel sizes go with them.
# - In Python and on the command line -1 is the last slice; a slice that is not there is an ``IndexError``, exit code 2.
# - In C++ the index is the caller's to check: ``hasSlice`` tells whether there is such a slice.
#
# By blocks
# ---------
#
# ``orlix.dask.get_slice`` slices: only chunks that the slice goes through are computed.
#
# Speed
# -----
#
# .. include:: /parts/slice-speed.txt
