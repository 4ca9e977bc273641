"""The spreadsheets with a class's data, in both formats: names of the sheets, cells and what kind
they are of, and the pages that come out of a printer."""

import contextlib
import datetime
import itertools
import sqlite3
import xml.etree.ElementTree as xml
import zipfile

CLASS = "10M1"
DETAILS = ["Tutor", "Sex", "Address1", "Address2", "Address3", "PostCode", "Tel1", "Tel2", "Email",
           "PID", "Notes"]
NAMES = ["Surname", "Firstname", "Tutor"]
TABLE = "{urn:oasis:names:tc:opendocument:xmlns:table:1.0}"
TEXT = "{urn:oasis:names:tc:opendocument:xmlns:text:1.0}"
OFFICE = "{urn:oasis:names:tc:opendocument:xmlns:office:1.0}"


HARD_NOTES = ["=1+1", "007", "12-3", "é" * 20000, "漢" * 32767, "Ł 😀\nsecond line", "_x0041_ & <b>"]


def faults(workplace):
    yield from kinds(workplace)
    yield from hard_texts(workplace)


def kinds(workplace):
    """Every kind of export, in both formats."""
    wanted = {
        "register": ([], register(workplace), [f"Register for {CLASS} : Term({number})"
                                               for number, _, _ in terms(workplace)]),
        "grades": ([], grades(workplace), [today()]),
        "details": (["--items", "Tutor,Sex,Address,Telephone,Email,PID,Notes"],
                    details(workplace), ["Surname"]),
        "notes": (["--categories", "Report"], notes(workplace), ["Surname"]),
        "lesson-notes": (["--pupil", "1"], lesson_notes(workplace), [today()]),
    }
    for (kind, (options, sheets, pages)), ending in itertools.product(wanted.items(),
                                                                      ["xls", "xlsx"]):
        file = workplace.folder / f"{kind}.{ending}"
        workplace.orva("export", kind, workplace.year, CLASS, file, *options)
        yield from wrong_sheets(file.name, read_sheets(workplace.converted(file, "ods")), sheets)
        yield from wrong_pages(file.name, workplace.pages(file), pages)


def hard_texts(workplace):
    """Texts that could be taken for something else, that are long, or of all kinds of letters."""
    with contextlib.closing(sqlite3.connect(workplace.year)) as year:
        for pupil, note in enumerate(HARD_NOTES, 1):
            year.execute(f"UPDATE Class_{CLASS} SET Notes = ? WHERE ID = ?", (note, pupil))
        year.commit()
    for ending in ["xls", "xlsx"]:
        file = workplace.folder / f"hard.{ending}"
        workplace.orva("export", "details", workplace.year, CLASS, file, "--items", "Notes")
        lines = workplace.rows(f"SELECT Surname, Firstname, Notes FROM Class_{CLASS}")
        yield from wrong_sheets(file.name, read_sheets(workplace.converted(file, "ods")),
                                {"Sheet1": table(["Surname", "Firstname", "Notes"], lines)})


def wrong_sheets(name, found, wanted):
    if list(found) != list(wanted):
        yield f"{name}: the sheets are {list(found)} and not {list(wanted)}"
        return
    for sheet, cells in wanted.items():
        if found[sheet] == cells:
            continue
        place = next((row, column)
                     for row, (left, right) in enumerate(itertools.zip_longest(found[sheet], cells,
                                                                               fillvalue=[]))
                     for column, pair in enumerate(itertools.zip_longest(left, right))
                     if pair[0] != pair[1])
        yield f"{name}: the sheet {sheet} has another cell in row {place[0]}, column {place[1]}"


def wrong_pages(name, found, wanted):
    if len(found) != len(wanted):
        yield f"{name}: {len(found)} pages come out and not {len(wanted)}"
        return
    for number, (page, text) in enumerate(zip(found, wanted), 1):
        if text not in page:
            yield f"{name}: page {number} lacks \"{text}\""


# What LibreOffice has read: the cells of each sheet, numbers as numbers and dates as dates, without
# the empty ones at the end of a row and the empty rows at the end.


def read_sheets(file):
    root = xml.fromstring(zipfile.ZipFile(file).read("content.xml"))
    return {table.get(TABLE + "name"): trimmed([trimmed(cells(row)) for row in rows(table)])
            for table in root.iter(TABLE + "table")}


def trimmed(values):
    end = len(values)
    while end > 0 and values[end - 1] in ("", []):
        end -= 1
    return values[:end]


def repeated(element, what):
    """An empty stretch to the edge of a sheet is not worth its length."""
    return min(int(element.get(f"{TABLE}number-{what}-repeated", 1)), 300)


def rows(table):
    for row in table.iter(TABLE + "table-row"):
        yield from [row] * repeated(row, "rows")


def cells(row):
    values = []
    for cell in row:
        if cell.tag in (TABLE + "table-cell", TABLE + "covered-table-cell"):
            values += [value(cell)] * repeated(cell, "columns")
    return values


def value(cell):
    kind = cell.get(OFFICE + "value-type")
    if kind == "float":
        return float(cell.get(OFFICE + "value"))
    if kind == "date":
        return datetime.date.fromisoformat(cell.get(OFFICE + "date-value")[:10])
    return "\n".join("".join(paragraph.itertext()) for paragraph in cell.findall(TEXT + "p"))


# What is to be read, from the tables of the year.


def table(titles, lines):
    return [trimmed(line) for line in [titles, *lines]]


def terms(workplace):
    days = [datetime.date(*map(int, row))
            for row in workplace.rows("SELECT Year, Month, Day FROM TermDates")]
    return [(number, first, last)
            for number, (first, last) in enumerate(zip(days[::2], days[1::2]), 1)]


def register(workplace):
    lessons = [field for field in workplace.fields(f"REG_{CLASS}") if field != "ID"]
    pupils = joined(workplace, "REG")
    sheets = {}
    for number, first, last in terms(workplace):
        of_term = [place for place, lesson in enumerate(lessons)
                   if first <= lesson_date(lesson) <= last]
        months = [lesson_date(lessons[place]).strftime("%B") for place in of_term]
        new_months = [month if index == 0 or months[index - 1] != month else ""
                      for index, month in enumerate(months)]
        sheets[f"Term({number})"] = table(
            ["", "", "", *new_months],
            [NAMES + [lessons[place][:2] for place in of_term],
             *[pupil[:3] + [pupil[4 + place] for place in of_term] for pupil in pupils]])
    return sheets


def lesson_date(field):
    return datetime.datetime.strptime(field[:8], "%d/%m/%y").date()


def joined(workplace, prefix):
    pupils, own = f"Class_{CLASS}", f"{prefix}_{CLASS}"
    return workplace.rows(f"SELECT {pupils}.Surname, {pupils}.Firstname, {pupils}.Tutor, {own}.* "
                          f"FROM {pupils} INNER JOIN {own} ON {pupils}.ID = {own}.ID "
                          "ORDER BY Surname")


def grades(workplace):
    titles = workplace.fields(f"Marks_{CLASS}")[1:]
    return {"Grades": table(NAMES + titles, [pupil[:3] + [number_or_text(mark) for mark in pupil[4:]]
                                             for pupil in joined(workplace, "Marks")])}


def number_or_text(mark):
    return float(mark) if mark.replace(".", "", 1).isdigit() else mark


def details(workplace):
    fields = ["Surname", "Firstname", *DETAILS]
    return {"Sheet1": table(fields, workplace.rows(
        f"SELECT {', '.join(fields)} FROM Class_{CLASS}"))}


def notes(workplace):
    pupils = workplace.rows(f"SELECT Surname, Firstname, NTS_Report FROM Class_{CLASS} "
                            "ORDER BY Surname")
    return {"Sheet1": table(["Surname", "Forename", "Report"],
                            [[*pupil[:2], workplace.plain(pupil[2]).rstrip("\n") if pupil[2] else ""]
                             for pupil in pupils])}


def lesson_notes(workplace):
    name = " ".join(workplace.rows(f"SELECT Firstname, Surname FROM Class_{CLASS} WHERE ID = 1")[0])
    lines = workplace.rows(f"SELECT Ldate, Lnotes FROM Lesson_Notes WHERE Lcode = '{CLASS}' "
                           "AND Lpupil = 1")
    return {"Lesson Notes": table([f"Lesson Notes for {name}"],
                                  [["lesson Date", "lesson Notes"],
                                   *[[lesson_date(date), note] for date, note in lines]])}


def today():
    return f"Created on {datetime.date.today():%d-%m-%Y}"
