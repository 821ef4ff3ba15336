"""What the gallery's pages say of speed, from the tables of measured figures; docs/gallery/speed.toml tells how.

    python docs/site/speed.py    prints the lines, and fails where an operator has none or a row is not there
"""

import re
import tomllib
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]


def cells_of(line):
    return [cell.strip() for cell in line.strip().strip("|").split("|")]


def rows_of(page):
    """The heading above, titles and cells of all rows of the tables of a page; an empty first cell is that above it."""
    heading, titles, above = "", None, ""
    for line in page.read_text().splitlines():
        if line.startswith("#"):
            heading = line.lstrip("# ")
        if not line.startswith("|"):
            titles = None
        elif titles is None:
            titles = cells_of(line)
        elif set(line) - set("|- "):
            cells = cells_of(line)
            above = cells[0] = cells[0] or above
            yield heading, titles, cells


def row_of(entry):
    """Titles and cells of the one row that is meant."""
    wanted = cells_of(entry["row"])
    page = ROOT / "docs" / entry["page"]
    found = [
        (titles, cells)
        for heading, titles, cells in rows_of(page)
        if cells[: len(wanted)] == wanted and entry.get("heading", heading) == heading
    ]
    if len(found) != 1:
        raise SystemExit(f"{page.name} has {len(found)} rows {entry['row']}")
    return found[0]


def line_of(entry):
    titles, cells = row_of(entry)

    def figure(match):
        title, _, number = match.group(1).partition("#")
        if title not in titles:
            raise SystemExit(f"{entry['page']}: {entry['row']} has no column {title}, but {', '.join(titles)}")
        cell = cells[titles.index(title)]
        numbers = re.findall(r"[\d.]+", cell)
        if len(numbers) < int(number or 1):
            raise SystemExit(f"{entry['page']}: {entry['row']} has '{cell}' in the column {title}")
        return numbers[int(number) - 1] if number else cell

    return re.sub(r"\{([^}]*)\}", figure, entry["says"])


def lines():
    """Each operator of the README, the page that its figures stand on, and its line."""
    entries = tomllib.loads((ROOT / "docs/gallery/speed.toml").read_text())
    verbs = re.findall(r"^\| `orlix (\S+)", (ROOT / "README.md").read_text(), re.MULTILINE)
    if sorted(entries) != sorted(verbs):
        raise SystemExit(f"speed.toml has {', '.join(entries)}; the operators are {', '.join(verbs)}")
    return [(verb, entries[verb]["page"], line_of(entries[verb])) for verb in verbs]


if __name__ == "__main__":
    for verb, page, line in lines():
        print(f"{verb}, {page}: {line}")
