"""Threads, instruction sets, progress, interruption, calls that run beside the program."""

import asyncio
import concurrent.futures
import os
import signal
import subprocess
import sys
import textwrap
import threading
import time

import numpy as np
import pytest
from conftest import filled

import orlix


def test_numbers_of_threads():
    usable = orlix.get_threads()
    with orlix.threads(3):
        assert orlix.get_threads() == 3
        with orlix.threads(1):
            assert orlix.get_threads() == 1
        assert orlix.get_threads() == 3
    assert orlix.get_threads() == usable
    with pytest.raises(ValueError):
        orlix.set_threads(-1)


@pytest.mark.parametrize("work", ["", "; orlix.copy(orlix.empty((3000, 3000), 'uint8'))"])
def test_more_threads_than_processors_until_the_end_of_the_program(work):
    program = f"import os, orlix; orlix.set_threads(4 * os.cpu_count()){work}"
    done = subprocess.run([sys.executable, "-c", program], capture_output=True, text=True)
    assert (done.returncode, done.stderr) == (0, "")


def test_instruction_sets():
    sets = orlix.instruction_sets()
    assert sets[0] == "plain"
    widest = orlix.instruction_set()
    assert widest == sets[-1]
    try:
        image = np.array([300], np.uint16)
        by_set = {}
        for name in sets:
            orlix.set_instruction_set(name)
            assert orlix.instruction_set() == name
            by_set[name] = int(orlix.convert(image, np.uint8)[0])
        assert by_set["plain"] == 300 % 256
        assert by_set.get("SSE2", 255) == 255
        with pytest.raises(ValueError, match="plain"):
            orlix.set_instruction_set("MMX")
    finally:
        orlix.set_instruction_set(None)
    assert orlix.instruction_set() == widest


def test_the_environment_settles_threads_and_set():
    program = "import orlix; print(orlix.get_threads(), orlix.instruction_set())"
    environment = dict(os.environ, ORLIX_NUM_THREADS="1", ORLIX_INSTRUCTION_SET="plain")
    done = subprocess.run([sys.executable, "-c", program], env=environment, capture_output=True, text=True, check=True)
    assert done.stdout == "1 plain\n"


def test_progress_is_told_and_ends_with_everything():
    told = []
    orlix.convert(np.zeros((2048, 2048), np.uint8), np.float32, progress=lambda done, known: told.append((done, known)))
    assert told
    assert told[-1][0] == told[-1][1] > 0
    orlix.copy(np.zeros((4, 4), np.uint8), progress=lambda done, known: told.append(None))
    assert told[-1] is None


def test_an_exception_of_the_observer_ends_the_call():
    class Enough(Exception):
        pass

    def stop(done, known):
        raise Enough

    out = np.zeros((64, 2048, 2048), np.uint8)
    with pytest.raises(Enough):
        orlix.normal(out.shape, np.uint8, mean=100, rng=1, out=out, progress=stop)
    assert any(not plan.any() for plan in out), "the run went on to its end"
    with pytest.raises(Enough):  # from the last word, when all is done
        orlix.copy(np.zeros((4, 4), np.uint8), progress=stop)


def test_ctrl_c_ends_a_call_soon():
    program = textwrap.dedent(
        """
        import numpy as np, orlix, signal
        signal.signal(signal.SIGINT, signal.default_int_handler)  # it may have been inherited as ignored
        big = np.zeros((64, 2048, 2048), np.uint8)
        out = np.zeros((64, 2048, 2048), np.float32)
        print("go", flush=True)
        try:
            while True:
                orlix.convert(big, np.float32, out=out)
        except KeyboardInterrupt:
            print("interrupted", flush=True)
        """
    )
    child = subprocess.Popen([sys.executable, "-c", program], stdout=subprocess.PIPE, text=True)
    assert child.stdout.readline() == "go\n"
    time.sleep(0.2)
    child.send_signal(signal.SIGINT)
    try:
        assert child.communicate(timeout=60)[0] == "interrupted\n"
    finally:
        child.kill()
    assert child.returncode == 0


def test_other_threads_run_meanwhile():
    ticks = []
    stop = threading.Event()

    def tick():
        while not stop.is_set():
            ticks.append(time.perf_counter())
            time.sleep(0.001)

    thread = threading.Thread(target=tick)
    thread.start()
    begin = time.perf_counter()
    orlix.normal((16, 1024, 1024), rng=1)
    end = time.perf_counter()
    stop.set()
    thread.join()
    assert sum(begin < t < end for t in ticks) > 2


def test_a_submitted_call():
    array = filled((300, 400), np.uint8)
    future = orlix.submit(orlix.threshold, array, 10, 100)
    assert np.array_equal(future.result(), (array >= 10) & (array <= 100))
    assert future.progress[0] == future.progress[1] > 0
    failed = orlix.submit(orlix.threshold, array, 100, 10)
    with pytest.raises(orlix.OrlixError):
        failed.result()
    assert not failed.cancelled()


def test_a_submitted_call_is_awaited():
    async def work():
        return await orlix.submit(orlix.copy, np.arange(6, dtype=np.uint8))

    assert asyncio.run(work()).tolist() == [0, 1, 2, 3, 4, 5]


def test_a_submitted_call_is_cancelled():
    future = orlix.submit(orlix.random, (4000, 1024, 1024), rng=1)
    while future.progress[0] == 0 and not future.done():
        time.sleep(0.001)
    assert future.cancel()
    assert future.cancelled()
    with pytest.raises(concurrent.futures.CancelledError):
        future.result()
    done = orlix.submit(orlix.copy, np.zeros(3, np.uint8))
    done.result()
    assert not done.cancel()


def test_calls_from_many_threads_at_once():
    arrays = [filled((200, 300), np.uint16, seed=i) for i in range(8)]
    with concurrent.futures.ThreadPoolExecutor(8) as pool:
        for _ in range(5):
            results = list(pool.map(lambda a: orlix.convert(a, np.float32), arrays))
            assert all(np.array_equal(r, a) for r, a in zip(results, arrays))


def test_nothing_is_left_of_many_calls():
    """Arrays, images and views let go of one another."""
    array = filled((100, 100), np.uint8)
    before = sys.getrefcount(array)
    for _ in range(50):
        image = orlix.Image(array)
        np.asarray(orlix.copy(image))
        orlix.copy(array)
        with pytest.raises(orlix.OrlixError):
            orlix.threshold(array, 9, 3)
    del image
    assert sys.getrefcount(array) == before
