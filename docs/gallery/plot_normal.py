"""
Normal values
=============

Makes an image of values of a normal law, as noise has it.
"""

# sphinx_gallery_start_ignore
import numpy as np
from pictures import Example, draw_plan, figure

example = Example("normal")
fig, axes = figure(2, 3.4, width_ratios=[1.6, 1])
left, right = axes[0]
draw_plan(left, example.plan("grain.tif"))
right.hist(example.array("grain.tif").ravel(), bins=np.arange(-0.5, 256, 4), color="tab:orange", label="pixels")
x = np.arange(256)
law = np.exp(-(((x - 128) / 32) ** 2) / 2) / (32 * np.sqrt(2 * np.pi)) * 4 * 192 * 96
right.plot(x, law, color="black", label="the law")
right.set_title("how often each value occurs, in steps of 4", fontsize=10)
right.set_xlabel("value")
right.set_ylabel("pixels")
right.legend(fontsize=8)
# sphinx_gallery_end_ignore

# %%
# .. include:: /parts/normal-tabs.txt
#
# Rules
# -----
#
# .. include:: /parts/normal-rules.txt
#
# At the edges
# ------------
#
# - Integers are rounded, half away from zero, and saturate: on ``UInt8`` what lies below 0 becomes 0.
# - No value lies further than 6.77 deviations from the mean. A deviation of 0 gives the mean everywhere.
# - Seeds are those of :doc:`plot_random`.
#
# By blocks
# ---------
#
# ``orlix.dask.normal`` makes whole lines, as ``orlix.dask.random`` does.
#
# Speed
# -----
#
# .. include:: /parts/normal-speed.txt
