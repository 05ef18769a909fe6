"""Looks after the direction of includes in the foundation, which one include path for all rooms leaves open.

check_includes.py SOURCES ROOM...: the rooms of TabulonFoundation from the bottom to the top. Fails on an include
of a higher room, and on one of the faces outside of them: only tests of the foundation and programs of others
call those.
"""

import pathlib
import re
import sys

# Includes that go up all the same: (file, included file): reason. At most five.
ALLOWED = {}

FACE_USERS = ("TabulonFoundation/face/", "tests/TabulonFoundation/", "examples/embed/")
FOLDERS = ("TabulonFoundation", "TabulonCore", "TabulonKit", "Tabulon-Mac", "plugin", "cli", "bench", "fuzz", "tests",
           "examples")
INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)


def included_files(path):
    return INCLUDE.findall(path.read_text(encoding="utf-8"))


def sources(root):
    for folder in FOLDERS:
        for path in sorted((root / folder).rglob("*")):
            if path.suffix in (".h", ".cpp"):
                yield path


def mistakes(root, rooms):
    foundation = root / "TabulonFoundation"
    height = {room: number for number, room in enumerate(rooms)}
    for path in sources(root):
        name = path.relative_to(root).as_posix()
        own_room = path.relative_to(foundation).parts[0] if path.is_relative_to(foundation) else None
        if own_room and own_room not in height:
            yield f"{name}: {own_room} is no room of the foundation"
            continue
        for included in included_files(path):
            if (name, included) in ALLOWED or not (foundation / included).is_file():
                continue
            room = included.split("/")[0]
            if own_room and height[room] > height[own_room]:
                yield f"{name}: {own_room} stands below {room} and includes {included}"
            elif room == "face" and not name.startswith(FACE_USERS):
                yield f"{name}: calls methods of classes, and includes {included}"


def main():
    root, rooms = pathlib.Path(sys.argv[1]), sys.argv[2:]
    found = list(mistakes(root, rooms))
    for line in found:
        print(line)
    if len(ALLOWED) > 5:
        print("More than five exceptions")
    return 1 if found or len(ALLOWED) > 5 else 0


if __name__ == "__main__":
    sys.exit(main())
