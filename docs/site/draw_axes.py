"""Draws axes.svg, the picture of an array of five axes that the page on axes shows: python3 draw_axes.py axes.svg"""

import sys

SHAPE = T, C, Z, Y, X = (2, 2, 3, 4, 6)
ORANGE = (1, 0, 0, 2, 4)  # the pixel that is named in both languages
PIXEL, BEHIND = 17, 16  # sizes on the page: of a pixel, and from a plan to the one behind it
LEFT, TOP, TO_NEXT_C, TO_NEXT_T = 90, 110, 200, 175
MONOSPACE = 'font-family="DejaVu Sans Mono, monospace"'


def line(x1, y1, x2, y2, stroke):
    return f'<line x1="{x1}" y1="{y1}" x2="{x2}" y2="{y2}" {stroke}/>'


def arrow(x1, y1, x2, y2):
    return line(x1, y1, x2, y2, 'stroke="#333" stroke-width="1.5" marker-end="url(#tip)"')


def text(x, y, words, style=""):
    return f'<text x="{x}" y="{y}" fill="#333" {style}>{words}</text>'


def plan(left, top, c):
    """A grid of pixels."""
    width, height = X * PIXEL, Y * PIXEL
    colour = ("#dbe9f6", "#e7f3e4")[c]
    yield f'<rect x="{left}" y="{top}" width="{width}" height="{height}" fill="{colour}" stroke="#567" stroke-width="1"/>'
    thin = 'stroke="#9ab" stroke-width="0.6"'
    for x in range(left + PIXEL, left + width, PIXEL):
        yield line(x, top, x, top + height, thin)
    for y in range(top + PIXEL, top + height, PIXEL):
        yield line(left, y, left + width, y, thin)


def volume(t, c):
    left, top = LEFT + c * TO_NEXT_C, TOP + t * TO_NEXT_T
    for z in reversed(range(Z)):
        yield from plan(left + z * BEHIND, top - z * BEHIND, c)
    if ORANGE[:3] == (t, c, 0):
        x, y = left + ORANGE[4] * PIXEL, top + ORANGE[3] * PIXEL
        yield f'<rect x="{x}" y="{y}" width="{PIXEL}" height="{PIXEL}" fill="#e8711a" stroke="#333"/>'
    yield text(left, top + Y * PIXEL + 18, f"t = {t}, c = {c}", 'font-size="12"')


def arrows():
    bold = 'font-weight="bold" font-size="16"'
    right, bottom = LEFT + X * PIXEL, TOP + Y * PIXEL
    yield arrow(LEFT - 14, TOP, LEFT - 14, bottom) + text(LEFT - 32, (TOP + bottom) / 2 + 5, "y", bold)
    yield arrow(LEFT, bottom + 28, right, bottom + 28) + text((LEFT + right) / 2 - 4, bottom + 46, "x", bold)
    yield arrow(LEFT - 10, TOP - 8, LEFT + 30, TOP - 48) + text(LEFT + 2, TOP - 38, "z", bold)
    middle = (LEFT + right) // 2
    yield arrow(middle, 38, middle + TO_NEXT_C, 38) + text(middle + TO_NEXT_C / 2, 30, "c", bold)
    middle = (TOP + bottom) // 2
    yield arrow(28, middle, 28, middle + TO_NEXT_T) + text(10, middle + TO_NEXT_T / 2, "t", bold)


def words():
    t, c, z, y, x = ORANGE
    orange = f'{MONOSPACE} style="fill:#b8530a"'
    yield text(455, 100, "in Python", 'font-weight="bold"')
    yield text(455, 124, f"a.shape is {SHAPE}", MONOSPACE)
    yield text(455, 146, "(t, c, z, y, x)", f'{MONOSPACE} dx="76"')
    yield text(455, 176, "the orange pixel is")
    yield text(455, 198, f"a{list(ORANGE)}", orange)
    yield text(455, 250, "in C++, on the command line", 'font-weight="bold"')
    yield text(455, 274, f"{' x '.join(map(str, reversed(SHAPE)))} pixels", MONOSPACE)
    yield text(455, 296, "x   y   z   c   t", f'{MONOSPACE} xml:space="preserve"')
    yield text(455, 326, "the orange pixel is")
    yield text(455, 348, f"x {x}, y {y}, z {z}, c {c}, t {t}", orange)
    yield text(455, 400, "In memory x runs fastest, t slowest:")
    yield text(455, 420, "one array, two ways to name it.")


def picture():
    yield '<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 760 470" font-family="DejaVu Sans, sans-serif" font-size="14">'
    yield f"<!-- An array of shape {SHAPE} and the image of {' x '.join(map(str, reversed(SHAPE)))} pixels that it is. -->"
    yield '<defs><marker id="tip" viewBox="0 0 8 8" refX="7" refY="4" markerWidth="8" markerHeight="8" orient="auto">'
    yield '<path d="M0,0 L8,4 L0,8 z" fill="#333"/></marker></defs><rect width="760" height="470" fill="white"/>'
    for t in range(T):
        for c in range(C):
            yield from volume(t, c)
    yield from arrows()
    yield from words()
    yield "</svg>"


with open(sys.argv[1], "w") as file:
    print(*picture(), sep="\n", file=file)
