"""
Random values
=============

Makes an image in which each value of a range is as likely as any other.
"""

# sphinx_gallery_start_ignore
import numpy as np
from pictures import Example, draw_plan, figure

example = Example("random")
fig, axes = figure(2, 3.4, width_ratios=[1.6, 1])
left, right = axes[0]
draw_plan(left, example.plan("noise.tif"))
right.hist(example.array("noise.tif").ravel(), bins=np.arange(-0.5, 256, 4), color="tab:orange")
right.set_title("how often each value occurs, in steps of 4", fontsize=10)
right.set_xlabel("value")
right.set_ylabel("pixels")
# sphinx_gallery_end_ignore

# %%
# .. include:: /parts/random-tabs.txt
#
# Rules
# -----
#
# .. include:: /parts/random-rules.txt
#
# At the edges
# ------------
#
# - Both ends of the range are included. Without one it is all that the element type holds.
# - The same seed, sizes, type, range and instruction set give the same bytes, on any number of threads and in any parts.
# - :doc:`/random-numbers` tells what the numbers are good for, and what they are not.
#
# By blocks
# ---------
#
# ``orlix.dask.random`` makes whole lines of the plans that a chunk lies in, so the bytes are those of the array in one
# piece.
#
# Speed
# -----
#
# .. include:: /parts/random-speed.txt
