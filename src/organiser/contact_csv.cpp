#include "organiser/contact_csv.h"

#include "richtext/code_pages.h"

#include <QStringDecoder>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr int westernCodePage = 1252;

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

QString decodedCsv(QByteArrayView file) {
    QStringDecoder utf8(QStringDecoder::Utf8); // takes the mark away
    const QString text = utf8.decode(file);
    return utf8.hasError() ? richtext::decode(westernCodePage, file) : text;
}

/// Where a record stands while it is read, character by character.
class CsvRecords {
public:
    explicit CsvRecords(QStringView text) : m_text(text) {}

    /// The next record's values; none at the end. It has as many commas at least.
    std::optional<QStringList> next(qsizetype commas) {
        if (m_place >= m_text.size())
            return std::nullopt;
        QStringList values;
        values.reserve(commas + 1);
        QString value;
        bool isQuoted = false;
        bool hasText = false;
        for (; m_place < m_text.size(); ++m_place) {
            const QStringView plain = plainText();
            if (!plain.isEmpty()) {
                if (value.isEmpty())
                    value = plain.toString();
                else
                    value += plain;
                hasText = hasText || !plain.trimmed().isEmpty();
                m_place += plain.size() - 1;
                continue;
            }
            const QChar sign = m_text.at(m_place);
            hasText = hasText || !sign.isSpace();
            if (sign == u'"')
                takeQuote(value, isQuoted);
            else if (sign == u',' && !isQuoted)
                values += std::exchange(value, QString());
            else if (sign == u'\n' && !isQuoted) {
                const bool isWhole = values.size() >= commas || !hasText;
                if (isWhole)
                    break;
                value += u' ';
            } else if (sign != u'\r')
                value += sign;
        }
        ++m_place;
        values += value;
        return hasText ? values : QStringList();
    }

private:
    /// What stands before the next sign that means something.
    QStringView plainText() const {
        const auto isPlain = [](QChar sign) {
            const bool isAbove = sign > u','; // as nearly all are
            return isAbove || (sign != u'"' && sign != u',' && sign != u'\n' && sign != u'\r');
        };
        const QStringView rest = m_text.sliced(m_place);
        return rest.first(std::find_if_not(rest.begin(), rest.end(), isPlain) - rest.begin());
    }

    void takeQuote(QString& value, bool& isQuoted) {
        const bool isDoubled =
            isQuoted && m_place + 1 < m_text.size() && m_text.at(m_place + 1) == u'"';
        if (isDoubled) {
            value += u'"';
            ++m_place;
        } else {
            isQuoted = !isQuoted;
        }
    }

    QStringView m_text;
    qsizetype m_place = 0;
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
    const QString text = decodedCsv(file);
    CsvRecords records(text);
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
