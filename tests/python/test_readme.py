"""The Python of the README does what it shows."""

import pathlib
import re

import numpy as np
import pytest

import orlix

README = pathlib.Path(__file__).parents[2] / "README.md"
BLOCKS = re.findall(r"```python\n(.*?)```", README.read_text(), re.DOTALL)


def test_there_is_python():
    assert BLOCKS


@pytest.mark.parametrize("block", BLOCKS)
def test_blocks_run(block, tmp_path, monkeypatch):
    monkeypatch.chdir(tmp_path)
    z, y, x = np.ogrid[:96, :128, :128]
    ball = ((z - 48) ** 2 + (y - 64) ** 2 + (x - 64) ** 2 < 40**2) * np.uint16(30000)
    orlix.write("head.tif", orlix.Image(ball, pixel_size=(2.5, 2, 2), unit="mm"))
    exec(compile(block, "README.md", "exec"), {})
    assert orlix.info("slice.png").shape == (96, 128)
