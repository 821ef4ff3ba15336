"""
Values
======

Reads values between pixels: nearest, linear or cubic.
"""

# sphinx_gallery_start_ignore
from pictures import Example, draw_plan, figure

example = Example("values")
fig, axes = figure(2, 4.2, width_ratios=[1, 1.4])
left, right = axes[0]
draw_plan(left, example.plan("head.tif", z=35))
left.axhline(60.25, color="tab:orange", linewidth=2)
right.plot(example.variables["x"], example.variables["values"], color="tab:orange")
right.set_title("profile.csv: 255 points along y = 60.25, z = 35.5", fontsize=10)
right.set_xlabel("x in pixels")
right.set_ylabel("value")
right.set_ylim(0)
right.grid(alpha=0.3)
# sphinx_gallery_end_ignore

# %%
# .. include:: /parts/values-tabs.txt
#
# Rules
# -----
#
# .. include:: /parts/values-rules.txt
#
# At the edges
# ------------
#
# - The centre of the first pixel is 0, as in scikit-image and SciPy. Points may lie anywhere, in any order.
# - Beyond the border lies the mirror image dcba|abcd|dcba; ``orlix values`` refuses such points unless it is told
#   ``--outside mirror``.
# - Nearest: a half goes up. Cubic is Catmull-Rom over 4 pixels along each axis: it goes through every pixel and may
#   overshoot their range; SciPy's ``order=3`` is a spline with other values.
# - A coordinate that is NaN or infinite gives NaN.
#
# By blocks
# ---------
#
# ``orlix.dask.values`` sends each point to the chunk that it lies in, with one or two pixels around it; points beyond the
# border are refused.
#
# Speed
# -----
#
# .. include:: /parts/values-speed.txt
