#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Holds the includes of src/ to the list of folders in docs/developing.md."""

import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]
LIST = ROOT / "docs" / "developing.md"
INCLUDE = re.compile(r'^\s*#\s*include "(\w+)/([\w/]+)\.h"')


def allowed_arrows():
    """The folders that each folder may include: lines like "    samples → references catalogue base"."""
    allowed = {}
    for line in LIST.read_text().splitlines():
        if match := re.fullmatch(r"    (\w+)\s+→((?: \w+)*)", line):
            folder, below = match.group(1), match.group(2).split()
            if above := [each for each in below if each not in allowed]:
                sys.exit(f"{LIST}: {folder} → {' '.join(above)} does not point down")
            allowed[folder] = below
    return allowed


def faults(allowed):
    for path in sorted((ROOT / "src").rglob("*")):
        if path.suffix not in (".h", ".cpp"):
            continue
        folder = path.relative_to(ROOT / "src").parts[0]
        for number, line in enumerate(path.read_text().splitlines(), 1):
            match = INCLUDE.match(line)
            if not match or match.group(1) == folder:
                continue
            target, header = match.groups()
            place = f"{path.relative_to(ROOT)}:{number}: "
            if target not in allowed.get(folder, []):
                yield f"{place}{folder} → {target} is not in the list of docs/developing.md"
            elif header.startswith("Fm") and target != "ui" and folder != "app":
                yield f"{place}only app/ opens the windows of other folders"


def main():
    allowed = allowed_arrows()
    found = list(faults(allowed))
    found += [f"docs/developing.md: there is no folder src/{folder}"
              for folder in allowed if not (ROOT / "src" / folder).is_dir()]
    print("\n".join(found), end="\n" if found else "")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
