"""What threadpoolctl asks and tells: ``threadpool_limits(1)`` holds for ORLIX too."""

from __future__ import annotations

from . import _core, _machine


def register() -> None:
    """Make the libraries known to threadpoolctl, where it is installed."""
    try:
        import threadpoolctl
    except ImportError:
        return

    class OrlixController(threadpoolctl.LibController):  # type: ignore[misc]
        user_api = "orlix"
        internal_api = "orlix"
        filename_prefixes = ("libORLIXCore",)

        def get_num_threads(self) -> int:
            return _machine.get_threads()

        def set_num_threads(self, num_threads: int) -> None:
            _machine.set_threads(num_threads)

        def get_version(self) -> str:
            return _core.version()

    threadpoolctl.register(OrlixController)
