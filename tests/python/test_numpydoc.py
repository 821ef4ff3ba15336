"""Texts of the public functions and classes have the form and the sections that numpydoc asks for."""

import importlib
import inspect

import pytest

import orlix
import orlix.testing

numpydoc_validate = pytest.importorskip("numpydoc.validate")

EXCLUDED = {
    "GL01",  # texts begin on the line of the quotes
    "ES01",  # a summary may be all there is to say
    "SA01",  # the site's page has groups of what belongs together
}
OF_MEMBERS = {"EX01"}  # of methods and properties: the class has an example


def is_tuple(name):
    thing = getattr(orlix, name)
    return inspect.isclass(thing) and issubclass(thing, tuple)


def members():
    for name in orlix.__all__:
        thing = getattr(orlix, name)
        if inspect.isclass(thing) and not is_tuple(name) and name != "ElementType":
            for member, value in vars(thing).items():
                if not member.startswith("_") and value is not None:  # what is None at first is told by the class
                    yield f"orlix.{name}.{member}"
    yield "orlix.ElementType.dtype"


def names():
    yield from (f"orlix.{name}" for name in orlix.__all__)
    yield "orlix.testing.assert_images_equal"
    try:
        yield from (f"orlix.dask.{name}" for name in importlib.import_module("orlix.dask").__all__)
    except ImportError:  # without Dask
        pass


def findings(name):
    return {(code, text) for code, text in numpydoc_validate.validate(name)["errors"] if code not in EXCLUDED}


@pytest.mark.parametrize("name", list(names()))
def test_functions_and_classes(name):
    excluded = set()
    if name == "orlix.Image":
        excluded = {"PR02"}  # a class of C++, whose parameters Python doesn't tell
    elif name == "orlix.ElementType":
        excluded = {"PR01"}  # an enumeration, whose parameters are Python's own
    elif name.startswith("orlix.Orlix"):
        excluded = {"EX01"}  # exceptions
    elif name.count(".") == 1 and is_tuple(name[6:]):
        excluded = {"PR01"}  # told as attributes: see below
    assert not {finding for finding in findings(name) if finding[0] not in excluded}


@pytest.mark.parametrize("name", list(members()))
def test_methods_and_properties(name):
    assert not {finding for finding in findings(name) if finding[0] not in OF_MEMBERS}


@pytest.mark.parametrize("name", [name for name in orlix.__all__ if is_tuple(name)])
def test_fields_of_tuples(name):
    docscrape = importlib.import_module("numpydoc.docscrape")
    told = docscrape.NumpyDocString(inspect.getdoc(getattr(orlix, name)))["Attributes"]
    assert [field.name for field in told] == list(getattr(orlix, name)._fields)
    assert all(field.type and field.desc for field in told)


@pytest.mark.parametrize("name", ["orlix", "orlix.dask", "orlix.testing"])
def test_modules(name):
    if name == "orlix.dask":
        pytest.importorskip("dask.array")
    summary = importlib.import_module(name).__doc__.splitlines()[0]
    assert summary.endswith(".") and summary[0].isupper()
