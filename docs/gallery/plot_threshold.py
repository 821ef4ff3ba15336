"""
Threshold
=========

Marks the pixels whose value lies between two bounds, both included.
"""

# sphinx_gallery_start_ignore
from pictures import Example, show

example = Example("threshold")
show(example.plan("head.tif", z=35), example.plan("mask.tif", z=35))
# sphinx_gallery_end_ignore

# %%
# .. include:: /parts/threshold-tabs.txt
#
# Rules
# -----
#
# .. include:: /parts/threshold-rules.txt
#
# At the edges
# ------------
#
# - The result is binary: ``bool`` in NumPy, one byte a pixel in memory, one bit in a file.
# - Integers take bounds without their fraction: 1.5 to 2.9 is 1 to 2. ``Real32`` takes them in single precision.
# - NaN lies between no bounds; a bound that is NaN or infinite is refused.
# - A bound that is left out on the command line is the end of the range of the element type.
#
# By blocks
# ---------
#
# ``orlix.dask.threshold`` marks each chunk by itself.
#
# Speed
# -----
#
# .. include:: /parts/threshold-speed.txt
