"""Writes the indented blocks of code in a page, those that begin with "#", to files.

    extract_code.py PAGE FILE ...
"""
import pathlib
import re
import sys
import textwrap

page, *files = map(pathlib.Path, sys.argv[1:])
blocks = re.findall(r"(?:^(?: {4,}.*)?\n)+", page.read_text(encoding="utf-8"), re.MULTILINE)
codes = [code for code in (textwrap.dedent(block).strip() for block in blocks) if code.startswith("#")]
if len(codes) != len(files):
    sys.exit(f"{page}: {len(codes)} blocks of code for {len(files)} files")
for file, code in zip(files, codes):
    file.parent.mkdir(parents=True, exist_ok=True)
    file.write_text(code + "\n", encoding="utf-8")
