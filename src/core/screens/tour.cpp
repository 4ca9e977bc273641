#include "core/screens/tour.h"

#include "core/screens/mdiorva.h"
#include "core/screens/window_table.h"
#include "core/session.h"
#include "store/creation.h"
#include "store/engine/error.h"
#include "store/year_answers_json.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPainter>
#include <QPixmap>

#include <cstdio>

namespace {

bool fail(const QString& sentence) {
    std::fprintf(stderr, "%s\n", qPrintable(sentence));
    return false;
}

bool makeSampleYear(Session& session, const QString& path) {
    QFile file(QStringLiteral(":/samples/year.json"));
    if (!file.open(QIODevice::ReadOnly))
        return fail(QStringLiteral("The sample is not part of the program."));
    const ReadAnswers read = readYearAnswers(file.readAll(), QLocale());
    if (read.fault)
        return fail(read.fault->field + QStringLiteral(": ") + read.fault->text);
    const Seams& seams = session.GetSeams();
    CreateDB(session.Engine(), read.answers, path, ExistingFile::Replace, seams.progress,
             seams.prompts, QLocale::c());
    return true;
}

/// The window with its caption above it, which the platform draws and no grab holds.
QPixmap pictureOf(QWidget& window) {
    const QPixmap content = window.grab();
    const int height = window.fontMetrics().height() * 2;
    QPixmap picture(content.width(), content.height() + height);
    const QPalette palette = window.palette();
    picture.fill(palette.color(QPalette::Highlight));
    QPainter painter(&picture);
    painter.setFont(window.font());
    painter.setPen(palette.color(QPalette::HighlightedText));
    painter.drawText(QRect(height / 3, 0, picture.width(), height), Qt::AlignVCenter,
                     window.windowTitle());
    painter.drawPixmap(0, height, content);
    return picture;
}

bool savePicture(QWidget& window, const QString& path) {
    QApplication::processEvents();
    return pictureOf(window).save(path) || fail(QStringLiteral("Could not write ") + path);
}

} // namespace

bool playTour(Session& session, mdiORVA& frame, const QString& folder) {
    QDir().mkpath(folder);
    const QString year = folder + QStringLiteral("/sample.mdb");
    try {
        if (!makeSampleYear(session, year))
            return false;
        session.DatabasePath = year;
        if (session.OpenDatabaseFile(year, {}) != OpenDone)
            return fail(QStringLiteral("The sample year did not open."));
    } catch (const dao::EngineError& error) {
        return fail(error.description());
    }
    frame.EnableInput(true);
    bool whole = savePicture(frame, folder + QStringLiteral("/mdiORVA.png"));
    for (const WindowEntry& entry : windowTable()) {
        frame.OpenForm(entry.name);
        whole = savePicture(frame, folder + u'/' + entry.name + QStringLiteral(".png")) && whole;
        frame.CloseOpenForms();
    }
    return whole;
}
