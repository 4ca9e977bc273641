#include "organiser/post_it_rows.h"

#include "store/schema.h"
#include "store/table_names.h"
#include "store/table_structure.h"

using namespace Qt::StringLiterals;

namespace {

const QString ShrunkText = u"1"_s;
const QString FullSizeText = u"0"_s;

dao::Recordset recordOf(const dao::Database& year, qint64 id) {
    return year.OpenRecordset(u"SELECT * FROM [%1] WHERE IDX = %2"_s.arg(PostItTable).arg(id));
}

PostIt noteOf(const dao::Recordset& row) {
    return {.id = row.Collect(u"IDX").toInteger(),
            .memo = row.Collect(u"Memo").toText(),
            .top = static_cast<int>(row.Collect(u"Top").toInteger()),
            .left = static_cast<int>(row.Collect(u"Left").toInteger()),
            .isShrunk = row.Collect(u"Shrink").toText() == ShrunkText};
}

void fill(dao::Recordset& row, const PostIt& note) {
    row.SetCollect(u"Memo", note.memo);
    row.SetCollect(u"Top", note.top);
    row.SetCollect(u"Left", note.left);
    row.SetCollect(u"Shrink", note.isShrunk ? ShrunkText : FullSizeText);
    row.Update();
}

} // namespace

QString newNoteText() {
    return u"Enter your information here.\r\n\r\n"
           "Click and drag the title to move the post-it note around.\r\n\r\n"
           "Right click the title for more options."_s;
}

bool isNewNoteText(const QString& plain) {
    return QString(plain).remove(u'\r') == newNoteText().remove(u'\r');
}

void CheckPostItTable(const dao::Database& year) {
    if (!TableExists(year, PostItTable))
        year.TableDefs().Append(schemaTableDef(Table::PostIt));
}

qsizetype countPostIts(const dao::Database& year) {
    if (!year.isOpen() || !TableExists(year, PostItTable))
        return 0;
    return year.OpenRecordset(PostItTable).RecordCount();
}

QList<PostIt> readPostIts(const dao::Database& year) {
    QList<PostIt> notes;
    if (!TableExists(year, PostItTable))
        return notes;
    dao::Recordset rows = year.OpenRecordset(PostItTable, dao::RecordsetType::Snapshot);
    for (; !rows.EOF_(); rows.MoveNext())
        notes += noteOf(rows);
    return notes;
}

PostIt addPostIt(const dao::Database& year, PostIt note) {
    CheckPostItTable(year);
    dao::Recordset rows = year.OpenRecordset(PostItTable);
    rows.AddNew();
    fill(rows, note);
    rows.MoveLast();
    note.id = rows.Collect(u"IDX").toInteger();
    return note;
}

bool savePostIt(const dao::Database& year, const PostIt& note) {
    if (!TableExists(year, PostItTable))
        return false;
    dao::Recordset row = recordOf(year, note.id);
    if (row.EOF_())
        return false;
    row.Edit();
    fill(row, note);
    return true;
}

void deletePostIt(const dao::Database& year, qint64 id) {
    dao::Recordset row = recordOf(year, id);
    if (!row.EOF_())
        row.Delete();
}

void deleteAllPostIts(const dao::Database& year) {
    dao::Transaction whole(year);
    for (dao::Recordset rows = year.OpenRecordset(PostItTable); !rows.EOF_(); rows.MoveNext())
        rows.Delete();
    whole.commit();
}
