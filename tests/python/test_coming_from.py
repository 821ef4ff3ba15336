"""The site's tables of other packages' calls: each row is run on both sides, and gives the same or the difference that it
states."""

import re

import pytest
from coming_from import opencv, scikit_image, scipy, simpleitk
from coming_from.calls import PAGES, Call, assert_same, rows_of

pytestmark = pytest.mark.peers
PEERS = [scikit_image, scipy, opencv, simpleitk]
ROWS = [pytest.param(peer, row, id=f"{peer.NAME}: {row.theirs}") for peer in PEERS for row in rows_of(peer.PAGE)]


@pytest.mark.parametrize("peer, row", ROWS)
def test_row(peer, row, tmp_path):
    pytest.importorskip(peer.NAME)
    folders = [tmp_path / "theirs", tmp_path / "ours"]
    for folder in folders:
        folder.mkdir()
    theirs = Call(row.theirs, lambda: peer.names(folders[0]))
    ours = Call(row.ours, lambda: getattr(peer, "our_names", peer.names)(folders[1]))
    if row.differs:
        assert row.differs in peer.DIFFERENCES, "no test shows this difference"
        peer.DIFFERENCES[row.differs](theirs, ours)
    else:
        assert_same(theirs, ours)


@pytest.mark.parametrize("peer", PEERS, ids=lambda peer: peer.PAGE)
def test_every_difference_is_stated(peer):
    stated = [row.differs for row in rows_of(peer.PAGE) if row.differs]
    assert sorted(stated) == sorted(peer.DIFFERENCES), "each difference stands in one row, and each is shown"


def test_every_page_is_tested():
    assert {page.name for page in PAGES.glob("*.md")} == {peer.PAGE for peer in PEERS} | {"index.md"}


def test_functions_of_cpp_are_those_of_the_same_operator():
    operators = {}
    for line in (PAGES.parents[2] / "README.md").read_text().splitlines():
        if found := re.match(r"\| `orlix (\S+)[^|]*\|([^|]*)\|", line):
            operators[found.group(1)] = found.group(2)
    rows = [row for peer in PEERS for row in rows_of(peer.PAGE) if row.cpp]
    assert len(rows) > 10
    for row in rows:
        verb = re.search(r"orlix\.(\w+)", row.ours).group(1)
        function = re.match(r"(?:processor::runForOutput<)?([\w:]+)", row.cpp).group(1)
        if verb in operators:
            assert function in operators[verb], row.cpp
        else:
            assert function == f"image::io::{verb}Image"


def test_cpp_interpolates_as_python_does():
    policies = {"nearest": "eIP_NearestNeighbour", "linear": None, "cubic": "eIP_Cubic"}
    rows = [row for row in rows_of("opencv.md") if "orlix.values(" in row.ours]
    assert len(rows) == 3
    for row in rows:
        named = re.search(r'interpolation="(\w+)"', row.ours)
        told = re.search(r"eIP_\w+", row.cpp)
        assert (told and told.group()) == policies[named.group(1) if named else "linear"], row.cpp
