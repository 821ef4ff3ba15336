"""
Erase
=====

Sets every pixel of an image, or of a part of it, to one value.
"""

# sphinx_gallery_start_ignore
from pictures import Example, show

example = Example("erase")
show(example.plan("head.tif", z=35), example.plan("erased.tif", z=35))
# sphinx_gallery_end_ignore

# %%
# .. include:: /parts/erase-tabs.txt
#
# Rules
# -----
#
# .. include:: /parts/erase-rules.txt
#
# At the edges
# ------------
#
# - It works in place: in Python the array that is given is written and returned, be it a view with gaps.
# - Nothing saturates: on ``UInt8`` 300 gives 44 and -1 gives 255. 1.9 gives 1 on every integer type.
# - NaN and infinities give 0, on ``Int32`` -2147483648; ``Real32`` takes them as they are.
#
# By blocks
# ---------
#
# ``orlix.dask.erase`` gives a new array, each chunk by itself, since Dask arrays are not written.
#
# Speed
# -----
#
# .. include:: /parts/erase-speed.txt
