#!/usr/bin/env python3
"""The real program in an empty home without a display: its command line, and the unattended run with its picture."""
import json
import os
import pathlib
import struct
import subprocess
import sys
import tempfile
import time
import unittest
import zlib

MOSARO, MOSAROCTL = sys.argv[1:3]


def png(width, height, color):
    def chunk(kind, data):
        body = kind + data
        return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body))

    rows = (b"\0" + bytes(color) * width) * height
    header = struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(rows)) + chunk(b"IEND", b""))


def size_of_png(path):
    data = path.read_bytes()
    assert data[:8] == b"\x89PNG\r\n\x1a\n", "not a PNG file"
    return struct.unpack(">II", data[16:24])


class EndToEnd(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.root = pathlib.Path(self.folder.name)
        self.home = self.root / "home"
        self.runtime = self.root / "runtime"
        self.home.mkdir()
        self.runtime.mkdir(mode=0o700)
        self.picture = self.root / "out.png"

    def environment(self, **more):
        kept = {name: os.environ[name] for name in ("PATH", "ASAN_OPTIONS", "LD_LIBRARY_PATH") if name in os.environ}
        return kept | {"HOME": str(self.home), "XDG_RUNTIME_DIR": str(self.runtime), "LC_ALL": "C.UTF-8", "TZ": "UTC",
                       "DBUS_SESSION_BUS_ADDRESS": "disabled:"} | more

    def run_program(self, program, *arguments, status=0):
        run = subprocess.run([program, *map(str, arguments)], env=self.environment(), timeout=60,
                             capture_output=True, text=True)
        self.assertEqual(run.returncode, status, run.stdout + run.stderr)
        return run

    def write(self, name, data):
        path = self.root / name
        path.write_bytes(data)
        return path

    def test_pictures_come_in_and_stand_in_the_window(self):
        good = [self.write(f"picture {n}.png", png(40 + n, 30, (20 * n, 90, 200 - 20 * n))) for n in range(5)]
        bad = self.write("truncated.png", png(400, 300, (1, 2, 3))[:60])
        run = self.run_program(MOSARO, "--snapshot", self.picture, "--import", *good[:3], bad, *good[3:])
        self.assertEqual(size_of_png(self.picture), (1280, 800))
        lines = run.stdout.splitlines()
        self.assertEqual(len([line for line in lines if line.startswith("imported")]), 5, run.stdout)
        failed = [line for line in lines if line.startswith("failed")]
        self.assertEqual(len(failed), 1, run.stdout)
        self.assertIn(str(bad), failed[0])
        self.assertGreater(len(failed[0]), len(f"failed    {bad}: "), "a reason is told")
        self.assertIn("5 of 6 imported", run.stdout)

        listed = self.run_program(MOSAROCTL, "list", "--collection", "Samples", "--json")
        items = {item["mediaTitle"]: item for item in json.loads(listed.stdout)}
        self.assertEqual(sorted(items), [path.stem for path in good])
        self.assertEqual(items["picture 3"]["mediaWidth"], 43)
        for item in items.values():
            self.assertTrue(pathlib.Path(item["preview"]).is_file())
        self.run_program(MOSAROCTL, "verify")

    def test_empty_home_shows_an_empty_library(self):
        self.run_program(MOSARO, "--snapshot", self.picture)
        self.assertEqual(size_of_png(self.picture), (1280, 800))
        library = self.home / ".local/share/Mosaro/Mosaro.mrlibrary"
        self.assertTrue((library / "Mosaro").is_file())
        self.assertTrue((library / "MRLib.data").is_file())
        self.assertTrue((self.home / ".config/Mosaro/Mosaro.ini").is_file() or
                        (self.home / ".config/Mosaro/Mosaro.conf").is_file())

    def test_damaged_library_ends_with_a_reason(self):
        library = self.root / "Bad.mrlibrary"
        library.mkdir()
        (library / "Mosaro").write_bytes(b"x" * 5000)
        run = self.run_program(MOSARO, "--library", library, "--snapshot", self.picture, status=1)
        self.assertIn("could not be opened", run.stderr)
        self.assertFalse(self.picture.exists())
        self.assertEqual((library / "Mosaro").read_bytes(), b"x" * 5000)

    def test_picture_that_cannot_be_saved(self):
        run = self.run_program(MOSARO, "--snapshot", self.root / "no such folder" / "out.png", status=1)
        self.assertIn("no such folder", run.stderr)

    def test_end_of_the_session_closes_the_library(self):
        program = subprocess.Popen([MOSARO], env=self.environment(QT_QPA_PLATFORM="offscreen"))
        self.addCleanup(program.kill)
        library = self.home / ".local/share/Mosaro/Mosaro.mrlibrary"
        log = library / "Mosaro-wal"
        deadline = time.monotonic() + 30
        while not log.exists() and time.monotonic() < deadline:
            time.sleep(0.05)
        self.assertTrue(log.exists(), "the library was not opened")
        program.terminate()
        self.assertEqual(program.wait(timeout=30), 0)
        self.assertFalse(log.exists(), "the store was left open")

    def test_wrong_usage(self):
        for arguments in (["--nonsense"], ["--import", "a.png"], []):
            run = self.run_program(MOSARO, *arguments, status=2)
            self.assertTrue(run.stderr.startswith("mosaro: "), run.stderr)
        self.assertIn("--snapshot", self.run_program(MOSARO, "--help").stdout)
        self.assertRegex(self.run_program(MOSARO, "--version").stdout, r"^Mosaro \d+\.\d+")


unittest.main(argv=sys.argv[:1], verbosity=2)
