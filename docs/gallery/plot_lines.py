"""
Lines
=====

Makes parallel straight lines, one pixel wide, in a plan or in a volume.
"""

# sphinx_gallery_start_ignore
from pictures import Example, draw_plan, figure

example = Example("lines")
draw_plan(figure(1, 4.8)[1][0][0], example.plan("lines.tif"))
fig, axes = figure(3, 3.6)
volume = example.array("volume.tif")
for ax, seen, axis, names in zip(axes[0], ("top", "front", "side"), range(3), (("y", "x"), ("z", "x"), ("z", "y"))):
    draw_plan(ax, (volume.any(axis), f"volume.tif, seen from the {seen}", names))
# sphinx_gallery_end_ignore

# %%
# .. include:: /parts/lines-tabs.txt
#
# Rules
# -----
#
# .. include:: /parts/lines-rules.txt
#
# At the edges
# ------------
#
# - One line runs through the centre, (sizeX / 2, sizeY / 2), which for odd sizes lies between pixels.
# - Angles are in radians in C++ and Python, in degrees on the command line, where ``0.5rad`` is possible too.
# - A spacing of 0, below 0, infinite or NaN draws nothing; one below 1 sets every pixel of a plan.
# - The same pixels with every instruction set and any number of threads.
#
# By blocks
# ---------
#
# ``orlix.dask.lines`` makes each chunk from its place in the whole; a pixel depends on nothing else.
#
# Speed
# -----
#
# .. include:: /parts/lines-speed.txt
