// bare_sheet FILE DATE COUNT TEXT: the least program that shows a planning sheet. It reads the
// sheet's row by the database library and shows the text in so many text edits, in a window of the
// daily sheet's size inside a main window of the frame's size. It ends as soon as they are painted.

#include "raw_library.h"

#include <QApplication>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTextEdit>
#include <QVBoxLayout>

#include <cstdlib>

namespace {

constexpr QSize SheetSize(960, 620);

bool readSheet(const QString& path, const QByteArray& date) {
    RawDatabase year(path);
    const RawStatement row = year.prepare("SELECT * FROM Planning ORDER BY PlanDate");
    while (year.step(row)) {
        if (reinterpret_cast<const char*>(sqlite3_column_text(row.get(), 1)) == date)
            return readColumns(row) > 0;
    }
    return false;
}

QWidget* makeSheet(int count, const QString& text) {
    auto* sheet = new QWidget;
    auto* layout = new QVBoxLayout(sheet);
    for (int i = 0; i < count; ++i) {
        auto* edit = new QTextEdit;
        edit->setPlainText(text);
        layout->addWidget(edit);
    }
    return sheet;
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (!readSheet(arguments.value(1), arguments.value(2).toLatin1()))
        return 1;
    QMainWindow frame;
    auto* area = new QMdiArea;
    frame.setCentralWidget(area);
    frame.showMaximized();
    QMdiSubWindow* window =
        area->addSubWindow(makeSheet(arguments.value(3).toInt(), arguments.value(4)));
    window->resize(SheetSize);
    window->show();
    QApplication::processEvents(); // lays out and paints
    std::_Exit(0);                 // closing it is no part of the start
}
