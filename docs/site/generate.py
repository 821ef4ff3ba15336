"""Writes what is told elsewhere: help of `orlix`, processors, and of the gallery's pages the tabs and the rules."""

import json
import re
import subprocess
import sys
from pathlib import Path


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


def tabs(verb):
    """The example of a verb in its three languages, as reStructuredText."""
    text = ".. tab-set::\n   :sync-group: language\n"
    for title, language, ending in (("C++", "cpp", "cpp"), ("Python", "python", "py"), ("Command line", "bash", "sh")):
        text += f"\n   .. tab-item:: {title}\n      :sync: {ending}\n\n"
        text += f"      .. literalinclude:: /examples/{verb}/example.{ending}\n         :language: {language}\n"
    return text


def main():
    root, source = Path(__file__).resolve().parents[2], Path(sys.argv[1])
    (source / "command-help.md").write_text(help_page())
    (source / "processors.md").write_text(processors_page())
    parts = source / "parts"
    parts.mkdir()
    for verb, text in rules(root):
        (parts / f"{verb}-rules.txt").write_text(text)
        (parts / f"{verb}-tabs.txt").write_text(tabs(verb))


if __name__ == "__main__":
    main()
