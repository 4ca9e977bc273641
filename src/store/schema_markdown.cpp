#include "store/schema_markdown.h"

#include "store/schema.h"

#include <QStringList>

namespace {

QString heading(Made made) {
    switch (made) {
    case Made::AtCreation:
        return QStringLiteral("Made with the file");
    case Made::PerClass:
        return QStringLiteral("Made for each class (the class code stands behind the prefix)");
    case Made::OnDemand:
        return QStringLiteral("Made by the first window that needs it");
    case Made::InAddressBook:
        return QStringLiteral("In the address book, `AddressBook.mdb`");
    }
    return {};
}

QString fieldName(const FieldSpec& field) {
    const QString name = QString::fromLatin1(field.name);
    if (field.flags & EachDay)
        return QStringLiteral("`%1` + 1 to 31").arg(name);
    if (field.flags & EachPeriod)
        return QStringLiteral("`%1` + period").arg(name);
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
        rules << QStringLiteral("primary key, index `ID_index`");
    if (field.flags & AutoNumber)
        rules << QStringLiteral("numbers itself");
    if (field.flags & Required)
        rules << QStringLiteral("required");
    const bool isTextual = field.type == dao::DataType::Text || field.type == dao::DataType::Memo;
    if (isTextual && !(field.flags & ZeroLength))
        rules << QStringLiteral("not empty");
    if (field.flags & TwoWeeksOnly)
        rules << QStringLiteral("two timetables only");
    return rules.join(QStringLiteral(", "));
}

QString tableMarkdown(const TableSpec& table) {
    const bool hasPrefix = table.made == Made::PerClass;
    QString text = QStringLiteral("#### `%1`%2\n\n")
                       .arg(table.name, hasPrefix ? QStringLiteral(" + class code") : QString());
    text += QString::fromUtf8(table.meaning);
    if (table.flags & TwoWeeksOnly)
        text += QStringLiteral(" Only in a year with two timetables.");
    text += QStringLiteral("\n\n| field | declared as | rules | holds |\n|---|---|---|---|\n");
    for (const FieldSpec& field : table.fields)
        text += QStringLiteral("| %1 | %2 | %3 | %4 |\n")
                    .arg(fieldName(field), declaration(field), rules(field),
                         QString::fromUtf8(field.meaning));
    return text;
}

} // namespace

QString schemaMarkdown() {
    QStringList parts;
    for (const Made made :
         {Made::AtCreation, Made::PerClass, Made::OnDemand, Made::InAddressBook}) {
        parts << QStringLiteral("### %1\n").arg(heading(made));
        for (const TableSpec& table : schemaTables())
            if (table.made == made)
                parts << tableMarkdown(table);
    }
    return parts.join(u'\n');
}
