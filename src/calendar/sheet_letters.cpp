#include "calendar/sheet_letters.h"

#include "store/table_names.h"

using namespace Qt::StringLiterals;

QHash<int, QChar> sheetLetters(const dao::Database& database) {
    QHash<int, QChar> letters;
    if (!database.TableDefs()[PlanningTable].Fields().Contains(u"ABWeek"))
        return letters;
    QHash<int, int> balance; // so many more of A than of B
    dao::Recordset sheets = database.OpenRecordset(u"SELECT Week, ABWeek FROM Planning"_s,
                                                   dao::RecordsetType::Snapshot);
    for (; !sheets.EOF_(); sheets.MoveNext()) {
        const QString letter = sheets.Collect(1).toText();
        if (letter == u"A" || letter == u"B")
            balance[static_cast<int>(sheets.Collect(0).toInteger())] += letter == u"A" ? 1 : -1;
    }
    for (auto week = balance.cbegin(); week != balance.cend(); ++week) {
        if (week.value() != 0)
            letters[week.key()] = week.value() > 0 ? u'A' : u'B';
    }
    return letters;
}
