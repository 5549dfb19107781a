"""Compares the classes and functions that the libraries export with the list in the repository.

    exported_names_test.py [--update] SOURCE_FOLDER LIBRARY_FOLDER

Members stand for their class. A name that no public header of the library declares is marked
"internal": other libraries of ours use it, hosts cannot.
"""
import argparse
import difflib
import pathlib
import re
import subprocess
import sys

NAMESPACES = r"(?:(?:vemo|lum|OS|io|sdb)::)+"


def exported_names(library):
    symbols = subprocess.run(
        ["nm", "-DC", "--defined-only", library], capture_output=True, text=True, check=True
    ).stdout
    for line in symbols.splitlines():
        kind, symbol = line.split(maxsplit=2)[1:]
        # Weak ones are copies of what headers hold, from libraries below, too.
        if kind not in "TDBR":
            continue
        symbol = re.sub(r"^(?:[\w-]+ )+(?:for|to) ", "", symbol)
        name = re.match(rf"{NAMESPACES}(?:[\w~]+|operator\W+?(?=\())|vtk\w+|\w+$", symbol)
        yield name[0] if name else symbol


def public_text(sources, library):
    headers = (sources / "include/vemo" / library).rglob("*.h")
    return "\n".join(header.read_text(encoding="utf-8") for header in headers)


def list_names(sources, libraries):
    for path in sorted(libraries.glob("libvemo_*.so")):
        library = path.stem.removeprefix("libvemo_")
        text = public_text(sources, library)
        for name in sorted(set(exported_names(path))):
            own_name = re.escape(name.split("::")[-1])
            declared = rf"\bVEMO_{library.upper()}_EXPORT\b[^;{{]*(?<!\w){own_name}(?!\w)"
            mark = "" if re.search(declared, text) else " internal"
            yield f"{library} {name}{mark}"


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--update", action="store_true")
    parser.add_argument("sources", type=pathlib.Path)
    parser.add_argument("libraries", type=pathlib.Path)
    arguments = parser.parse_args()
    page = arguments.sources / "tests/data/expected/exports.txt"
    found = list(list_names(arguments.sources, arguments.libraries))
    if arguments.update:
        page.write_text("\n".join(found) + "\n", encoding="utf-8")
        return None
    expected = page.read_text(encoding="utf-8").splitlines()
    # The window is not built everywhere.
    if not (arguments.libraries / "libvemo_window.so").exists():
        expected = [line for line in expected if not line.startswith("window ")]
    difference = "\n".join(difflib.unified_diff(expected, found, str(page), "exported", lineterm="", n=0))
    return difference or None


sys.exit(main())
