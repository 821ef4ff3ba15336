"""
Append
======

Joins two sequences, one after the other along time.
"""

# sphinx_gallery_start_ignore
from pictures import Example, show

example = Example("append")
show(
    example.plan("plan25.tif"),
    example.plan("plan35.tif"),
    example.plan("sequence.tif", t=0),
    example.plan("sequence.tif", t=1),
    height=3,
)
# sphinx_gallery_end_ignore

# %%
# .. include:: /parts/append-tabs.txt
#
# Rules
# -----
#
# .. include:: /parts/append-rules.txt
#
# At the edges
# ------------
#
# - A plan or a volume without time is one step.
# - An image may hold steps of several element types in C++; a file and an array hold one.
# - Where the output is the first sequence it grows in place, and no pixel of it moves.
#
# By blocks
# ---------
#
# ``orlix.dask.append`` is ``da.concatenate`` along t; two types are refused, since an array has one.
#
# Speed
# -----
#
# .. include:: /parts/append-speed.txt
