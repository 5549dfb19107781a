"""The interpreter that the extension can be loaded in."""

from __future__ import annotations

import importlib


def require_main_interpreter() -> None:
    """Raises ImportError in a subinterpreter, as far as Python tells. The extension takes the lock of the main
    interpreter, for which it would wait for ever in another one."""
    for name in ("_interpreters", "_xxsubinterpreters"):
        try:
            interpreters = importlib.import_module(name)
        except ImportError:
            continue
        if interpreters.get_current() != interpreters.get_main():
            raise ImportError("vemoscene can only be imported in the main interpreter, not in a subinterpreter")
