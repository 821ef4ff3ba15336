"""What threadpoolctl asks and tells, so that ``threadpool_limits(1)`` holds for ORLIX too."""

from __future__ import annotations

import importlib
import importlib.util
import sys
from typing import Any

from . import _core, _machine


def _controller_of(threadpoolctl: Any) -> Any:
    """A controller of the libraries, as threadpoolctl has one for each that it knows."""

    class OrlixController(threadpoolctl.LibController):  # type: ignore[misc]
        user_api = "orlix"
        internal_api = "orlix"
        filename_prefixes = ("liborlixcore",)  # compared in lower case

        def get_num_threads(self) -> int:
            return _machine.get_threads()

        def set_num_threads(self, num_threads: int) -> None:
            _machine.set_threads(num_threads)

        def get_version(self) -> str:
            return _core.version()

    return OrlixController


class _WhenImported:
    """Finds threadpoolctl as anybody would, and registers the controller as soon as it is there."""

    def find_spec(self, name: str, path: Any = None, target: Any = None) -> Any:
        if name != "threadpoolctl":
            return None
        sys.meta_path.remove(self)
        spec = importlib.util.find_spec(name)
        if spec is None or spec.loader is None:
            return spec
        execute = spec.loader.exec_module

        def execute_and_register(module: Any) -> None:
            execute(module)
            module.register(_controller_of(module))

        spec.loader.exec_module = execute_and_register  # type: ignore[method-assign]
        return spec


def register() -> None:
    """Make the libraries known to threadpoolctl, now or when somebody imports it: importing it takes its time."""
    threadpoolctl = sys.modules.get("threadpoolctl")
    if threadpoolctl is not None:
        threadpoolctl.register(_controller_of(threadpoolctl))
    else:
        sys.meta_path.insert(0, _WhenImported())
