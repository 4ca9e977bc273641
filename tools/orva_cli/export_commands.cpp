#include "export_commands.h"

#include "classes/class_export_commands.h"
#include "classes/class_exports.h"
#include "classes/class_list.h"
#include "classes/class_views.h"
#include "classes/grade_layout.h"
#include "classes/pupil_notes.h"
#include "classes/pupil_sheet.h"
#include "core/console_prompts.h"
#include "core/session.h"
#include "store/engine/names.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

/// A call's class, in its year, and the file to write.
class ExportOrder {
public:
    /// Opens the year to read it; raises RefusedCommand where it has no such class.
    ExportOrder(const Workplace& workplace, const Call& call)
        : session(workplace.session)
        , classCode(call.arguments.constFirst())
        , target{workbookName(QFileInfo(call.arguments.constLast()).absoluteFilePath(),
                              Qt::CaseInsensitive),
                 session.GetSeams()} {
        session.OpenToRead(call.file, call.password);
        if (classIndex(session.ClassColours, classCode) < 0) {
            session.CloseAllDatabases();
            throw RefusedCommand(u"There is no class %1 in the year."_s.arg(classCode));
        }
    }
    ~ExportOrder() { session.CloseAllDatabases(); }
    ExportOrder(const ExportOrder&) = delete;
    ExportOrder& operator=(const ExportOrder&) = delete;

    const dao::Database& year() const { return session.CurrentDB; }
    bool mayWrite() const { return mayOverwrite(target.file, target.seams.prompts); }

    Session& session;
    const QString classCode;
    const ExportTarget target;
};

ExitStatus statusOf(bool isDone) {
    return isDone ? Done : Failed;
}

QStringList listed(const Call& call, const QString& option) {
    return call.options.value(option).split(u',', Qt::SkipEmptyParts);
}

/// The items that `--items` names; raises UsageError for one that there is not.
QList<int> namedItems(const Call& call) {
    QList<int> items;
    const QStringList names = listed(call, u"items"_s);
    for (int item = 0; item < detailItems().size(); ++item) {
        if (names.contains(detailItems()[item].key, Qt::CaseInsensitive))
            items += item;
    }
    if (items.size() != names.size())
        throw UsageError(
            u"The items are Tutor, Sex, Address, Telephone, Email, PID and Notes, each "
            "once, with commas between them."_s,
            call.command);
    return items;
}

/// A category under the name that it has in the file; raises RefusedCommand where there is none.
QString categoryOf(const ExportOrder& order, const QString& title) {
    for (const QString& category : noteCategories(order.year(), order.classCode)) {
        if (dao::sameName(category, title))
            return category;
    }
    throw RefusedCommand(u"The class %1 has no note category %2."_s.arg(order.classCode, title));
}

QString nameOf(const ExportOrder& order, qint64 pupil) {
    const PupilSheet pupils(order.year(), pupilsSource(order.classCode, {}));
    const int row = pupils.rowOf(pupil);
    if (row < 0)
        throw RefusedCommand(
            u"There is no pupil with the ID %1 in the class %2."_s.arg(pupil).arg(order.classCode));
    const PupilName name = pupilName(pupils, row);
    return name.firstname + u' ' + name.surname;
}

} // namespace

ExitStatus exportRegisterOf(const Workplace& workplace, const Call& call) {
    const ExportOrder order(workplace, call);
    const auto records = openRegister(order.year(), order.classCode, {}, workplace.prompts);
    return statusOf(records && order.mayWrite() &&
                    exportRegister(order.year(), *records, order.classCode, order.target));
}

ExitStatus exportGradesOf(const Workplace& workplace, const Call& call) {
    const ExportOrder order(workplace, call);
    const PupilSheet records(order.year(), gradesSource(order.classCode, {}));
    const QList<ColumnLayout> columns =
        loadColumns(order.session.GetSettings(), order.classCode, records.columns());
    const auto isVisible = [&columns](int column) { return !columns[column].isHidden; };
    return statusOf(order.mayWrite() && exportGrades(records, isVisible, order.target));
}

ExitStatus exportDetailsOf(const Workplace& workplace, const Call& call) {
    const QList<int> items = namedItems(call);
    const ExportOrder order(workplace, call);
    const PupilSheet records(order.year(), detailsSource(order.year(), order.classCode, items));
    return statusOf(order.mayWrite() && exportClassDetails(records, order.target));
}

ExitStatus exportNotesOf(const Workplace& workplace, const Call& call) {
    const ExportOrder order(workplace, call);
    QStringList categories;
    for (const QString& title : listed(call, u"categories"_s))
        categories += categoryOf(order, title);
    if (categories.isEmpty()) {
        showNoCategory(workplace.prompts);
        return Failed;
    }
    const PupilSheet pupils(order.year(), pupilsSource(order.classCode, {}));
    return statusOf(order.mayWrite() &&
                    exportNotesTable(notesTable(order.session, order.classCode, pupils, categories),
                                     order.target));
}

ExitStatus exportLessonNotesOf(const Workplace& workplace, const Call& call) {
    bool isNumber = false;
    const qint64 pupil = call.options.value(u"pupil"_s).toLongLong(&isNumber);
    if (!isNumber)
        throw UsageError(u"--pupil takes the ID of a pupil."_s, call.command);
    const ExportOrder order(workplace, call);
    const QString name = nameOf(order, pupil);
    const dao::Recordset records =
        order.year().OpenRecordset(lessonNotesSource(order.classCode, pupil));
    if (records.EOF_()) {
        showNoLessonNotes(workplace.prompts, name);
        return Failed;
    }
    return statusOf(order.mayWrite() && exportLessonNotes(records, name, order.target));
}
