"""Compares the list of commands in docs/commands.md with what the commands say of themselves: commands.py KORVEX SOURCES

Each command of the list has just the options that its help has, and no command is left out.
"""

import re
import subprocess
import sys
from pathlib import Path

korvex, sources = sys.argv[1], Path(sys.argv[2])
EVERYWHERE = {"--help", "--version", "--repository"}  # R may stand for the last one


def help_of(command):
    return subprocess.run([korvex, *command, "--help"], check=True, capture_output=True, text=True).stdout


def told(command):
    return set(re.findall(r"^ +(?:-\w,)?(--[a-z-]+)", help_of(command), flags=re.M)) - EVERYWHERE


def commands(group=()):
    """The commands that have no others beneath them."""
    listed = re.search(r"^Subcommands:\n((?:  .*\n)+)", help_of(group), flags=re.M)
    if listed is None:
        return [group]
    names = re.findall(r"^  (\w+)", listed.group(1), flags=re.M)
    return [command for name in names for command in commands((*group, name))]


block = re.search(r"^```\n(.*?)^```", (sources / "docs/commands.md").read_text(encoding="utf-8"), flags=re.M | re.S)
listed = {}
for entry in re.split(r"^korvex ", block.group(1), flags=re.M)[1:]:
    *group, names = re.match(r"[a-z]+( [a-z|]+)?(?=\s|$)", entry).group().split()
    for name in names.split("|"):
        options = set(re.findall(r"--[a-z-]+", entry)) - EVERYWHERE
        listed.setdefault((*group, name), set()).update(options)

faults = []
real = {command: told(command) for command in commands()}
for command in sorted(real.keys() | listed.keys()):
    name = " ".join(command)
    if command not in listed or command not in real:
        faults.append(f"korvex {name}: only in the {'page' if command in listed else 'command'}")
    elif listed[command] != real[command]:
        faults.append(f"korvex {name}: {', '.join(sorted(listed[command] ^ real[command]))} in one of both only")
print("\n".join(faults) or f"{len(real)} commands")
sys.exit(bool(faults))
