"""Calls that run beside the program, can be watched, awaited and cancelled."""

from __future__ import annotations

import concurrent.futures
import threading
from collections.abc import Callable, Generator
from typing import Any, Generic, ParamSpec, TypeVar

from . import _progress

P = ParamSpec("P")
R = TypeVar("R")


class Future(concurrent.futures.Future[R], Generic[R]):
    """The result of a call that `submit` has started.

    See Also
    --------
    submit : Starts a call.

    Examples
    --------
    >>> future = orlix.submit(orlix.copy, np.array([1, 2], np.uint8))
    >>> future.result(), future.done(), future.cancelled()
    (array([1, 2], dtype=uint8), True, False)
    """

    def __init__(self) -> None:
        super().__init__()
        self._progress = (0, 0)
        self._stop = threading.Event()

    @property
    def progress(self) -> tuple[int, int]:
        """Pieces of work done, and pieces known so far."""
        return self._progress

    def cancel(self) -> bool:
        """End the call, also one that runs.

        Returns
        -------
        bool
            Whether it was ended; False where it has ended by itself.
        """
        if super().cancel():
            return True
        if self.done():
            return self.cancelled()
        self._stop.set()
        concurrent.futures.wait([self])
        return self.cancelled()

    def cancelled(self) -> bool:
        """Tell whether the call was ended by `cancel`.

        Returns
        -------
        bool
            True where that was before it began or while it ran.
        """
        return super().cancelled() or (
            self.done() and isinstance(super().exception(), concurrent.futures.CancelledError)
        )

    def __await__(self) -> Generator[Any, None, R]:
        """Wait for the result without blocking the event loop."""
        import asyncio  # here, since it takes longer to import than all of the package

        return asyncio.wrap_future(self).__await__()

    def _look(self, done: int, known: int) -> None:
        self._progress = (done, known)
        if self._stop.is_set():
            raise concurrent.futures.CancelledError

    def _run(self, function: Callable[..., R], args: tuple[Any, ...], kwargs: dict[str, Any]) -> None:
        if not self.set_running_or_notify_cancel():
            return
        told = kwargs.pop("progress", None)
        told = _progress.bar() if told is True else told or None

        def progress(done: int, known: int) -> None:
            self._look(done, known)
            if told is not None:
                told(done, known)

        try:
            result = function(*args, progress=progress, **kwargs)
        except BaseException as error:  # whatever it is, it is for the caller who asks for the result
            self.set_exception(_explained(error, function))
        else:
            self.set_result(result)


def _explained(error: BaseException, function: Callable[..., Any]) -> BaseException:
    """The error, or a clearer one where the function can't be watched."""
    called = error.__traceback__ is None or error.__traceback__.tb_next is not None
    if called or not isinstance(error, TypeError) or "'progress'" not in str(error):
        return error
    name = getattr(function, "__name__", repr(function))
    return TypeError(f"{name} takes no progress: submit starts functions of this package that do")


def submit(function: Callable[P, R], /, *args: P.args, **kwargs: P.kwargs) -> Future[R]:
    """Start one of this package's functions and return at once.

    Parameters
    ----------
    function : callable
        A function of this package that takes `progress`.
    *args, **kwargs
        Its arguments. Arrays must not be changed until the call has ended.

    Returns
    -------
    Future
        A `concurrent.futures.Future` with `progress`, whose `cancel` ends a running call too, and which can be awaited.
        It raises what the function raises, and TypeError for a function that takes no `progress`.

    Examples
    --------
    >>> future = orlix.submit(orlix.random, (2, 1000), np.uint8, low=3, high=5, rng=1)
    >>> future.result().shape
    (2, 1000)
    """
    future: Future[R] = Future()
    threading.Thread(target=future._run, args=(function, args, kwargs), daemon=True).start()
    return future
