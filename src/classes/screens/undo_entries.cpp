#include "classes/screens/undo_entries.h"

#include "classes/pupil_sheet_model.h"
#include "classes/screens/pupil_grid.h"

#include <QAction>
#include <QMenu>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace {

void showStep(PupilGrid& grid, const QModelIndex& cell, Prompts& prompts) {
    if (!cell.isValid()) {
        prompts.PlainBox(u"This step changed pupils who are not shown now.\n"
                         "Please show all pupils first."_s,
                         OkButton | InformationIcon, u"Undo"_s);
        return;
    }
    grid.setColumnHidden(cell.column(), false);
    grid.setCurrentIndex(cell);
}

} // namespace

void addUndoEntries(QMenu& menu, PupilGrid& grid, PupilSheetModel& records, Prompts& prompts,
                    const FailureBox& failure) {
    const auto undo = [&grid, &records, &prompts, failure] {
        if (!records.history().toUndo().isEmpty())
            tryTelling(prompts, failure, [&] { showStep(grid, records.undo(), prompts); });
    };
    const auto redo = [&grid, &records, &prompts, failure] {
        if (!records.history().toRedo().isEmpty())
            tryTelling(prompts, failure, [&] { showStep(grid, records.redo(), prompts); });
    };
    // The grid itself hears the keys, so they are shown as text.
    menu.addSeparator();
    QAction* undoEntry = menu.addAction(u"Undo\tCtrl+Z"_s, &grid, undo);
    QAction* redoEntry = menu.addAction(u"Redo\tCtrl+Y, Ctrl+Shift+Z"_s, &grid, redo);
    QObject::connect(&menu, &QMenu::aboutToShow, &grid, [&records, undoEntry, redoEntry] {
        undoEntry->setEnabled(!records.history().toUndo().isEmpty());
        redoEntry->setEnabled(!records.history().toRedo().isEmpty());
    });
    // An open cell has its own undo.
    new QShortcut(Qt::CTRL | Qt::Key_Z, &grid, undo, Qt::WidgetShortcut);
    new QShortcut(Qt::CTRL | Qt::Key_Y, &grid, redo, Qt::WidgetShortcut);
    new QShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_Z, &grid, redo, Qt::WidgetShortcut);
}
