"""
Convert
=======

Converts the elements to another type, values as they stand.
"""

# sphinx_gallery_start_ignore
from pictures import Example, draw_plan, figure

example = Example("convert")
fig, axes = figure(3, 4)
for ax, name in zip(axes[0], ("head.tif", "real.tif", "binary.tif")):
    shown = draw_plan(ax, example.plan(name, z=35))
    fig.colorbar(shown, ax=ax, location="bottom", label="value")
# sphinx_gallery_end_ignore

# %%
# .. include:: /parts/convert-tabs.txt
#
# Rules
# -----
#
# .. include:: /parts/convert-rules.txt
#
# At the edges
# ------------
#
# - Nothing is scaled. Fractions are dropped towards zero: 1.9 becomes 1, -1.9 becomes -1.
# - ``Binary`` is 1 from 1 on: noise about the black of the air is 1 above, where ``head.tif`` holds 1 and more.
# - What the target can hold comes out the same on every processor. What it can not hold depends on the instruction set;
#   :doc:`/types` has the table.
#
# By blocks
# ---------
#
# ``orlix.dask.convert`` converts each chunk by itself; a worker with another instruction set fails, since results could
# depend on it.
#
# Speed
# -----
#
# .. include:: /parts/convert-speed.txt
