#!/usr/bin/env python3
"""mosaroctl as a process: what it does when it is killed, interrupted, locked out, or out of room."""
import json
import os
import pathlib
import random
import shutil
import signal
import struct
import subprocess
import sys
import tempfile
import time
import unittest
import zlib

PROGRAM = sys.argv.pop(1)
PICTURES = 100


def png(width, height, seed):
    """A small picture that compresses badly."""
    noise = random.Random(seed)
    rows = b"".join(b"\0" + noise.randbytes(width * 3) for _ in range(height))

    def chunk(name, data):
        return struct.pack(">I", len(data)) + name + data + struct.pack(">I", zlib.crc32(name + data))

    header = struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)
    return b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(rows, 1)) + chunk(b"IEND", b"")


class EndToEnd(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.pictures = pathlib.Path(tempfile.mkdtemp(prefix="mosaroctl-pictures-"))
        for number in range(PICTURES):
            (cls.pictures / f"{number:04}.png").write_bytes(png(160, 120, number))

    @classmethod
    def tearDownClass(cls):
        shutil.rmtree(cls.pictures)

    def setUp(self):
        self.home = pathlib.Path(tempfile.mkdtemp(prefix="mosaroctl-home-"))
        self.addCleanup(shutil.rmtree, self.home, True)
        self.environment = dict(os.environ, HOME=str(self.home), XDG_CONFIG_HOME=str(self.home / "config"),
                                XDG_DATA_HOME=str(self.home / "data"), XDG_CACHE_HOME=str(self.home / "cache"))
        self.library = self.home / "Test.mrlibrary"
        self.assertEqual(self.ctl("create", self.library)[0], 0)

    def start(self, *arguments):
        command = [PROGRAM, "--library", str(self.library)] + [str(argument) for argument in arguments]
        return subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
                                env=self.environment)

    def ctl(self, *arguments):
        """Exit status, parsed output (or the text), errors."""
        process = self.start(*arguments)
        out, err = process.communicate(timeout=120)
        return process.returncode, json.loads(out) if "--json" in arguments and out else out, err

    def records(self):
        status, items, err = self.ctl("list", "--json")
        self.assertEqual(status, 0, err)
        return items

    def wait_for(self, condition, process):
        end = time.monotonic() + 60
        while not condition() and process.poll() is None:
            self.assertLess(time.monotonic(), end, "nothing happens")
            time.sleep(0.002)

    def item_folders(self):
        return list(self.library.glob("Masters/[0-9]*/[0-9]*/[0-9]*/*.mritem"))

    def assert_whole(self, items):
        for item in items:
            self.assertTrue(pathlib.Path(item["path"]).is_file(), item["path"])
            self.assertTrue(pathlib.Path(item["preview"]).stat().st_size > 0, item["preview"])
            self.assertEqual(pathlib.Path(item["path"]).stat().st_size, item["mediaFileSize"])

    def test_whole_road(self):
        (self.pictures / "torn.png").write_bytes(png(50, 50, 1)[:300])
        self.addCleanup((self.pictures / "torn.png").unlink)
        status, report, err = self.ctl("import", "--json", self.pictures, "--collection", "Noise")
        self.assertEqual(status, 3, err)
        self.assertEqual(len(report["imported"]), PICTURES)
        self.assertEqual([entry["path"] for entry in report["failed"]], [str(self.pictures / "torn.png")])
        items = self.records()
        self.assertEqual([item["mediaTitle"] for item in items], [f"{number:04}" for number in range(PICTURES)])
        self.assertEqual([item["mediaID"] for item in items], report["imported"])
        self.assertTrue(all(item["mediaWidth"] == 160 and item["mediaHeight"] == 120 for item in items))
        self.assertTrue(all(item["colors"] for item in items))
        self.assert_whole(items)
        self.assertEqual(self.ctl("verify")[0], 0)

    def test_kill_at_any_moment(self):
        """Killed at random: each time the library opens, every record has its files, and a repair takes away what has
        no record and nothing else."""
        moments = random.Random()
        others = [self.library / "Masters" / place for place in ("notes.txt", "2020/1/list.txt", "2020/1/1/mine/a.png")]
        for other in others:
            other.parent.mkdir(parents=True, exist_ok=True)
            other.write_text("not an item's")
        for turn in range(4):
            before = len(self.item_folders())
            process = self.start("import", self.pictures)
            wanted = before + moments.randrange(1, 40)
            self.wait_for(lambda: len(self.item_folders()) >= wanted, process)
            time.sleep(moments.random() * 0.02)
            process.kill()
            process.communicate()
            items = self.records()
            self.assert_whole(items)
            status, problems, err = self.ctl("verify", "--json")
            self.assertIn(status, (0, 3), err)
            self.assertEqual({entry["problem"] for entry in problems} - {"folderWithoutRecord"}, set(), turn)
            recorded = {item["mediaID"] for item in items}
            for entry in problems:
                self.assertNotIn(pathlib.Path(entry["path"]).stem, recorded)
            self.assertEqual(self.ctl("verify", "--repair")[0], 0)
            self.assertEqual(self.ctl("verify", "--json")[1], [])
            self.assertEqual({item["mediaID"] for item in self.records()}, recorded)
            self.assertEqual({folder.stem for folder in self.item_folders()}, recorded)
            self.assertEqual([other.read_text() for other in others], ["not an item's"] * len(others))
        self.assertEqual(len(list(self.pictures.iterdir())), PICTURES)
        self.assertEqual(self.ctl("import", self.pictures / "0001.png")[0], 0)

    def test_interrupt_ends_in_order(self):
        process = self.start("import", "--json", self.pictures)
        self.wait_for(lambda: len(self.item_folders()) >= 3, process)
        process.send_signal(signal.SIGINT)
        out, err = process.communicate(timeout=60)
        imported = json.loads(out)["imported"]
        if len(imported) == PICTURES:
            self.skipTest("the import was faster than the signal")
        self.assertEqual(process.returncode, 1)
        self.assertEqual(len(err.splitlines()), 1)
        self.assertEqual([item["mediaID"] for item in self.records()], imported)
        self.assertEqual({folder.stem for folder in self.item_folders()}, set(imported))
        self.assertEqual(self.ctl("verify", "--json"), (0, [], ""))

    def test_second_program_is_told_who_holds_the_library(self):
        process = self.start("import", self.pictures)
        self.wait_for(lambda: len(self.item_folders()) >= 1, process)
        process.send_signal(signal.SIGSTOP)
        try:
            status, out, err = self.ctl("list")
        finally:
            process.send_signal(signal.SIGCONT)
        self.assertEqual((status, out, len(err.splitlines())), (1, "", 1))
        self.assertTrue("mosaroctl" in err.removeprefix("mosaroctl:") or str(process.pid) in err, err)
        self.assertEqual(process.communicate(timeout=120)[1], "")
        self.assertEqual(process.returncode, 0)

    def test_full_disk(self):
        disk = self.home / "disk"
        disk.mkdir()
        mounted = os.geteuid() == 0 and subprocess.run(
            ["mount", "-t", "tmpfs", "-o", "size=3m", "tmpfs", str(disk)], stderr=subprocess.DEVNULL).returncode == 0
        if not mounted:
            self.skipTest("needs the right to mount a small file system")
        self.addCleanup(subprocess.run, ["umount", str(disk)])
        self.library = disk / "Full.mrlibrary"
        self.assertEqual(self.ctl("create", self.library)[0], 0)
        status, report, err = self.ctl("import", "--json", self.pictures)
        self.assertEqual(status, 3, err)
        self.assertGreater(len(report["failed"]), 0)
        self.assertEqual(len(report["imported"]) + len(report["failed"]), PICTURES)
        self.assertIn("full", report["failed"][-1]["reason"])
        items = self.records()
        self.assertEqual([item["mediaID"] for item in items], report["imported"])
        self.assert_whole(items)
        self.assertEqual(self.ctl("verify", "--json"), (0, [], ""))
        self.assertEqual(len(list(self.pictures.glob("*.png"))), PICTURES)

    def test_damaged_library(self):
        (self.library / "Mosaro").write_bytes(b"this is no store" * 100)
        status, out, err = self.ctl("list")
        self.assertEqual((status, out, len(err.splitlines())), (1, "", 1))
        self.assertEqual((self.library / "Mosaro").read_bytes(), b"this is no store" * 100)


if __name__ == "__main__":
    unittest.main(verbosity=2)
