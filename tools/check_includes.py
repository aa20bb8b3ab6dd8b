#!/usr/bin/env python3
"""Fails on an include that climbs: a folder may include only itself and the floors above it.

The order of the floors is the order of FLOORS. Only desktop/, its tests and the tour may
include Qt; only platform/ may include system calls' headers and PCRE2.
"""
import pathlib
import re
import sys

FLOORS = ["base", "platform", "media", "filelist", "engine", "store", "shell", "desktop"]
INCLUDE = re.compile(r'^\s*#\s*include\s*(["<])([^">]+)[">]')
QT = re.compile(r"^(Q[A-Z]\w*|Qt\w+/.*)$")
SYSTEM = re.compile(r"^(pcre2\.h|sys/.*|unistd\.h|fcntl\.h|dirent\.h|linux/.*|netdb\.h|arpa/.*)$")


def faults(path, floor):
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        match = INCLUDE.match(line)
        if not match:
            continue
        quote, name = match.groups()
        where = f"{path}:{number}: "
        if quote == '"':
            top = name.split("/")[0]
            if "/" not in name:
                yield where + f'"{name}" names no folder'
            elif top not in FLOORS:
                yield where + f'"{name}" is on no floor'
            elif FLOORS.index(top) > FLOORS.index(floor):
                yield where + f"{floor}/ includes {top}/, which is below it"
        elif QT.match(name) and floor != "desktop":
            yield where + f"<{name}>: only desktop/ knows Qt"
        elif SYSTEM.match(name) and floor not in ("platform",):
            yield where + f"<{name}>: only platform/ knows the system"


def main():
    root = pathlib.Path(__file__).resolve().parent.parent
    found = []
    files = 0
    for floor in FLOORS:
        for path in sorted((root / floor).rglob("*")):
            if path.suffix in (".h", ".cpp", ".inc"):
                files += 1
                found += faults(path.relative_to(root), floor)
    print("\n".join(found) if found else f"includes: {files} files, none climbs")
    return 1 if found else 0


if __name__ == "__main__":
    import os
    os.chdir(pathlib.Path(__file__).resolve().parent.parent)
    sys.exit(main())
