#include "store/record_steps.h"

#include "core/engine_failure.h"

bool FindInRecordset(dao::Recordset& recordset, const QString& criteria) {
    if (recordset.RecordCount() == 0)
        return false;
    const bool hasPlace = recordset.AbsolutePosition() >= 0;
    const dao::Bookmark place = hasPlace ? recordset.Bookmark() : dao::Bookmark();
    recordset.MoveFirst();
    recordset.FindFirst(criteria);
    if (!recordset.NoMatch())
        return true;
    if (hasPlace)
        recordset.SetBookmark(place);
    return false;
}

bool FindFirstInRecordset(dao::Recordset& recordset, const QString& criteria) {
    recordset.FindFirst(criteria);
    if (!recordset.NoMatch())
        return true;
    recordset.MoveLast();
    return false;
}

bool DataMoveNext(dao::Recordset& data) {
    if (data.RecordCount() == 0)
        return false;
    if (!data.EOF_())
        data.MoveNext();
    if (!data.EOF_())
        return true;
    data.MoveLast();
    return false;
}

bool DataMovePrevious(dao::Recordset& data) {
    if (data.RecordCount() == 0)
        return false;
    if (!data.BOF())
        data.MovePrevious();
    if (!data.BOF())
        return true;
    data.MoveFirst();
    return false;
}

bool DataDelete(dao::Recordset& data) {
    data.Delete();
    dao::Recordset refreshed = data.OpenRecordset();
    data.Close();
    data = refreshed;
    return data.AbsolutePosition() >= 0;
}

void DeleteAllRecords(dao::Recordset& recordset, Prompts& prompts) {
    tryTelling(prompts, {.title = u"Delete All Records error", .flags = OkButton}, [&] {
        for (recordset.MoveFirst(); !recordset.EOF_(); recordset.MoveNext())
            recordset.Delete();
    });
}
