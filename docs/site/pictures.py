"""Runs an example of the gallery and draws what it read and wrote."""

import contextlib
import io
import os
import runpy
import shutil
import subprocess
from pathlib import Path

import matplotlib.pyplot as plt
import numpy as np

import orlix

ROOT = Path(os.environ["ORLIX_ROOT"])
WORK = Path(os.environ["ORLIX_SITE"]) / "work"
WIDTH = 9  # of a figure, in inches


class InReadmesOrder:
    """Sorts pages as the table of operators in the README has their verbs."""

    def __init__(self, folder):
        text = (ROOT / "README.md").read_text()
        self.verbs = [line.split()[2].rstrip("`") for line in text.splitlines() if line.startswith("| `orlix ")]

    def __call__(self, name):
        return self.verbs.index(name.removeprefix("plot_").removesuffix(".py").replace("_", "-"))


class Example:
    """An example that was run in Python and on the command line, in a folder with head.tif."""

    def __init__(self, verb):
        self.folder = WORK / verb
        shutil.rmtree(self.folder, ignore_errors=True)
        self.folder.mkdir(parents=True)
        head = WORK / "head.tif"
        if not head.exists():
            subprocess.run(["makePhantom", str(head)], check=True)
        (self.folder / "head.tif").symlink_to(head)
        example = ROOT / "docs/gallery" / verb
        subprocess.run(["bash", "-eu", str(example / "example.sh")], cwd=self.folder, check=True, stdout=subprocess.DEVNULL)
        with contextlib.chdir(self.folder), contextlib.redirect_stdout(io.StringIO()):
            self.variables = runpy.run_path(str(example / "example.py"))

    def array(self, name):
        return np.asarray(orlix.read(self.folder / name))

    def plan(self, name, down_across=None, **index):
        """Of a file a plan, such as z=35 of a volume: what to draw, its title and the names of its axes."""
        image = orlix.read(self.folder / name)
        places = tuple(index.get(axis.lower(), slice(None)) for axis in image.axes)
        axes = down_across or [axis.lower() for axis, place in zip(image.axes, places) if isinstance(place, slice)]
        where = "".join(f", {axis} = {number}" for axis, number in index.items())
        sizes = " x ".join(str(size) for size in image.shape[::-1])
        title = f"{name}{where}\n{sizes} {image.element_type}"
        return np.asarray(image)[places], title, axes


def draw_plan(ax, panel, range_=None):
    """Draw a plan in grey, black to white over `range_`, by default all that its type holds."""
    array, title, (down, across) = panel
    if range_ is None:
        range_ = (0, 1) if array.dtype == bool else (0, 65535) if array.dtype.itemsize > 1 else (0, 255)
    shown = ax.imshow(array, cmap="gray", vmin=range_[0], vmax=range_[1], interpolation="nearest")
    ax.set_title(title, fontsize=10)
    ax.set_xlabel(across)
    ax.set_ylabel(down)
    return shown


def figure(columns, height=4.2, **options):
    return plt.subplots(1, columns, figsize=(WIDTH, height), layout="constrained", squeeze=False, **options)


def show(*panels, ranges=None, height=4.2):
    """Draw plans side by side: what was read on the left, what was written right of it."""
    fig, axes = figure(len(panels), height)
    for number, panel in enumerate(panels):
        draw_plan(axes[0][number], panel, ranges[number] if ranges else None)
    return fig, axes[0]


def outline(ax, x, y, width, height):
    """Frame the pixels of a region."""
    frame = plt.Rectangle((x - 0.5, y - 0.5), width, height, fill=False, edgecolor="tab:orange", linewidth=2)
    ax.add_patch(frame)
