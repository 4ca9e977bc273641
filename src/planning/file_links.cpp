#include "planning/file_links.h"

#include "core/engine_failure.h"
#include "core/prompts.h"
#include "core/session.h"
#include "store/engine/names.h"
#include "store/record_steps.h"
#include "store/table_names.h"
#include "store/table_structure.h"

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

void telling(const Session& session, const QString& title, const std::function<void()>& work) {
    tryTelling(session.GetSeams().prompts, {title}, work);
}

QList<FileLink> readLinks(const dao::Database& database, const QString& planDate, int period) {
    QList<FileLink> links;
    if (!TableExists(database, FileLinksTable))
        return links;
    dao::Recordset rows = database.OpenRecordset(
        u"SELECT * FROM FileLinks WHERE PlanDate = %1 AND Period = %2;"_s.arg(
            dao::writeText(planDate), dao::writeText(QString::number(period))),
        dao::RecordsetType::Snapshot);
    for (; !rows.EOF_(); rows.MoveNext())
        links += {rows[u"PlanDate"].text(), rows[u"LinkName"].text(), rows[u"FilePath"].text()};
    return links;
}

bool hasName(const QList<FileLink>& links, const QString& name) {
    return std::any_of(links.begin(), links.end(), [&](const FileLink& link) {
        return dao::compareText(link.name, name) == 0;
    });
}

void append(const dao::Database& database, int period, const FileLink& link) {
    if (!TableExists(database, FileLinksTable))
        CreateFileLinksTable(database);
    dao::Recordset rows = database.OpenRecordset(FileLinksTable);
    rows.AddNew();
    rows.SetCollect(u"PlanDate", link.planDate);
    rows.SetCollect(u"Period", QString::number(period));
    rows.SetCollect(u"LinkName", link.name);
    rows.SetCollect(u"FilePath", link.path);
    rows.Update();
}

} // namespace

QList<FileLink> ReadFileLinks(const dao::Database& database, const QString& planDate) {
    QList<FileLink> links;
    if (!TableExists(database, FileLinksTable))
        return links;
    QString query = u"SELECT * FROM "_s + FileLinksTable;
    if (!planDate.isEmpty())
        query += u" WHERE PlanDate = "_s + dao::writeText(planDate);
    dao::Recordset rows = database.OpenRecordset(query, dao::RecordsetType::Snapshot);
    for (; !rows.EOF_(); rows.MoveNext())
        links += {rows[u"PlanDate"].text(), rows[u"LinkName"].text(), rows[u"FilePath"].text()};
    return links;
}

QList<FileLink> GetFileLinks(const Session& session, const QString& planDate, int period) {
    QList<FileLink> links;
    telling(session, u"Get File Links Error"_s,
            [&] { links = readLinks(session.CurrentDB, planDate, period); });
    return links;
}

QList<FileLink> AllFileLinks(const Session& session) {
    QList<FileLink> links;
    telling(session, u"Get File Links Error"_s, [&] { links = ReadFileLinks(session.CurrentDB); });
    return links;
}

bool AddFileLink(const Session& session, const QString& planDate, int period) {
    Prompts& prompts = session.GetSeams().prompts;
    const std::optional<LinkAnswer> answer =
        prompts.File_Link(u"Create a File Link"_s, u"Enter the information"_s, {}, {});
    if (!answer)
        return false;
    const FileLink link{planDate, answer->name, answer->path};
    bool isAdded = false;
    telling(session, u"Add File Link Error"_s, [&] {
        if (hasName(readLinks(session.CurrentDB, planDate, period), link.name)) {
            prompts.msg_Box(u"A file link with this name already exists for this lesson. Please "
                            "use a different name!"_s,
                            OkButton | WarningIcon, u"Duplicate name"_s);
            return;
        }
        append(session.CurrentDB, period, link);
        isAdded = true;
    });
    return isAdded;
}

void OpenLink(const Session& session, const QString& planDate, const QString& name) {
    telling(session, u"Open File Link Error"_s, [&] {
        dao::Recordset rows = session.CurrentDB.OpenRecordset(
            u"SELECT * FROM FileLinks WHERE PlanDate = %1 AND LinkName = %2;"_s.arg(
                dao::writeText(planDate), dao::writeText(name)),
            dao::RecordsetType::Snapshot);
        if (!rows.EOF_())
            OpenFileLink(rows[u"FilePath"].text(), session.GetSettings(), session.GetSeams().shell,
                         session.GetSeams().prompts);
    });
}

void RemoveFileLink(const Session& session, const QString& name) {
    telling(session, u"Remove File Link Error"_s, [&] {
        dao::Recordset rows = session.CurrentDB.OpenRecordset(FileLinksTable);
        if (FindInRecordset(rows, u"LinkName = "_s + dao::writeText(name)))
            rows.Delete();
    });
}
