#!/usr/bin/env python3
"""Writes the spreadsheet files of this folder: the smallest workbooks that hold such a sheet.

    make_sheet.py FOLDER

A workbook is a compound file (a header, one sector of allocation table, one of directory, then the
stream "Workbook") with BIFF8 records in its stream: BOF, CODEPAGE, BOUNDSHEET, SST, EOF of the
workbook; BOF, DIMENSIONS, LABELSST and NUMBER, EOF of its sheet.
"""

import pathlib
import struct
import sys

SECTOR = 512
END_OF_CHAIN, FAT_SECTOR, FREE = 0xFFFFFFFE, 0xFFFFFFFD, 0xFFFFFFFF


def record(kind, data):
    return struct.pack("<HH", kind, len(data)) + data


def text(value, length_format):
    return struct.pack(length_format + "B", len(value), 1) + value.encode("utf-16-le")


def workbook(rows):
    texts = sorted({cell for row in rows for cell in row if isinstance(cell, str) and cell})
    bof = lambda kind: record(0x809, struct.pack("<HHHHII", 0x600, kind, 0, 1997, 0, 6))
    sst = record(0xFC, struct.pack("<II", len(texts), len(texts))
                 + b"".join(text(value, "<H") for value in texts))
    head = bof(5) + record(0x42, struct.pack("<H", 1200))
    sheet_name = text("Sheet1", "<B")
    start = len(head) + 4 + 6 + len(sheet_name) + len(sst) + 4
    globals_ = head + record(0x85, struct.pack("<IBB", start, 0, 0) + sheet_name) + sst
    globals_ += record(0x0A, b"")
    assert len(globals_) == start
    width = max((len(row) for row in rows), default=0)
    sheet = bof(0x10) + record(0x200, struct.pack("<IIHHH", 0, len(rows), 0, width, 0))
    for y, row in enumerate(rows):
        for x, cell in enumerate(row):
            if isinstance(cell, str):
                if cell:
                    sheet += record(0xFD, struct.pack("<HHHI", y, x, 0, texts.index(cell)))
            else:
                sheet += record(0x203, struct.pack("<HHHd", y, x, 0, cell))
    return globals_ + sheet + record(0x0A, b"")


def directory_entry(name, kind, child, start, size):
    raw = name.encode("utf-16-le") + b"\0\0" if name else b""
    return (raw.ljust(64, b"\0") + struct.pack("<HBBIII", len(raw), kind, 1, FREE, FREE, child)
            + b"\0" * 36 + struct.pack("<IQ", start, size))


def compound(stream):
    stream = stream.ljust(8 * SECTOR, b"\0")  # shorter ones would have to go into small sectors
    stream = stream.ljust(-(-len(stream) // SECTOR) * SECTOR, b"\0")
    sectors = len(stream) // SECTOR
    fat = [FAT_SECTOR, END_OF_CHAIN] + [i + 3 for i in range(sectors - 1)] + [END_OF_CHAIN]
    assert len(fat) <= SECTOR // 4
    header = (bytes.fromhex("d0cf11e0a1b11ae1") + b"\0" * 16
              + struct.pack("<HHHHH6xIIIIIIIIII", 0x3E, 3, 0xFFFE, 9, 6, 0, 1, 1, 0, 4096,
                            END_OF_CHAIN, 0, END_OF_CHAIN, 0, 0)
              + struct.pack("<I", FREE) * 108)
    table = b"".join(struct.pack("<I", each) for each in fat).ljust(SECTOR, b"\xff")
    folder = (directory_entry("Root Entry", 5, 1, END_OF_CHAIN, 0)
              + directory_entry("Workbook", 2, FREE, 2, len(stream)))
    folder += directory_entry("", 0, FREE, 0, 0) * 2
    return header + table + folder + stream


SHEETS = {
    "class_list.xls": [
        ["Class list 10M1"],
        ["Surname", "First name", "Tutor", "Test 1", "Test 2"],
        ["ABBOTT", "Leah", "10T", 17.0, 23.5],
        ["o'brien", "Zoë", "10K", 9.0, 21.0],
        ["Castellano", "Marco", "10T", 14.0, ""],
        ["Ódalaigh", "Niamh", "10K", 20.0, 25.0],
        ["Petrovic", "Jan", "10B", 11.0, 18.5],
    ],
    "empty.xls": [],
}

for name, rows in SHEETS.items():
    (pathlib.Path(sys.argv[1]) / name).write_bytes(compound(workbook(rows)))
