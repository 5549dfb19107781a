"""Compares the classes and functions that the libraries export with the list in the repository.

    exported_names_test.py [--update] SOURCE_FOLDER LIBRARY_FOLDER

Members stand for their class. Names that public headers declare have the public version of symbols,
all others, which this project shares with itself, the private one. The linker takes from the list which
those are: after --update, build again.
"""
import argparse
import difflib
import pathlib
import re
import subprocess
import sys

NAMESPACES = r"(?:(?:vemo|lum|OS|io|sdb)::)+"


def exported_names(library):
    """Pairs of a name and whether it is private."""
    symbols = subprocess.run(
        ["nm", "-DC", "--with-symbol-versions", "--defined-only", library], capture_output=True, text=True, check=True
    ).stdout
    for line in symbols.splitlines():
        kind, symbol = line.split(maxsplit=2)[1:]
        # Weak ones are copies of what headers hold, from libraries below, too.
        if kind not in "TDBR":
            continue
        symbol, version = symbol.rsplit("@@")
        symbol = re.sub(r"^(?:[\w-]+ )+(?:for|to) ", "", symbol)
        name = re.match(rf"{NAMESPACES}(?:[\w~]+|operator\W+?(?=\())|vtk\w+|\w+$", symbol)
        yield name[0] if name else symbol, version.startswith("VEMO_PRIVATE_")


def public_text(sources, library):
    headers = (sources / "include/vemo" / library).rglob("*.h")
    return "\n".join(header.read_text(encoding="utf-8") for header in headers)


def is_declared(name, library, text):
    own_name = re.escape(name.split("::")[-1])
    return re.search(rf"\bVEMO_{library.upper()}_EXPORT\b[^;{{]*(?<!\w){own_name}(?!\w)", text) is not None


def list_names(sources, libraries):
    """Lines of the list, each with whether the library has the same version for the name."""
    for path in sorted(libraries.glob("libvemo_*.so")):
        library = path.stem.removeprefix("libvemo_")
        text = public_text(sources, library)
        for name, has_private_version in sorted(set(exported_names(path))):
            is_private = not is_declared(name, library, text)
            yield f"{library} {name}{' private' if is_private else ''}", is_private == has_private_version


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--update", action="store_true")
    parser.add_argument("sources", type=pathlib.Path)
    parser.add_argument("libraries", type=pathlib.Path)
    arguments = parser.parse_args()
    page = arguments.sources / "cmake/exports.txt"
    names = list(list_names(arguments.sources, arguments.libraries))
    found = [line for line, _ in names]
    if arguments.update:
        page.write_text("\n".join(found) + "\n", encoding="utf-8")
        return None
    expected = page.read_text(encoding="utf-8").splitlines()
    # The window is not built everywhere.
    if not (arguments.libraries / "libvemo_window.so").exists():
        expected = [line for line in expected if not line.startswith("window ")]
    difference = "\n".join(difflib.unified_diff(expected, found, str(page), "exported", lineterm="", n=0))
    wrong = [f"{line}: has the other version" for line, is_right in names if not is_right]
    return "\n".join([difference, *wrong]).strip() or None


sys.exit(main())
