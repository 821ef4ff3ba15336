"""What is said of every public name: texts, examples that run, and pickles."""

import importlib
import inspect
import pickle
import pkgutil

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
def test_examples_of_every_docstring(name):
    result = doctest_of(importlib.import_module(name))
    assert result.failed == 0


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
