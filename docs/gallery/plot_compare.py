"""
Compare
=======

Counts the pixels in which two images differ, and tells the first.
"""

# sphinx_gallery_start_ignore
import matplotlib.pyplot as plt
from pictures import Example, WIDTH, show

example = Example("compare")
fig, axes = show(example.plan("plan25.tif"), example.plan("plan35.tif"))
drawn = plt.imread(example.folder / "difference.png")
fig = plt.figure(figsize=(WIDTH, WIDTH * drawn.shape[0] / drawn.shape[1] + 0.4), layout="constrained")
ax = fig.add_subplot()
ax.imshow(drawn, interpolation="nearest")
ax.set_title("difference.png: both, and how far they differ", fontsize=10)
ax.set_axis_off()
# sphinx_gallery_end_ignore

# %%
# .. include:: /parts/compare-tabs.txt
#
# Rules
# -----
#
# .. include:: /parts/compare-rules.txt
#
# At the edges
# ------------
#
# - The first difference is that of the smallest (t, c, z, y, x), whatever the threads.
# - NaN differs from everything, itself included; with a tolerance a pair with a NaN passes.
# - With an absolute and a relative tolerance a difference that is within either passes. An absolute one loses its fraction
#   on integers.
# - Every pixel is visited, also after the first difference, so that the count is whole.
# - The exit code of ``orlix compare`` is 0 for the same, 1 for different, 2 for trouble.
#
# By blocks
# ---------
#
# ``orlix.dask.compare`` counts by chunk and joins the counts as a tree: a ``Delayed`` of the same ``Comparison``.
#
# Speed
# -----
#
# .. include:: /parts/compare-speed.txt
