"""How Sphinx builds the site; `scripts/site` runs it on a folder of links to these pages, and names the folders."""

import os
import re
import sys
from pathlib import Path

root = Path(os.environ["ORLIX_ROOT"])
site = Path(os.environ["ORLIX_SITE"])
sys.path.insert(0, str(root / "docs/site"))

project = "ORLIX"
copyright = "the authors of ORLIX, under the Apache License 2.0"
version = release = re.search(r"VERSION (\S+) LANGUAGES", (root / "CMakeLists.txt").read_text()).group(1)

extensions = [
    "breathe",
    "myst_parser",
    "numpydoc",
    "sphinx.ext.autodoc",
    "sphinx.ext.autosummary",
    "sphinx_copybutton",
    "sphinx_design",
    "sphinx_gallery.gen_gallery",
]
exclude_patterns = ["examples", "parts", "templates"]
templates_path = ["templates"]
suppress_warnings = ["sphinx_gallery.duplicate_filename"]  # examples in folders of their own have one name

html_theme = "pydata_sphinx_theme"
html_title = f"ORLIX {version}"
html_static_path = ["static"]
html_css_files = ["site.css"]
html_show_sourcelink = False
html_sidebars = {"index": [], "start": []}
html_theme_options = {
    "logo": {"text": "ORLIX"},
    "navbar_end": ["theme-switcher"],
    "header_links_before_dropdown": 6,
    "footer_start": ["copyright"],
    "footer_end": [],
    "show_prev_next": False,
}
pygments_style = "tango"
highlight_language = "none"
default_role = "py:obj"  # names between backticks in docstrings are links, where there is something of that name
copybutton_prompt_text = r">>> |\.\.\. |\$ "
copybutton_prompt_is_regexp = True

myst_enable_extensions = ["colon_fence", "deflist"]
myst_heading_anchors = 3

autosummary_generate = True
autodoc_typehints = "none"
numpydoc_show_class_members = False

breathe_projects = {"ORLIX": str(site / "doxygen/xml")}
breathe_default_project = "ORLIX"

# An example of the gallery is three files, run by a test; what Sphinx runs draws their pictures.
sphinx_gallery_conf = {
    "examples_dirs": str(root / "docs/gallery"),
    "gallery_dirs": "gallery",
    "filename_pattern": r"/plot_",
    "download_all_examples": False,
    "capture_repr": (),
    "show_memory": False,
    "show_signature": False,
    "min_reported_time": 10**6,
    "write_computation_times": False,
    "remove_config_comments": True,
    "plot_gallery": True,
    "abort_on_example_error": True,
    "copyfile_regex": r"^$",
    "within_subsection_order": "pictures.InReadmesOrder",
}


def mend_source(app, docname, source):
    """Let links that leave docs/ end on the site, and drop the gallery's empty blocks, whose code only draws."""
    if docname.startswith("gallery/"):
        source[0] = re.sub(r"(?m)^\.\. code-block:: Python\n(?:   :dedent:.*\n)?\s*(?=^\S)", "", source[0])
    else:
        source[0] = source[0].replace("](../README.md)", "](index.md)").replace("](docs/", "](")


def setup(app):
    app.connect("source-read", mend_source)
