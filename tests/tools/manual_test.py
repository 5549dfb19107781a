"""Looks for every option of the program in its manual page, its completions and its documentation,
and has bash complete some words.

    manual_test.py PROGRAM MANUAL_FOLDER COMMAND_LINE_PAGE
"""
import pathlib
import re
import subprocess
import sys

program, manual, page = sys.argv[1:]
manual = pathlib.Path(manual)


def run(*command):
    return subprocess.run(command, capture_output=True, text=True, check=True).stdout


def options(text):
    lines = re.findall(r"^  (-[-\w,]+)", text, re.MULTILINE)
    return {name for line in lines for name in line.split(",") if name.startswith("--")}


help_text = run(program, "help")
commands = re.findall(r"^  (\w+) ", help_text.split("Subcommands:")[1].split("Exit status:")[0], re.MULTILINE)
texts = {
    "manual page": (manual / "vemoscene.1").read_text().replace("\\-", "-"),
    "completion for bash": (manual / "vemoscene.bash").read_text(),
    "completion for zsh": (manual / "vemoscene.zsh").read_text(),
    "documentation": pathlib.Path(page).read_text(),
}
faults = [] if len(commands) > 5 else [f"few commands: {commands}"]
for name in sorted(options(help_text).union(*(options(run(program, "help", each)) for each in commands))):
    for place, text in texts.items():
        if not re.search(rf"{name}\b", text):
            faults.append(f"{name} is not in the {place}")

COMPLETIONS = {
    ("con",): "convert",
    ("render", "--vi"): "--view",
    ("render", "--view", "b"): "back bottom",
    ("check", "--fail-on", "l"): "lost",
    ("help", "d"): "diff",
    ("info", "READ"): "README.md",
    ("convert", "-d", "do"): "docs",
}
sources = pathlib.Path(page).parents[2]
for words, expected in COMPLETIONS.items():
    script = f"""cd {sources}; source {manual}/vemoscene.bash; COMP_WORDS=(vemoscene {" ".join(words)})
        COMP_CWORD={len(words)}; _vemoscene; echo "${{COMPREPLY[*]}}" """
    completed = run("bash", "-c", script).strip()
    if completed != expected:
        faults.append(f"{words} is completed to {completed!r}, not {expected!r}")

print("\n".join(faults))
sys.exit(1 if faults else 0)
