"""What type checkers see: a program's use of the package, and the stub of the module beside the module."""

import ast
import inspect
import json
import pathlib
import re
import subprocess
import sys
import sysconfig

import pytest

import orlix
from orlix import _core

HERE = pathlib.Path(__file__).parent


def folder_of_package():
    return str(pathlib.Path(orlix.__file__).parents[1])


def environment():
    folder = folder_of_package()
    installed = folder in (sysconfig.get_path("purelib"), sysconfig.get_path("platlib"))  # mypy looks there by itself
    return {} if installed else {"MYPYPATH": folder, "PYTHONPATH": folder}


def test_uses_check_out():
    pytest.importorskip("mypy")
    done = subprocess.run(
        [sys.executable, "-m", "mypy", "--strict", "--warn-unused-ignores", "--cache-dir=/dev/null", "typing/use.py"],
        cwd=HERE,
        env=environment(),
        capture_output=True,
        text=True,
    )
    assert done.returncode == 0, done.stdout + done.stderr


#: What the stubs can't say.
UNTOLD = [
    r"orlix\._core\.[\w.]+ is not a function",  # nanobind has a type of its own for functions: see below
    r"orlix\._core\.Image is inconsistent, metaclass differs",  # and for classes
    r"orlix\._core\.Image is a disjoint base at runtime.*",  # a mark that only newer checkers know
    r"orlix\.[\w.]+@\d+ is not present at runtime",  # a class within a function
    r"orlix\._processors\._class_of_outputs is inconsistent.*",  # functools.cache takes any parameters
]


def test_the_stubs_tell_what_is_there():
    pytest.importorskip("mypy")
    done = subprocess.run(
        [sys.executable, "-m", "mypy.stubtest", "--concise", "orlix"],
        cwd=HERE,
        env=environment(),
        capture_output=True,
        text=True,
    )
    told = done.stdout.splitlines()
    assert any(line.startswith("orlix._core.copy ") for line in told), done.stdout + done.stderr  # it did look
    assert not [line for line in told if not any(re.fullmatch(pattern, line) for pattern in UNTOLD)]


def test_uses_check_out_for_pyright_too(tmp_path):
    pytest.importorskip("pyright")
    settings = {
        "include": [str(HERE / "typing")],
        "extraPaths": [folder_of_package()],
        "pythonVersion": "3.10",
        "reportUnnecessaryTypeIgnoreComment": True,
    }
    (tmp_path / "pyrightconfig.json").write_text(json.dumps(settings))
    done = subprocess.run(
        [sys.executable, "-m", "pyright", "-p", str(tmp_path), "--pythonpath", sys.executable],
        capture_output=True,
        text=True,
    )
    assert done.returncode == 0, done.stdout + done.stderr


def test_the_stub_has_the_module_s_parameters():
    stub = ast.parse((pathlib.Path(orlix.__file__).parent / "_core.pyi").read_text())
    functions = [node for node in stub.body if isinstance(node, ast.FunctionDef)]
    assert len(functions) > 25
    for function in functions:
        ((signature, *_),) = getattr(_core, function.name).__nb_signature__
        told = ast.parse(f"{re.sub(r'[^(]*[(]', 'def f(', signature, count=1)}: ...".replace("\\", "_")).body[0]
        names = [argument.arg for argument in told.args.posonlyargs + told.args.args]
        if not any(re.fullmatch(r"arg\d*", name) for name in names):
            assert [argument.arg for argument in function.args.args] == names, function.name
        assert len(function.args.args) == len(names), function.name


def test_the_stub_names_what_the_module_has():
    stub = (pathlib.Path(orlix.__file__).parent / "_core.pyi").read_text()
    for name in dir(_core):
        if not name.startswith("_"):
            assert f"def {name}(" in stub or f"class {name}" in stub, name
    for name, _ in inspect.getmembers(_core.Image):
        if not name.startswith("_"):
            assert f"def {name}(" in stub, name


def test_every_public_name_is_told_and_explained():
    for name in orlix.__all__:
        text = getattr(orlix, name).__doc__
        assert text and len(text.split()) > 3, name
