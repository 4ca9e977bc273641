#!/usr/bin/env python3
"""Writes the spreadsheet files of this folder: the smallest workbooks that hold such a sheet.

    make_sheet.py FOLDER

Not those named kinds: LibreOffice has made them of kinds.fods, and encrypted.ods too. It hides the
first sheet only in .ods; in the others that is done here, once they have been made.

A workbook is a compound file (a header, one sector of allocation table, one of directory, then the
stream "Workbook") with BIFF8 records in its stream: BOF, CODEPAGE, BOUNDSHEET, SST, EOF of the
workbook; BOF, DIMENSIONS, LABELSST and NUMBER, EOF of its sheet.
"""

import pathlib
import struct
import sys
import zipfile

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


def formulas():
    """A sheet of formulas alone, with results of all kinds: a number, a date, a text, a truth value,
    an error and nothing; the last two are none."""
    formula = lambda x, style, result: record(6, struct.pack("<HHH", 0, x, style) + result
                                              + struct.pack("<HIH", 0, 0, 3) + b"\x1e\x01\0")
    number = lambda value: struct.pack("<d", value)
    other = lambda kind, value=0: struct.pack("<BBB3sH", kind, 0, value, b"", 0xFFFF)
    bof = lambda kind: record(0x809, struct.pack("<HHHHII", 0x600, kind, 0, 1997, 0, 6))
    head = bof(5) + record(0x42, struct.pack("<H", 1200))
    head += record(0x41E, struct.pack("<H", 170) + text('[Red]"d"d/m/yy', "<H"))
    for number_format in (0, 170):
        head += record(0xE0, struct.pack("<HHH14x", 0, number_format, 0))
    sheet_name = text("Sheet1", "<B")
    start = len(head) + 4 + 6 + len(sheet_name) + 4
    globals_ = head + record(0x85, struct.pack("<IBB", start, 0, 0) + sheet_name) + record(0x0A, b"")
    sheet = bof(0x10) + record(0x200, struct.pack("<IIHHH", 0, 1, 0, 6, 0))
    sheet += formula(0, 0, number(7.5)) + formula(1, 1, number(46353.0))
    sheet += formula(2, 0, other(0)) + record(0x207, text("Zo\u00eb", "<H"))
    sheet += formula(3, 0, other(1, 1)) + formula(4, 0, other(2, 7)) + formula(5, 0, other(3))
    return globals_ + sheet + record(0x0A, b"")


def encrypted(stream):
    """The password's record behind the first one; the rest can't be read without it."""
    first = 4 + struct.unpack_from("<HH", stream)[1]
    return (stream[:first] + record(0x2F, struct.pack("<HHH48x", 1, 1, 1))
            + bytes(each ^ 0x5A for each in stream[first:]))


def directory_entry(name, kind, child, start, size):
    raw = name.encode("utf-16-le") + b"\0\0" if name else b""
    return (raw.ljust(64, b"\0") + struct.pack("<HBBIII", len(raw), kind, 1, FREE, FREE, child)
            + b"\0" * 36 + struct.pack("<IQ", start, size))


def older(rows):
    """A sheet as the first version had it, without a container."""
    place = lambda y, x: struct.pack("<HH3x", y, x)
    sheet = record(0x09, struct.pack("<HH", 2, 0x10)) + record(0x42, struct.pack("<H", 0x8001))
    sheet += record(0x00, struct.pack("<HHHH", 0, len(rows), 0, max(map(len, rows))))
    for y, row in enumerate(rows):
        for x, cell in enumerate(row):
            if isinstance(cell, str):
                sheet += record(0x04, place(y, x) + struct.pack("<B", len(cell)) + cell.encode("cp1252"))
            else:
                sheet += record(0x03, place(y, x) + struct.pack("<d", cell))
    return (sheet + record(0x0A, b"")).ljust(SECTOR, b"\0")


def bare(rows):
    """A sheet of BIFF5 without workbook and container, as programs of web servers write it; short
    numbers side by side, and a text with formats."""
    sheet = record(0x809, struct.pack("<HH4x", 0, 0x10))
    for y, row in enumerate(rows):
        numbers = [cell for cell in row if not isinstance(cell, str)]
        for x, cell in enumerate(row[:len(row) - len(numbers)]):
            sheet += record((0x204, 0xD6)[x % 2], struct.pack("<HHHH", y, x, 0, len(cell))
                            + cell.encode("cp1252") + b"\0" * (x % 2))
        if numbers:
            sheet += record(0xBD, struct.pack("<HH", y, len(row) - len(numbers))
                            + b"".join(struct.pack("<HI", 0, short(each)) for each in numbers)
                            + struct.pack("<H", len(row) - 1))
            sheet += record(0x27E, struct.pack("<HHHI", y, len(row), 0, short(numbers[0])))
    return sheet + record(0x0A, b"")


def short(number):
    """As a whole number, as one in hundredths, or as half of a real one."""
    for scale in (1, 100):
        if (number * scale).is_integer():
            return (int(number * scale) << 2 | 2 | (scale == 100)) & 0xFFFFFFFF
    return struct.unpack("<Q", struct.pack("<d", number))[0] >> 32 & ~3


def compound(stream, name="Workbook"):
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
    folder = directory_entry("Root Entry", 5, 1, END_OF_CHAIN, 0)
    folder += directory_entry(name, 2, FREE, 2, len(stream))
    folder += directory_entry("", 0, FREE, 0, 0) * 2
    return header + table + folder + stream


def zipped_workbook(path, rows, workbook_properties="", styles=""):
    """A workbook (.xlsx) of rows of XML."""
    main = "http://schemas.openxmlformats.org/spreadsheetml/2006/main"
    office = "http://schemas.openxmlformats.org/officeDocument/2006/relationships"
    links = "http://schemas.openxmlformats.org/package/2006/relationships"
    link = lambda name, kind, target: (f'<Relationship Id="{name}" Type="{office}/{kind}" '
                                       f'Target="{target}"/>')
    parts = {
        "_rels/.rels": f'<Relationships xmlns="{links}">'
                       f'{link("a", "officeDocument", "/xl/workbook.xml")}</Relationships>',
        "xl/workbook.xml": f'<workbook xmlns="{main}" xmlns:r="{office}">{workbook_properties}'
                           '<sheets><sheet name="A &amp; B" sheetId="1" r:id="b"/></sheets></workbook>',
        "xl/_rels/workbook.xml.rels":
            f'<Relationships xmlns="{links}">{link("c", "styles", "styles.xml")}'
            f'{link("b", "worksheet", "worksheets/sheet1.xml")}</Relationships>',
        "xl/styles.xml": f'<styleSheet xmlns="{main}">{styles}</styleSheet>',
        "xl/worksheets/sheet1.xml":
            f'<worksheet xmlns="{main}"><sheetData>{rows}</sheetData></worksheet>',
    }
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED) as archive:
        for name, part in parts.items():
            archive.writestr(zipfile.ZipInfo(name), '<?xml version="1.0" encoding="UTF-8"?>' + part,
                             zipfile.ZIP_DEFLATED)


def hide_first_sheet(folder):
    """Of kinds.xls and kinds.xlsx."""
    xls = (folder / "kinds.xls").read_bytes()
    name = xls.index(b"\x05\0Lists")  # behind what shows, and the kind of sheet
    (folder / "kinds.xls").write_bytes(xls[:name - 2] + b"\x01" + xls[name - 1:])
    with zipfile.ZipFile(folder / "kinds.xlsx") as archive:
        parts = {each: archive.read(each) for each in archive.namelist()}
    with zipfile.ZipFile(folder / "kinds.xlsx", "w", zipfile.ZIP_DEFLATED) as archive:
        for part, content in parts.items():
            if part == "xl/workbook.xml":
                content = content.replace(b'sheetId="1" state="visible"', b'sheetId="1" state="hidden"')
            archive.writestr(zipfile.ZipInfo(part), content, zipfile.ZIP_DEFLATED)


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
    # What the benchmark of imports takes in.
    "grades.xls": [["Surname", "First name"] + [f"Work {work}" for work in range(1, 41)]] + [
        [f"FEATHERSTONE{pupil * 13 % 35}", "Ann"]
        + [float((pupil * work) % 40) / 2 for work in range(1, 41)] for pupil in range(1, 36)],
}

folder = pathlib.Path(sys.argv[1])
for name, rows in SHEETS.items():
    (folder / name).write_bytes(compound(workbook(rows)))
(folder / "formulas.xls").write_bytes(compound(formulas()))
KINDS = [["Surname", "First name", "Test"], ["O'Brien", "Zo\u00eb", 7.5, -3.0, 1 / 4096]]
(folder / "older.xls").write_bytes(older(KINDS))
(folder / "bare.xls").write_bytes(bare(KINDS))
(folder / "encrypted.xls").write_bytes(compound(encrypted(workbook(SHEETS["class_list.xls"]))))
# An encrypted .xlsx is no zip archive but a compound file too.
(folder / "encrypted.xlsx").write_bytes(compound(b"?" * 5000, "EncryptedPackage"))
# Texts in the cells themselves, cells and rows without their place, dates from 1904.
zipped_workbook(
    folder / "own_texts.xlsx",
    '<row r="2"><c r="B2" t="inlineStr"><is><t>Zo\u00eb</t></is></c>'
    '<c t="inlineStr"><is><r><t>O\'</t></r><r><t xml:space="preserve">Brien </t></r>'
    '<rPh sb="0" eb="1"><t>oh</t></rPh></is></c><c t="str"><v>a_x000D_b</v></c>'
    '<c t="d"><v>2026-11-27T08:30:00Z</v></c></row><row><c s="1"><v>44891</v></c><c><v>7.5</v></c>'
    '<c s="2"><v>0.5</v></c><c t="e"><v>#N/A</v></c></row>',
    '<workbookPr date1904="1"/>',
    '<numFmts count="1"><numFmt numFmtId="164" formatCode="[h]:mm"/></numFmts>'
    '<cellXfs count="3"><xf numFmtId="0"/><xf numFmtId="14"/><xf numFmtId="164"/></cellXfs>')
zipped_workbook(folder / "wide.xlsx", "".join(
    "<row>" + "".join(f"<c><v>{1000 * row + column}</v></c>" for column in range(300)) + "</row>"
    for row in range(3)))
if (folder / "kinds.xls").exists():
    hide_first_sheet(folder)
