#!/usr/bin/python3
"""Compares the includes between the folders of src/ with tests/walls.txt."""
import pathlib
import re
import unittest

TESTS = pathlib.Path(__file__).resolve().parent
SOURCES = TESTS.parent / "src"
DOORWAYS = {
    "engine": "engine/engine.h",
    "actions": "actions/actions.h",
    "presentation": "presentation/presentation.h",
    "host": None,
}


def includes():
    """(folder, included header) for each include of another folder."""
    for path in sorted(SOURCES.rglob("*")):
        if path.suffix not in (".h", ".cpp"):
            continue
        folder = path.parent.relative_to(SOURCES).as_posix()
        for header in re.findall(r'^#include "([^"]+)"', path.read_text(), re.MULTILINE):
            if header != "korvel.h" and pathlib.PurePosixPath(header).parent.as_posix() != folder:
                yield folder, header


def reviewed():
    lines = (TESTS / "walls.txt").read_text().splitlines()
    rows = [line.split(":") for line in lines if line and not line.startswith("#")]
    return {folder: set(others.split()) for folder, others in rows}


class Walls(unittest.TestCase):
    def test_folders_include_only_the_reviewed_folders(self):
        seen = {folder: set() for folder in reviewed()}
        for folder, header in includes():
            seen.setdefault(folder, set()).add(pathlib.PurePosixPath(header).parent.as_posix())
        self.assertEqual(seen, reviewed())

    def test_only_the_doorway_of_a_folder_is_included(self):
        for folder, header in includes():
            other = pathlib.PurePosixPath(header).parent.as_posix()
            if other in DOORWAYS:
                self.assertEqual(header, DOORWAYS[other], folder)

    def test_no_doorway_includes_another(self):
        for doorway in filter(None, DOORWAYS.values()):
            text = (SOURCES / doorway).read_text()
            for other in filter(None, DOORWAYS.values()):
                self.assertNotIn(f'#include "{other}"', text, doorway)


if __name__ == "__main__":
    unittest.main()
