"""Looks for every option of the program in its manual page, its completions and its documentation,
and has bash and zsh complete some words.

    manual_test.py PROGRAM MANUAL_FOLDER COMMAND_LINE_PAGE
"""
import os
import pathlib
import pty
import re
import select
import shutil
import subprocess
import sys
import tempfile
import time

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
plain_page = re.sub(r"\\f[BIR]", "", texts["manual page"])
for each in commands:
    arguments = re.search(r"^Usage: .* \[OPTIONS\] (.*)$", run(program, "help", each), re.MULTILINE).group(1)
    if f"\nvemoscene {each} {arguments} [OPTION]...\n" not in plain_page:
        faults.append(f"the manual page does not have the arguments {arguments} of {each}")



def complete_in_bash(words):
    script = f"""cd {sources}; source {manual}/vemoscene.bash; COMP_WORDS=(vemoscene {" ".join(words)})
        COMP_CWORD={len(words)}; _vemoscene; echo "${{COMPREPLY[*]}}" """
    return run("bash", "-c", script).strip()


class Zsh:
    """A shell on a terminal of its own, whose Tab key writes the possible words into a file."""

    SETTINGS = """
        cd {sources}; fpath=({folder} $fpath); autoload -U compinit; compinit -u -D
        compadd() {{
            [[ ${{@[1,(i)(-|--)]}} == *-(O|A|D)\ * ]] && {{ builtin compadd "$@"; return; }}
            local -a words; builtin compadd -A words "$@"; print -rl -- $words >>{folder}/words
            builtin compadd "$@"
        }}
        complete-into-file() {{ zle complete-word; BUFFER=; print END >>{folder}/words }}
        zle -N complete-into-file; bindkey "^I" complete-into-file
    """

    def __init__(self, folder):
        self._words = folder / "words"
        shutil.copy(manual / "vemoscene.zsh", folder / "_vemoscene")
        (folder / ".zshrc").write_text(self.SETTINGS.format(sources=sources, folder=folder))
        child, self._terminal = pty.fork()
        if child == 0:
            os.execvpe("zsh", ["zsh", "-i"], {**os.environ, "ZDOTDIR": str(folder), "TERM": "xterm"})

    def complete(self, words):
        self._words.write_text("")
        os.write(self._terminal, f"vemoscene {' '.join(words)}\t".encode())
        end = time.monotonic() + 60
        while not self._words.read_text().endswith("END\n"):
            assert time.monotonic() < end, f"zsh does not complete {words}"
            # What it prints would fill the terminal.
            if select.select([self._terminal], [], [], 0.05)[0]:
                os.read(self._terminal, 4096)
        return " ".join(sorted(set(self._words.read_text().split()[:-1])))


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
with tempfile.TemporaryDirectory() as folder:
    zsh = Zsh(pathlib.Path(folder))
    for words, expected in COMPLETIONS.items():
        for shell, completed in (("bash", complete_in_bash(words)), ("zsh", zsh.complete(words))):
            if completed != expected:
                faults.append(f"{words} is completed to {completed!r} by {shell}, not {expected!r}")

print("\n".join(faults))
sys.exit(1 if faults else 0)
