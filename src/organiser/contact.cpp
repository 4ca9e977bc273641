#include "organiser/contact.h"

#include "store/schema.h"

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<QStringView, ContactFieldCount> contactFieldNames{
    u"Forename",      u"Surname",     u"HomeAddress", u"HomePostcode", u"HomeEmail1",
    u"HomeTelephone", u"MobilePhone", u"HomeFax",     u"WorkAddress",  u"WorkPostcode",
    u"WorkPhone",     u"WorkFax",     u"WorkEmail",   u"Notes"};

} // namespace

QString contactFieldName(int field) {
    return contactFieldNames.at(static_cast<size_t>(field)).toString();
}

int contactFieldSize(int field) {
    static const QList<int> sizes = [] {
        QList<int> all;
        for (int each = 0; each < ContactFieldCount; ++each)
            all += each == ContactNotes ? 0
                                        : schemaField(Table::Contacts, contactFieldName(each)).Size;
        return all;
    }();
    return sizes.at(field);
}

int cutToFit(Contact& contact) {
    int cut = 0;
    for (int field = 0; field < ContactFieldCount; ++field) {
        const int size = contactFieldSize(field);
        QString& text = contact.at(static_cast<size_t>(field));
        if (size > 0 && text.size() > size) {
            text.truncate(size);
            ++cut;
        }
    }
    return cut;
}

ContactName splitContactName(const QString& name) {
    const QString whole = name.trimmed();
    const qsizetype blank = whole.indexOf(u' ');
    return blank < 0 ? ContactName()
                     : ContactName{whole.left(blank), whole.mid(blank + 1).trimmed()};
}

QString contactGroup(const QString& surname) {
    return surname.left(1).toUpper();
}

QChar treeLetter(const QString& group) {
    const QString apart = group.normalized(QString::NormalizationForm_D).toUpper();
    const QChar letter = apart.isEmpty() ? QChar() : apart.front();
    return letter >= u'A' && letter <= u'Z' ? letter : QChar();
}
