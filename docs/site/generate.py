"""Writes what is told elsewhere: help of `orlix`, processors, tables, and of the gallery's pages the tabs and the rules."""

import json
import re
import subprocess
import sys
from pathlib import Path

import numpy as np
import orlix
import speed


def printed(*arguments):
    return subprocess.run(["orlix", *arguments], check=True, capture_output=True, text=True).stdout


def verbs():
    listed = printed("--help").split("Verbs:\n")[1].split("\n\n")[0]
    return re.findall(r"^  (\S+) ", listed, re.MULTILINE)


def help_page():
    page = "# What `orlix --help` prints\n\n[The command line](command-line.md) explains the verbs with examples.\n\n"
    page += f"```text\n{printed('--help')}```\n"
    for verb in verbs():
        page += f"\n## orlix {verb}\n\n```text\n{printed(verb, '--help')}```\n"
    return page


def cell(text):
    return text.replace("\\", "\\\\").replace("|", "\\|").replace("<", "\\<").replace("\n", " ")


def processors_page():
    known = json.loads(printed("processors", "--json"))
    page = (
        "# Processors\n\nThe processors that the factory makes by name, as `orlix processors` lists them. A processor "
        "of level 1 takes images; those of levels 2 and 3 work on its plans and strips. `orlix run` runs any of them; "
        "[](design.md) tells what levels are.\n\n"
    )
    for processor in (p for p in known if p["name"].endswith("Lvl1")):
        told = json.loads(printed("processors", "--json", processor["name"]))
        page += f"## {told['name'].split('::')[-1]}\n\n{told['toolTip']}.\n\n"
        page += f"`{told['name']}`, {told['library']}, `{told['header']}`\n\n"
        page += "| attribute | | holds | default | what it is |\n| --- | --- | --- | --- | --- |\n"
        for attribute in told["attributes"]:
            need = attribute["direction"]
            if need == "input" and not attribute["required"]:
                need = "input, optional"
            default = "" if attribute["default"] is None else f"`{cell(str(attribute['default']))}`"
            page += f"| `{attribute['name']}` | {need} | {attribute['kind']} | {default} | {cell(attribute['toolTip'])} |\n"
        page += "\n"
    page += "## Levels 2 and 3\n\n| processor | what it is |\n| --- | --- |\n"
    for processor in (p for p in known if not p["name"].endswith("Lvl1")):
        page += f"| `{processor['name'].split('::')[-1]}` | {cell(processor['toolTip'])} |\n"
    return page


def rules(root):
    """Of each verb the rules that the table of operators has, as reStructuredText."""
    rows = re.findall(r"^\| `orlix (\S+)[^`]*` \| .*? \| (.*?) \|$", (root / "README.md").read_text(), re.MULTILINE)
    for verb, text in rows:
        text = re.sub(r"\[([^\]]*)\]\([^)]*\)", r"\1", text)
        yield verb, "".join(f"- {line}\n" for line in text.replace("`", "``").split("<br>"))


def speed_lines():
    """Of each verb the line on its speed, as reStructuredText."""
    for verb, page, line in speed.lines():
        yield verb, f"{line} :doc:`/{page.removesuffix('.md')}` tells how that was measured.\n"


def tabs(verb):
    """The example of a verb in its three languages, as reStructuredText."""
    text = ".. tab-set::\n   :sync-group: language\n"
    for title, language, ending in (("C++", "cpp", "cpp"), ("Python", "python", "py"), ("Command line", "bash", "sh")):
        text += f"\n   .. tab-item:: {title}\n      :sync: {ending}\n\n"
        text += f"      .. literalinclude:: /examples/{verb}/example.{ending}\n         :language: {language}\n"
    return text


def conversion_table(root):
    """The tables of values out of range, as the header has them."""
    header = root / "include/public/ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImg.h"
    comment = header.read_text().split("#pragma once")[0]
    lines = [line.removeprefix("//") for line in comment.splitlines()]
    first = next(number for number, line in enumerate(lines) if line.strip().startswith("out of range"))
    last = next(number for number, line in enumerate(lines[first:], first) if not line.strip())
    columns = [match.start() for match in re.finditer(r"(?<=  )\S", lines[first])] + [None]
    rows = []
    for line in lines[first:last]:
        cells = [line[start:end].strip() for start, end in zip(columns, columns[1:])]
        if cells[0]:
            rows.append(cells)
        else:  # goes on with the row before
            rows[-1] = [f"{before} {more}".strip() for before, more in zip(rows[-1], cells)]
    rows.insert(1, ["---"] * len(rows[0]))
    table = "".join(f"| {' | '.join(cells)} |\n" for cells in rows)
    return table + "\n" + "\n".join(line.removeprefix(" ") for line in lines[last:]).strip() + "\n"


def layouts_table(root):
    """How many arrays are copied as a whole, for each layout of the package's tests."""
    sys.path.insert(0, str(root / "tests/python"))
    from conftest import filled, layouts

    array = filled((3, 4, 33), np.int16)
    calls = {
        "copy": lambda a: orlix.copy(a),
        "threshold": lambda a: orlix.threshold(a, 0, 99),
        "convert": lambda a: orlix.convert(a, np.float32),
        "compare": lambda a: orlix.compare(a, a),
        "crop": lambda a: orlix.crop(a, (1, 2), (2, 9)),
        "get_slice": lambda a: orlix.get_slice(a, "y", 1),
        "append": lambda a: orlix.append(a, a, axes="ZYX"),
        "values": lambda a: orlix.values(a, [(1, 1, 1.5)]),
    }
    page = "| layout | " + " | ".join(f"`{name}`" for name in calls) + " |\n| --- |" + " --- |" * len(calls) + "\n"
    for layout, view in layouts(array):
        copies = []
        for call in calls.values():
            before = orlix.copies_made()
            call(view)
            copies.append(str(orlix.copies_made() - before))
        page += f"| {layout} | " + " | ".join(copies) + " |\n"
    return page


def main():
    root, source = Path(__file__).resolve().parents[2], Path(sys.argv[1])
    (source / "command-help.md").write_text(help_page())
    (source / "processors.md").write_text(processors_page())
    parts = source / "parts"
    parts.mkdir()
    (parts / "convert-table.txt").write_text(conversion_table(root))
    (parts / "layouts.txt").write_text(layouts_table(root))
    for verb, text in rules(root):
        (parts / f"{verb}-rules.txt").write_text(text)
        (parts / f"{verb}-tabs.txt").write_text(tabs(verb))
    for verb, text in speed_lines():
        (parts / f"{verb}-speed.txt").write_text(text)


if __name__ == "__main__":
    main()
