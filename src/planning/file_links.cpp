#include "planning/file_links.h"

#include "core/engine_failure.h"
#include "core/prompts.h"
#include "core/seams.h"
#include "store/engine/names.h"
#include "store/record_steps.h"
#include "store/table_names.h"
#include "store/table_structure.h"

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// The links that meet a criterion ("WHERE ..."), all with an empty one.
QList<FileLink> readLinks(const dao::Database& database, const QString& criterion) {
    QList<FileLink> links;
    if (!TableExists(database, FileLinksTable))
        return links;
    dao::Recordset rows = database.OpenRecordset(u"SELECT * FROM FileLinks "_s + criterion,
                                                 dao::RecordsetType::Snapshot);
    for (; !rows.EOF_(); rows.MoveNext())
        links += {rows[u"PlanDate"].text(), rows[u"LinkName"].text(), rows[u"FilePath"].text()};
    return links;
}

QList<FileLink> linksOf(const dao::Database& database, const QString& planDate, int period) {
    return readLinks(database,
                     u"WHERE PlanDate = %1 AND Period = %2"_s.arg(
                         dao::writeText(planDate), dao::writeText(QString::number(period))));
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
    return readLinks(database, planDate.isEmpty()
                                   ? QString()
                                   : u"WHERE PlanDate = "_s + dao::writeText(planDate));
}

QList<FileLink> GetFileLinks(const dao::Database& database, Prompts& prompts,
                             const QString& planDate, int period) {
    QList<FileLink> links;
    tryTelling(prompts, {u"Get File Links Error"},
               [&] { links = linksOf(database, planDate, period); });
    return links;
}

QList<FileLink> AllFileLinks(const dao::Database& database, Prompts& prompts) {
    QList<FileLink> links;
    tryTelling(prompts, {u"Get File Links Error"}, [&] { links = ReadFileLinks(database); });
    return links;
}

bool AddFileLink(const dao::Database& database, Prompts& prompts, const QString& planDate,
                 int period) {
    const std::optional<LinkAnswer> answer =
        prompts.File_Link(u"Create a File Link"_s, u"Enter the information"_s, {}, {});
    if (!answer)
        return false;
    const FileLink link{planDate, answer->name, answer->path};
    bool isAdded = false;
    tryTelling(prompts, {u"Add File Link Error"}, [&] {
        if (hasName(linksOf(database, planDate, period), link.name)) {
            prompts.msg_Box(u"A file link with this name already exists for this lesson. Please "
                            "use a different name!"_s,
                            OkButton | WarningIcon, u"Duplicate name"_s);
            return;
        }
        append(database, period, link);
        isAdded = true;
    });
    return isAdded;
}

void OpenLink(const dao::Database& database, const Settings& settings, const Seams& seams,
              const QString& planDate, const QString& name) {
    tryTelling(seams.prompts, {u"Open File Link Error"}, [&] {
        const QList<FileLink> links =
            readLinks(database, u"WHERE PlanDate = %1 AND LinkName = %2"_s.arg(
                                    dao::writeText(planDate), dao::writeText(name)));
        if (!links.isEmpty())
            OpenFileLink(links.first().path, settings, seams.shell, seams.prompts);
    });
}

void RemoveFileLink(const dao::Database& database, Prompts& prompts, const QString& name) {
    tryTelling(prompts, {u"Remove File Link Error"}, [&] {
        dao::Recordset rows = database.OpenRecordset(FileLinksTable);
        if (FindInRecordset(rows, u"LinkName = "_s + dao::writeText(name)))
            rows.Delete();
    });
}
