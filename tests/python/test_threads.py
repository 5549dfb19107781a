"""Other Python threads go on while the library works, and cannot break it."""

from __future__ import annotations

import concurrent.futures
import gc
import os
import pathlib
import signal
import subprocess
import sys
import threading
import time
from types import FrameType
from typing import Any, Callable

import pytest
from vtkmodules.vtkCommonCore import vtkCommand

import vemoscene
import vemoscene.vtk
from conftest import EXAMPLES

WORKS: dict[str, Callable[[pathlib.Path, pathlib.Path], Any]] = {
    "open": lambda source, target: vemoscene.open(source),
    "open_bytes": lambda source, target: vemoscene.open_bytes(source.read_bytes()),
    "convert": vemoscene.convert,
    "check": lambda source, target: vemoscene.check(source),
    "render": lambda source, target: vemoscene.render(vemoscene.open(source), (64, 48)),
}


@pytest.mark.parametrize("name", WORKS)
def test_the_interpreter_lock_is_released(name: str, large_archive: pathlib.Path, tmp_path: pathlib.Path) -> None:
    """No thread gets the lock from a running one before the interval is over."""
    may_go = threading.Semaphore(0)
    finished: list[str] = []

    def run() -> None:
        may_go.acquire()
        finished.append("other")

    other = threading.Thread(target=run)
    other.start()
    interval = sys.getswitchinterval()
    sys.setswitchinterval(1000)
    try:
        may_go.release()
        WORKS[name](large_archive, tmp_path / "out.sdb")
        finished.append("work")
    finally:
        sys.setswitchinterval(interval)
    other.join()
    assert finished == ["other", "work"]


def import_items(path: pathlib.Path) -> list[str]:
    importer = vemoscene.vtk.vtkVemoSceneImporter()
    importer.SetFileName(str(path))
    importer.Update()
    items = [importer.GetItemPath(item) for item in range(importer.GetNumberOfItems())]
    importer.Clear()
    return items


def test_threads_at_once(tmp_path: pathlib.Path) -> None:
    """With callbacks, failures, and scenes that are freed meanwhile."""
    paths = [EXAMPLES / f"{name}.zip" for name in ("drum", "crystal", "propeller")]
    expected = {path: [node.path for node in vemoscene.open(path).root.walk()] for path in paths}
    pictures = {path: vemoscene.render(path, (64, 48)) for path in paths}
    items = {path: import_items(path) for path in paths}
    assert all(items.values())

    def work(number: int) -> bool:
        path = paths[number % len(paths)]
        scene = vemoscene.open(path, lambda fraction: gc.collect(0))
        with pytest.raises(vemoscene.Cancelled):
            vemoscene.open(path, lambda fraction: fraction < 0.5)
        with pytest.raises(vemoscene.SceneError):
            vemoscene.open_bytes(b"text")
        vemoscene.convert(path, tmp_path / f"{number}.sdb", lambda fraction: None)
        copy = vemoscene.open(tmp_path / f"{number}.sdb")
        same = all([node.path for node in one.root.walk()] == expected[path] for one in (scene, copy))
        same = same and import_items(path) == items[path]
        return same and not vemoscene.check(path) and bool((vemoscene.render(copy, (64, 48)) == pictures[path]).all())

    with concurrent.futures.ThreadPoolExecutor(6) as pool:
        assert all(pool.map(work, range(12)))


def test_importers_have_the_turn() -> None:
    importer = vemoscene.vtk.vtkVemoSceneImporter()
    importer.SetFileName(str(EXAMPLES / "drum.zip"))
    for method in (importer.Update, importer.Read, importer.Clear):

        def call(fraction: float, method: Callable[[], None] = method) -> None:
            method()

        with pytest.raises(RuntimeError, match="callback"):
            vemoscene.open(EXAMPLES / "drum.zip", call)

    refused = []

    def observe(caller: object, event: str) -> None:
        with pytest.raises(RuntimeError, match="callback"):
            vemoscene.check(EXAMPLES / "drum.zip")
        refused.append(event)

    importer.AddObserver(vtkCommand.ProgressEvent, observe)
    importer.Update()
    assert refused and importer.GetSucceeded()


def count_references() -> tuple[list[vemoscene.Scene], Any]:
    """A scene that nothing else holds, and one of its arrays."""
    scene = vemoscene.open(EXAMPLES / "drum.zip")
    return [scene], next(scene.root.walk("PolyDataNode")).poly_data.GetPoints().GetData()


def test_scenes_freed_by_a_callback_go_when_the_work_ends() -> None:
    held, array = count_references()
    counts = []

    def free(fraction: float) -> None:
        held.clear()
        counts.append(array.GetReferenceCount())

    vemoscene.open(EXAMPLES / "crystal.zip", free)
    assert array.GetReferenceCount() == 1 < counts[-1]


def test_freeing_does_not_wait_for_other_threads() -> None:
    """Otherwise a thread that has the interpreter lock would wait for one that wants it."""
    held, array = count_references()
    is_working, may_end = threading.Event(), threading.Event()

    def wait(fraction: float) -> None:
        is_working.set()
        may_end.wait(60)

    with concurrent.futures.ThreadPoolExecutor(1) as pool:
        working = pool.submit(vemoscene.open, EXAMPLES / "crystal.zip", wait)
        assert is_working.wait(60)
        held.clear()
        assert array.GetReferenceCount() > 1
        may_end.set()
        working.result()
    assert array.GetReferenceCount() == 1


def test_signals_interrupt_work_without_a_callback(large_archive: pathlib.Path, tmp_path: pathlib.Path) -> None:
    """Interrupted only after its end, the conversion would leave its file."""
    start = time.monotonic()
    vemoscene.convert(large_archive, tmp_path / "whole.sdb")
    duration = time.monotonic() - start

    def interrupt(number: int, frame: FrameType | None) -> None:
        raise KeyboardInterrupt

    former = signal.signal(signal.SIGALRM, interrupt)
    try:
        signal.setitimer(signal.ITIMER_REAL, duration / 10)
        with pytest.raises(KeyboardInterrupt):
            vemoscene.convert(large_archive, tmp_path / "interrupted.sdb")
    finally:
        signal.setitimer(signal.ITIMER_REAL, 0)
        signal.signal(signal.SIGALRM, former)
    assert (tmp_path / "whole.sdb").exists()
    assert not (tmp_path / "interrupted.sdb").exists()


WORK_WITHOUT_END = """
import atexit, sys, threading
workers = []
atexit.register(lambda: [worker.join() for worker in workers])
import vemoscene, vemoscene.vtk

def import_items(path):
    importer = vemoscene.vtk.vtkVemoSceneImporter()
    importer.SetFileName(path)
    importer.Update()

def run():
    while True:
        WORK(sys.argv[1])
        works.release()

works = threading.Semaphore(0)
workers += [threading.Thread(target=run, daemon=True) for _ in range(3)]
for worker in workers:
    worker.start()
works.acquire()
"""


@pytest.mark.parametrize("work", ["vemoscene.open", "vemoscene.check", "vemoscene.render", "import_items"])
def test_python_ends_while_other_threads_work(work: str) -> None:
    script = WORK_WITHOUT_END.replace("WORK", work)
    command = [sys.executable, "-c", script, str(EXAMPLES / "drum.zip")]
    ended = subprocess.run(command, capture_output=True, text=True, timeout=120, check=False)
    assert (ended.returncode, ended.stderr) == (0, "")


IMPORT_IN_SUBINTERPRETER = """
import sys
try:
    import _interpreters as interpreters
except ImportError:
    import _xxsubinterpreters as interpreters

attempt = '''
try:
    import MODULE
except ImportError as error:
    assert "subinterpreter" in str(error), error
else:
    raise AssertionError("it can be imported")
'''
other = interpreters.create()
failure = interpreters.run_string(other, f"import sys; sys.path[:] = {sys.path!r}" + attempt)
interpreters.destroy(other)
assert failure is None, failure
import MODULE
"""


@pytest.mark.parametrize("module", ["vemoscene", "vemoscene.vtk"])
def test_subinterpreters_are_refused(module: str) -> None:
    """The extension would wait for ever."""
    script = IMPORT_IN_SUBINTERPRETER.replace("MODULE", module)
    ended = subprocess.run([sys.executable, "-c", script], capture_output=True, text=True, timeout=60, check=False)
    assert (ended.returncode, ended.stderr) == (0, "")


def run_in_fork(work: Callable[[], Any]) -> bool:
    """Returns whether it ends without an exception."""
    process = os.fork()
    if process == 0:
        signal.alarm(60)
        try:
            work()
            os._exit(0)
        finally:
            os._exit(1)
    return os.waitpid(process, 0)[1] == 0


def test_forks_do_not_wait_for_threads_that_they_lack() -> None:
    path = EXAMPLES / "drum.zip"
    is_over = threading.Event()

    def work() -> None:
        while not is_over.is_set():
            vemoscene.check(path)

    def render() -> None:
        with pytest.raises(vemoscene.RenderingUnavailableError, match="forked"):
            vemoscene.render(path, (64, 48))

    vemoscene.render(path, (64, 48))
    with concurrent.futures.ThreadPoolExecutor(2) as pool:
        working = [pool.submit(work) for _ in range(2)]
        try:
            assert all(run_in_fork(lambda: vemoscene.open(path)) for _ in range(5))
            assert run_in_fork(render)
        finally:
            is_over.set()
        for thread in working:
            thread.result()
    # As the functions of other modules may do.
    held = [vemoscene.open(path)]
    os.register_at_fork(before=held.clear)
    assert run_in_fork(lambda: vemoscene.check(path)) and not held
    forks = []
    vemoscene.open(path, lambda fraction: forks.append(run_in_fork(lambda: None)))
    assert forks and all(forks)
    assert not vemoscene.check(path)
