#include "store/schema_markdown.h"

#include "store/schema.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

QString heading(Made made) {
    switch (made) {
    case Made::AtCreation:
        return u"Made with the file"_s;
    case Made::PerClass:
        return u"Made for each class (the class code stands behind the prefix)"_s;
    case Made::OnDemand:
        return u"Made by the first window that needs it"_s;
    case Made::InAddressBook:
        return u"In the address book, `AddressBook.mdb`"_s;
    }
    return {};
}

QString fieldName(const FieldSpec& field) {
    const QString name = QString::fromLatin1(field.name);
    if (field.flags & EachDay)
        return u"`%1` + 1 to 31"_s.arg(name);
    if (field.flags & EachPeriod)
        return u"`%1` + period"_s.arg(name);
    return u'`' + name + u'`';
}

QString declaration(const FieldSpec& field) {
    dao::Field declared;
    declared.Type = field.type;
    declared.Size = field.size;
    if (field.flags & AutoNumber)
        declared.Attributes = dao::AutoIncrement;
    return u'`' + dao::declaredType(declared) + u'`';
}

QString rules(const FieldSpec& field) {
    QStringList rules;
    if (field.flags & Key)
        rules << u"primary key, index `ID_index`"_s;
    if (field.flags & AutoNumber)
        rules << u"numbers itself"_s;
    if (field.flags & Required)
        rules << u"required"_s;
    const bool isTextual = field.type == dao::DataType::Text || field.type == dao::DataType::Memo;
    if (isTextual && !(field.flags & ZeroLength))
        rules << u"not empty"_s;
    if (field.flags & TwoWeeksOnly)
        rules << u"two timetables only"_s;
    return rules.join(u", "_s);
}

QString tableMarkdown(const TableSpec& table) {
    const bool hasPrefix = table.made == Made::PerClass;
    QString text = u"#### `%1`%2\n\n"_s.arg(table.name, hasPrefix ? u" + class code"_s : QString());
    text += QString::fromUtf8(table.meaning);
    if (table.flags & TwoWeeksOnly)
        text += u" Only in a year with two timetables."_s;
    text += u"\n\n| field | declared as | rules | holds |\n|---|---|---|---|\n"_s;
    for (const FieldSpec& field : table.fields)
        text += u"| %1 | %2 | %3 | %4 |\n"_s.arg(fieldName(field), declaration(field), rules(field),
                                                 QString::fromUtf8(field.meaning));
    return text;
}

} // namespace

QString schemaMarkdown() {
    QStringList parts;
    for (const Made made :
         {Made::AtCreation, Made::PerClass, Made::OnDemand, Made::InAddressBook}) {
        parts << u"### %1\n"_s.arg(heading(made));
        for (const TableSpec& table : schemaTables())
            if (table.made == made)
                parts << tableMarkdown(table);
    }
    return parts.join(u'\n');
}
