#!/usr/bin/env python3
"""Importing and converting a large file of the older engine, held against mdb-export (Debian's mdbtools) of all its tables.

usage: bench/import.py VEXA_CLI [--megabytes 50] [--source tests/data/legacy/NAME.jet3.qel]

Grows a Jet 3 file by copies of the pages of its table Items (rows, long texts and all), then prints the time of
`vexa-cli convert --yes` as a ratio to that of mdb-export, whole processes both, and the most memory that the two
processes of the import held together.
"""

import argparse
import pathlib
import shutil
import struct
import subprocess
import sys
import tempfile
import time

from table import row

PAGE = 2048
DATA, TABLE = 1, 2
ROOT = pathlib.Path(__file__).resolve().parent.parent
MOST_RATIO, MOST_MEGABYTES = 2.0, 100.0


def u16(page, place):
    return struct.unpack_from("<H", page, place)[0]


def u32(page, place):
    return struct.unpack_from("<I", page, place)[0]


def slots(page):
    """The rows of a data page: number, start, end and flags."""
    end = PAGE
    for row in range(u16(page, 8)):
        packed = u16(page, 10 + 2 * row)
        start = packed & 0x1FFF
        yield row, start, end, packed & 0xC000
        end = start


class Table:
    """A table's definition: its page, where its key and its memos stand in a row."""

    def __init__(self, pages, number):
        self.number = number
        page = pages[number]
        self.columns = []
        place = 43 + 8 * u32(page, 31)
        for _ in range(u16(page, 25)):
            self.columns.append(page[place : place + 18])
            place += 18
        names = []
        for _ in self.columns:
            size = page[place]
            names.append(page[place + 1 : place + 1 + size].decode("latin-1"))
            place += 1 + size
        self.by_name = dict(zip(names, self.columns))
        self.memos = [u16(c, 3) for c in self.columns if c[0] in (0x0B, 0x0C)]


def variable_fields(page, start, end):
    """The places of a row's variable fields, in their order."""
    mask = (page[start] + 7) // 8
    last = end - 1
    count = page[last - mask]
    jumps = (end - start - 1) // 256
    first = last - mask - jumps - 1
    if (first - start - count) // 256 < jumps:
        jumps -= 1
    used, places = 0, []
    for i in range(count + 1):
        if used < jumps and i == page[last - mask - used - 1]:
            used += 1
        places.append(start + page[first - i] + 256 * used)
    return list(zip(places, places[1:]))


class Grower:
    def __init__(self, data):
        self.pages = [bytearray(data[i : i + PAGE]) for i in range(0, len(data), PAGE)]
        self.table = next(
            t
            for t in (Table(self.pages, n) for n, p in enumerate(self.pages) if p[0] == TABLE)
            if {"ItemKey", "ItemText", "ParentKey"} <= set(t.by_name)
        )
        owned = [n for n, p in enumerate(self.pages) if p[0] == DATA and u32(p, 4) == self.table.number]
        self.rows = owned
        self.texts = [n for n, p in enumerate(self.pages) if p[0] == DATA and p[4:8] == b"LVAL"]
        self.key = u16(self.table.by_name["ItemKey"], 14)
        self.next_key = 100000
        self.count = u32(self.pages[self.table.number], 12)
        self.new_rows = []

    def point(self, page, place, moved):
        packed = u32(page, place)
        if packed >> 8 in moved:
            struct.pack_into("<I", page, place, moved[packed >> 8] << 8 | packed & 0xFF)
        return packed

    def follow(self, packed, moved):
        """The pieces of a chain of long texts point on to their own copies."""
        while packed:
            page = self.pages[packed >> 8]
            start = next(s for row, s, _, _ in slots(page) if row == packed & 0xFF)
            packed = self.point(self.pages[moved[packed >> 8]], start, moved)

    def copy_row(self, page, start, end, moved):
        struct.pack_into("<i", page, start + 1 + self.key, self.next_key)
        self.next_key += 1
        fields = variable_fields(page, start, end)
        for place, until in (fields[i] for i in self.table.memos if i < len(fields)):
            if until - place < 12 or page[place + 3] & 0x80:
                continue
            packed = self.point(page, place + 4, moved)
            if not page[place + 3] & 0x40:
                self.follow(packed, moved)

    def round(self):
        moved = {}
        for number in self.rows + self.texts:
            moved[number] = len(self.pages)
            self.pages.append(bytearray(self.pages[number]))
        for number in self.rows:
            self.new_rows.append(moved[number])
            page = self.pages[moved[number]]
            for _, start, end, flags in list(slots(page)):
                if flags == 0xC000:
                    continue
                if flags == 0x4000:
                    self.point(page, start, moved)
                    self.count += 1
                    continue
                self.copy_row(page, start, end, moved)
                self.count += flags == 0

    def finish(self):
        """The table's map of pages becomes one of pages of bits."""
        definition = self.pages[self.table.number]
        struct.pack_into("<I", definition, 12, self.count)
        packed = u32(definition, 35)
        page = self.pages[packed >> 8]
        start, end = next((s, e) for row, s, e, _ in slots(page) if row == packed & 0xFF)
        bits_on_page = (PAGE - 4) * 8
        page[start:end] = bytes(end - start)
        page[start] = 1
        for first in range(0, len(self.pages), bits_on_page):
            bits = bytearray(PAGE)
            bits[0:2] = b"\x05\x01"
            for number in self.rows + self.new_rows:
                if first <= number < first + bits_on_page:
                    bits[4 + (number - first) // 8] |= 1 << (number - first) % 8
            struct.pack_into("<I", page, start + 1 + first // bits_on_page * 4, len(self.pages))
            self.pages.append(bits)
        return b"".join(self.pages)


def grown(data, size):
    grower = Grower(data)
    while len(grower.pages) * PAGE < size:
        grower.round()
    return grower.finish()


def export_seconds(path):
    begun = time.monotonic()
    tables = subprocess.run(["mdb-tables", "-1", path], check=True, capture_output=True, text=True).stdout
    for table in tables.splitlines():
        subprocess.run(["mdb-export", path, table], check=True, stdout=subprocess.DEVNULL)
    return time.monotonic() - begun


def peak(pid):
    """The most memory that a process and its children held, in megabytes."""
    total = 0.0
    for task in [str(pid)] + children(pid):
        try:
            status = pathlib.Path(f"/proc/{task}/status").read_text()
        except OSError:
            continue
        total += sum(int(line.split()[1]) for line in status.splitlines() if line.startswith("VmHWM")) / 1024
    return total


def children(pid):
    try:
        return pathlib.Path(f"/proc/{pid}/task/{pid}/children").read_text().split()
    except OSError:
        return []


def convert(cli, path):
    begun = time.monotonic()
    process = subprocess.Popen([cli, "convert", path, "--yes"], stderr=subprocess.PIPE, text=True)
    most = 0.0
    while process.poll() is None:
        most = max(most, peak(process.pid))
        time.sleep(0.01)
    words = process.stderr.read()
    if process.returncode != 0:
        sys.exit(f"the conversion failed: {words}")
    return time.monotonic() - begun, most


def main():
    options = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    options.add_argument("cli")
    options.add_argument("--megabytes", type=int, default=50)
    options.add_argument("--source", default=str(ROOT / "tests/data/legacy/04.01.01-bearpaw-20.jet3.qel"))
    options.add_argument("--runs", type=int, default=3)
    chosen = options.parse_args()
    folder = pathlib.Path(tempfile.mkdtemp(prefix="vexa-import-"))
    try:
        data = grown(pathlib.Path(chosen.source).read_bytes(), chosen.megabytes << 20)
        best_export, best_convert, most = 1e9, 1e9, 0.0
        for run in range(chosen.runs):
            path = folder / f"large{run}.qel"
            path.write_bytes(data)
            best_export = min(best_export, export_seconds(str(path)))
            seconds, memory = convert(chosen.cli, str(path))
            best_convert, most = min(best_convert, seconds), max(most, memory)
            for left in folder.iterdir():
                left.unlink()
        ratio = best_convert / best_export
        size = f"{len(data) / 2**20:.0f} MB"
        row(f"import of {size} / mdb-export", best_convert, best_export, ratio, MOST_RATIO, "s")
        row(f"import of {size}, memory / allowed", most, MOST_MEGABYTES, most / MOST_MEGABYTES, 1, "MB")
    finally:
        shutil.rmtree(folder)


main()
