"""What every check of documents works with: a copy of the sample year, the program without its
windows, and LibreOffice, all in a folder of their own."""

import os
import shutil
import subprocess


class Workplace:
    def __init__(self, build, folder):
        self.build = build
        self.folder = folder
        self.year = folder / "sample.mdb"
        self.opened = 0  # so many documents, in LibreOffice
        shutil.copy(build / "help/pictures/sample.mdb", self.year)
        self.environment = os.environ | {
            "HOME": str(folder),
            "XDG_CONFIG_HOME": str(folder / "config"),
            "XDG_DATA_HOME": str(folder / "data"),
            "LC_ALL": "C.UTF-8",
        }

    def run(self, *command):
        """What a program prints; a failure ends the check with what it says of it."""
        ended = subprocess.run([str(word) for word in command], env=self.environment,
                               capture_output=True, text=True)
        if ended.returncode != 0:
            raise SystemExit(f"{' '.join(map(str, command))}\n{ended.stderr}")
        return ended.stdout

    def orva(self, *arguments):
        return self.run(self.build / "bin/orva-cli", *arguments)

    def rows(self, sql):
        """The rows of a query over the year, Null as an empty text."""
        unescaped = {"\\N": "", "\\t": "\t", "\\n": "\n", "\\r": "\r", "\\\\": "\\"}

        def value(text):
            parts, place = [], 0
            while place < len(text):
                length = 2 if text[place] == "\\" else 1
                part = text[place:place + length]
                parts.append(unescaped.get(part, part))
                place += length
            return "".join(parts)

        answer = self.run(self.build / "tools/jet", self.year, sql)
        return [[value(text) for text in line.split("\t")] for line in answer.splitlines()]

    def fields(self, table):
        """The names of a table's fields."""
        return [row[0] for row in self.rows(f"SHOW FIELDS {table}")]

    def plain(self, rtf):
        """The plain text of a rich text."""
        source = self.folder / "note.rtf"
        source.write_text(rtf, encoding="utf-8")
        return self.run(self.build / "tools/rtf_tool", "plain", source)

    def converted(self, document, ending):
        """The document as LibreOffice writes it in another format."""
        self.opened += 1
        target = self.folder / "converted" / document.name
        self.run("soffice", f"-env:UserInstallation=file://{self.folder}/office", "--headless",
                 "--convert-to", ending, "--outdir", target, document)
        return target / f"{document.stem}.{ending}"

    def pages(self, document):
        """The texts of the document's pages, as LibreOffice prints it."""
        pdf = self.converted(document, "pdf")
        return self.run("pdftotext", "-layout", pdf, "-").split("\f")[:-1]
