#!/usr/bin/env python3
"""Fails when a library or console source includes a part its layer may not reach.

Each folder is a part; a part includes itself and the parts listed for it below. Prints
every offending include (file:line: part -> part (include)) and a count; exit 1 if any.
"""
import os
import re
import sys

LIB = "Admin/Trellisview/"
PARTS = {
    "framework": LIB + "outside/framework/",
    "services": LIB + "outside/services/",
    "store": LIB + "outside/store/",
    "widgets": LIB + "outside/widgets/",
    "resources": LIB + "resources/",
    "rules": LIB + "rules/",
    "navigation": LIB + "navigation/",
    "details": LIB + "details/",
    "editing": LIB + "editing/",
    "console": "Admin/Console/",
}
LOW = {"framework", "services", "store"}
VIEWS = LOW | {"widgets", "resources", "rules"}
MAY_INCLUDE = {
    "framework": set(),
    "services": {"framework"},
    "store": {"framework", "services"},
    "widgets": {"framework", "services", "store"},
    "resources": {"framework", "services", "widgets"},
    "rules": LOW,
    "navigation": VIEWS,
    "details": VIEWS,
    "editing": VIEWS,
    "console": set(PARTS),
}
INCLUDE = re.compile(r'\s*#\s*include\s+"([^"]+)"')


def part_of(path):
    return next((name for name, prefix in PARTS.items() if path.startswith(prefix)), None)


def sources():
    for root, _, files in os.walk("Admin"):
        for name in files:
            if name.endswith((".h", ".hpp", ".cpp", ".cc")):
                yield os.path.join(root, name).replace(os.sep, "/")


def main():
    os.chdir(os.path.join(os.path.dirname(os.path.abspath(__file__)), ".."))
    all_sources = sorted(sources())
    headers = {}  # bare name -> paths, to place an include written relative to any root
    for path in all_sources:
        if path.endswith((".h", ".hpp")):
            headers.setdefault(os.path.basename(path), []).append(path)
    broken = []
    for path in all_sources:
        me = part_of(path)
        if me is None:
            continue
        with open(path, errors="replace") as source:
            for number, line in enumerate(source, 1):
                match = INCLUDE.match(line)
                if not match:
                    continue
                include = match.group(1)
                found = [h for h in headers.get(os.path.basename(include), [])
                         if h.endswith(include)]
                target = part_of(found[0]) if found else None
                if target is None or target == me or target in MAY_INCLUDE[me]:
                    continue
                broken.append(f"{path}:{number}: {me} -> {target} ({include})")
    for line in broken:
        print(line)
    print(f"layering: {len(broken)} includes break the layers")
    return 1 if broken else 0


if __name__ == "__main__":
    sys.exit(main())
