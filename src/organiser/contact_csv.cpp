#include "organiser/contact_csv.h"

#include "office/delimited_text.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// The columns that are known, and the field that each fills. "Name" fills both names.
struct CsvColumn {
    QStringView title;
    int field;
};
constexpr int wholeName = ContactFieldCount;
constexpr int unusedColumn = -1;
constexpr std::array csvColumns{
    CsvColumn{u"First Name", Forename},
    CsvColumn{u"Last Name", Surname},
    CsvColumn{u"E-mail Address", HomeEmail1},
    CsvColumn{u"Home Street", HomeAddress},
    CsvColumn{u"Home Postal Code", HomePostcode},
    CsvColumn{u"Home Phone", HomeTelephone},
    CsvColumn{u"Home Fax", HomeFax},
    CsvColumn{u"Mobile Phone", MobilePhone},
    CsvColumn{u"Personal Web Page", unusedColumn},
    CsvColumn{u"Business Street", WorkAddress},
    CsvColumn{u"Business Postal Code", WorkPostcode},
    CsvColumn{u"Business Phone", WorkPhone},
    CsvColumn{u"Business Fax", WorkFax},
    CsvColumn{u"Notes", ContactNotes},
    CsvColumn{u"Name", wholeName},
};

QList<int> fieldsOfHeader(const QStringList& header) {
    QList<int> fields;
    for (const QString& title : header) {
        const auto known =
            std::find_if(csvColumns.begin(), csvColumns.end(),
                         [&](const CsvColumn& column) { return column.title == title; });
        fields += known == csvColumns.end() ? unusedColumn : known->field;
    }
    return fields;
}

Contact contactOf(const QStringList& values, const QList<int>& fields) {
    Contact contact;
    QString name;
    for (qsizetype i = 0; i < std::min(values.size(), fields.size()); ++i) {
        if (fields.at(i) == wholeName)
            name = values.at(i);
        else if (fields.at(i) != unusedColumn)
            contact.at(static_cast<size_t>(fields.at(i))) = values.at(i);
    }
    if (contact[Forename].isEmpty() && contact[Surname].isEmpty()) {
        const ContactName parts = splitContactName(name);
        contact[Forename] = parts.forename;
        contact[Surname] = parts.surname;
    }
    return contact;
}

} // namespace

ContactCsv readContactCsv(QByteArrayView file) {
    const QString text = decodedText(file);
    DelimitedRecords records(text, u',');
    ContactCsv result;
    std::optional<QStringList> header = records.next(0);
    if (!header)
        return result;
    const QList<int> fields = fieldsOfHeader(*header);
    result.hasHeader =
        std::any_of(fields.begin(), fields.end(), [](int field) { return field != unusedColumn; });
    if (!result.hasHeader)
        return result;
    while (const auto values = records.next(header->size() - 1)) {
        Contact contact = contactOf(*values, fields);
        if (contact[Forename].isEmpty() && contact[Surname].isEmpty())
            continue;
        result.cutTexts += cutToFit(contact);
        result.contacts += contact;
    }
    return result;
}
