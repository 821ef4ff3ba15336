"""Arrays, places and numbers that the cells of all pages name."""

import numpy as np

import orlix


def arrays():
    rng = np.random.default_rng(11)
    a = rng.integers(0, 256, (48, 64), dtype=np.uint8)
    b = a.copy()
    b[7, 1] ^= 3
    b[30, 50] ^= 1
    g = rng.normal(100, 30, a.shape).astype(np.float32)
    return {
        "a": a,
        "b": b,
        "g": g,
        "g2": g + np.float32(0.25),
        "v": rng.integers(0, 256, (8, 12, 16), dtype=np.uint16),
        "out": np.zeros_like(a),
    }


def numbers():
    plan = {"h": 48, "w": 64, "low": 50, "high": 180, "t": 0.3, "m": 100.0, "sd": 10.0}
    margins = {"top": 3, "bottom": 5, "left": 7, "right": 11}
    return {**plan, **margins, "np": np, "orlix": orlix}


def image_file(path, pixels):
    """A file for a call to read or to write over: its pixels are nobody else's."""
    orlix.write(path, pixels)
    return str(path)
