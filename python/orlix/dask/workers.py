"""For clusters of dask.distributed."""

from __future__ import annotations

from distributed import Worker, WorkerPlugin

from .. import _core

__all__ = ["WorkerThreads"]


class WorkerThreads(WorkerPlugin):
    """Lets operators take as many threads of their own as their worker may have.

    A worker of several threads runs as many tasks at once, and workers share a computer: without this each task would
    take all processors that its process may use. Register it with the client of a cluster.

    See Also
    --------
    orlix.set_threads : What it calls on each worker.

    Examples
    --------
    >>> from distributed import Client
    >>> from orlix.dask.workers import WorkerThreads
    >>> with Client(n_workers=2, threads_per_worker=1, dashboard_address=None) as client:  # doctest: +SKIP
    ...     client.register_plugin(WorkerThreads())
    """

    name = "orlix-threads"
    idempotent = True

    def setup(self, worker: Worker) -> None:
        """Set the number of threads; called on the worker.

        Parameters
        ----------
        worker : distributed.Worker
            The one that starts, or that is there when the plugin is registered.
        """
        _core.set_threads(worker.state.nthreads)
