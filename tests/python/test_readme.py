"""The Python of the README and of its page does what it shows."""

import pathlib
import re

import numpy as np
import pytest

import orlix

ROOT = pathlib.Path(__file__).parents[2]


def blocks_of(page):
    return re.findall(r"```python[^\n]*\n(.*?)```", (ROOT / page).read_text(), re.DOTALL)


BLOCKS = blocks_of("README.md")


def test_there_is_python():
    assert BLOCKS


def test_the_page_on_large_arrays(capsys):
    pytest.importorskip("dask.array")
    (block,) = blocks_of("docs/python.md")
    exec(compile(block, "python.md", "exec"), {})
    pixels = orlix.random((2, 2048, 2048), np.uint16, rng=1)
    assert int(capsys.readouterr().out) == int(((pixels >= 1000) & (pixels <= 40000)).sum())


def test_the_three_languages_show_one_example():
    """The gallery's, whose results a test proves to be the same."""
    page, example = (ROOT / "README.md").read_text(), ROOT / "docs/gallery/slice"
    table = page[page.index("in three languages:") : page.index("</table>")]
    for ending in ("cpp", "py"):
        assert f"file={(example / f'example.{ending}').relative_to(ROOT)}\n" in table
    commands = re.search(r"```console\n(.*?)```", table, re.DOTALL).group(1).replace("$ ", "")
    assert commands == "makePhantom head.tif\n" + (example / "example.sh").read_text()


@pytest.mark.parametrize("block", BLOCKS)
def test_blocks_run(block, tmp_path, monkeypatch):
    monkeypatch.chdir(tmp_path)
    z, y, x = np.ogrid[:96, :128, :128]
    ball = ((z - 48) ** 2 + (y - 64) ** 2 + (x - 64) ** 2 < 40**2) * np.uint16(30000)
    orlix.write("head.tif", orlix.Image(ball, pixel_size=(2.5, 2, 2), unit="mm"))
    exec(compile(block, "README.md", "exec"), {})
    picture = np.asarray(orlix.read("slice.png"))
    assert np.array_equal(picture, ball[:, 64]) and picture.min() < picture.max()
