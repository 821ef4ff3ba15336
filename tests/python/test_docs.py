"""What is said of every public name: texts, examples that run, and pickles."""

import doctest
import importlib
import inspect
import pickle
import pkgutil

import numpy as np
import pytest
from conftest import doctest_of

import orlix
import orlix.testing

MODULES = sorted(
    info.name
    for info in pkgutil.walk_packages(orlix.__path__, "orlix.")
    if not info.name.startswith("orlix.dask") and info.name not in ("orlix._core", "orlix.__main__")
)
FUNCTIONS = [name for name in orlix.__all__ if inspect.isfunction(getattr(orlix, name))]


def test_there_is_something_to_test():
    assert {"orlix._pixelwise", "orlix._regions", "orlix._slices", "orlix._values", "orlix._generators"} <= set(MODULES)
    assert len(FUNCTIONS) > 25


@pytest.mark.parametrize("name", MODULES)
def test_examples_of_every_docstring(name, tmp_path, monkeypatch):
    if name == "orlix._xarray":
        pytest.importorskip("xarray")
    monkeypatch.chdir(tmp_path)
    assert doctest_of(importlib.import_module(name)).failed == 0


def test_examples_of_the_class_of_cpp():
    example = doctest.DocTestParser().get_doctest(orlix.Image.__doc__, {"np": np, "orlix": orlix}, "Image", None, 0)
    result = doctest.DocTestRunner().run(example)
    assert result.attempted > 0 and result.failed == 0


@pytest.mark.parametrize("name", ["_generators", "_pixelwise", "_places", "_values"])
def test_examples_of_dask(name):
    da = pytest.importorskip("dask.array")
    result = doctest_of(importlib.import_module(f"orlix.dask.{name}"), da=da, od=importlib.import_module("orlix.dask"))
    assert result.attempted > 0 and result.failed == 0


@pytest.mark.parametrize("name", ["_pixelwise", "_regions", "_slices", "_values"])
def test_every_operator_has_an_example(name):
    module = importlib.import_module(f"orlix.{name}")
    for function in vars(module).values():
        if inspect.isfunction(function) and function.__module__ == module.__name__:
            assert ">>> orlix." in function.__doc__, function.__name__


@pytest.mark.parametrize("name", FUNCTIONS)
def test_functions_pickle_and_have_a_signature(name):
    function = getattr(orlix, name)
    assert pickle.loads(pickle.dumps(function)) is function
    assert inspect.signature(function) is not None


@pytest.mark.parametrize("name", FUNCTIONS)
def test_parameters_are_told(name):
    function = getattr(orlix, name)
    for parameter in inspect.signature(function).parameters.values():
        if len(inspect.signature(function).parameters) > 2:
            assert parameter.name in function.__doc__, parameter.name
