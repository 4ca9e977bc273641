"""The documents for the word processor: how many pages each has, what is to be read on them, and
the picture."""

import datetime
import re
import shutil

CLASS = "10M1"


def faults(workplace):
    today = sheet_day(workplace)
    date = today.isoformat()
    picture = workplace.folder / "plan.png"
    shutil.copy(workplace.build / "help/pictures/SeatingPlanFrm.png", picture)
    lessons = [row for row in day_of(workplace, today) if row[1]]
    pupils = workplace.rows(f"SELECT Firstname, Surname FROM Class_{CLASS} ORDER BY Surname")
    report = workplace.rows("SELECT IncidentNames.Surname, IncidentDetails.ID FROM IncidentDetails "
                            "INNER JOIN IncidentNames ON IncidentDetails.NameID = IncidentNames.ID")[0]
    month_before = (today - datetime.timedelta(28)).isoformat()
    documents = {
        ("cover", date): [[f"Cover for {code}", f"Period {period}", "HOMEWORK"]
                          + ([name for pupil in pupils for name in pupil] if code == CLASS else [])
                          for period, code, _, _ in lessons],
        ("quick", date): [["Quick Plan for", "Dinner Time", "After School", "Notes"]
                          + words(text for lesson in day_of(workplace, today) for text in lesson)],
        ("weekly", month_before, date, "9M4,7M2"): None,
        ("timetable", "both"): [["Timetable for", "Week A", "Monday", "Friday"], ["Week B", "Monday"]],
        ("seating", CLASS, picture): [[f"Seating Plan for {CLASS}"]],
        ("incident", report[1]): [["Incident Report", report[0], "Further action", "Signed"]],
        ("plan", date, "1"): [["Short Term Plan", "Class", lessons[0][1], "Key questions"]
                              + words([lessons[0][2]])],
    }
    for (kind, *arguments), pages in documents.items():
        file = workplace.folder / f"{kind}.rtf"
        workplace.orva("document", kind, workplace.year, *arguments, file)
        found = workplace.pages(file)
        yield from (wrong_heads(file.name, found) if pages is None
                    else wrong_pages(file.name, found, pages))
        if kind == "seating" and not pictures(workplace, file):
            yield f"{file.name}: there is no picture"


def sheet_day(workplace):
    """The day whose sheet the tour has filled."""
    day = workplace.rows("SELECT PlanDate FROM Planning WHERE Notes IS NOT NULL AND Lesson1 IS NOT "
                         "NULL AND Lesson6 IS NOT NULL ORDER BY PlanDate")[-1][0]
    return datetime.date.fromisoformat("20" + day)


def day_of(workplace, day):
    """Period, class, lesson and homework of each period, as plain texts."""
    fields = ",".join(f"Class{n},Lesson{n},Homework{n}" for n in range(1, 7))
    row = workplace.rows(f"SELECT {fields} FROM Planning WHERE PlanDate = '{day:%y-%m-%d}'")[0]
    return [(str(n + 1), row[3 * n], *(workplace.plain(rtf) if rtf else ""
                                       for rtf in row[3 * n + 1:3 * n + 3])) for n in range(6)]


def words(texts):
    """Words that can be found on a page however its lines are broken."""
    return [word for text in texts for word in re.findall(r"\w{4,}", text)]


def wrong_pages(name, found, wanted):
    if len(found) != len(wanted):
        yield f"{name}: {len(found)} pages and not {len(wanted)}"
        return
    for number, (page, texts) in enumerate(zip(found, wanted), 1):
        for text in texts:
            if text not in page:
                yield f"{name}: page {number} lacks \"{text}\""


def wrong_heads(name, found):
    """A long table has its heading on every page."""
    if len(found) < 2:
        yield f"{name}: {len(found)} page, too few to see a heading again"
    for number, page in enumerate(found, 1):
        if "Lesson Planning" not in page:
            yield f"{name}: page {number} has no heading"


def pictures(workplace, file):
    pdf = workplace.folder / "converted" / file.name / f"{file.stem}.pdf"
    return workplace.run("pdfimages", "-list", pdf).splitlines()[2:]
