#include "organiser/screens/contact_panel.h"

#include "core/session.h"
#include "core/shell.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QTabWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

QString contactCaption(int field) {
    static const QStringList captions{
        u"Forename:"_s,  u"Surname:"_s, u"Address:"_s, u"Postcode:"_s, u"E-mail:"_s,
        u"Telephone:"_s, u"Mobile:"_s,  u"Fax:"_s,     u"Address:"_s,  u"Postcode:"_s,
        u"Telephone:"_s, u"Fax:"_s,     u"E-mail:"_s,  u"Notes:"_s};
    return captions.at(field);
}

bool hasLines(int field) {
    return field == HomeAddress || field == WorkAddress || field == ContactNotes;
}

} // namespace

ContactPanel::ContactPanel(Session& session) : m_session(session) {
    auto* names = new QFormLayout;
    for (const int field : {Forename, Surname})
        names->addRow(contactCaption(field), makeBox(field));
    auto* tabs = new QTabWidget;
    tabs->setObjectName(u"LT1"_s);
    tabs->addTab(
        makeTab({HomeAddress, HomePostcode, HomeTelephone, MobilePhone, HomeFax, HomeEmail1}),
        u"Home"_s);
    tabs->addTab(makeTab({WorkAddress, WorkPostcode, WorkPhone, WorkFax, WorkEmail}), u"Work"_s);
    tabs->addTab(makeTab({ContactNotes}), u"Notes"_s);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(names);
    layout->addWidget(tabs, 1);
}

QWidget* ContactPanel::makeTab(const QList<int>& fields) {
    auto* tab = new QWidget;
    auto* layout = new QFormLayout(tab);
    for (const int field : fields) {
        QWidget* box = makeBox(field);
        auto* label = new QLabel(contactCaption(field));
        label->setBuddy(box);
        layout->addRow(label,
                       field == HomeEmail1 || field == WorkEmail ? withMail(field, box) : box);
    }
    return tab;
}

QWidget* ContactPanel::makeBox(int field) {
    const auto tell = [this] {
        if (!m_isShowing)
            emit edited();
    };
    QWidget* box = nullptr;
    if (hasLines(field)) {
        auto* text = new QPlainTextEdit;
        text->setTabChangesFocus(true);
        connect(text, &QPlainTextEdit::textChanged, this, tell);
        m_texts.at(static_cast<size_t>(field)) = text;
        box = text;
    } else {
        auto* line = new QLineEdit;
        line->setMaxLength(contactFieldSize(field));
        connect(line, &QLineEdit::textChanged, this, tell);
        m_lines.at(static_cast<size_t>(field)) = line;
        box = line;
    }
    box->setObjectName(u"HT1(%1)"_s.arg(field));
    const bool isWork = field >= WorkAddress && field <= WorkEmail;
    const bool isHome = field >= HomeAddress && field <= HomeFax;
    box->setAccessibleName((isWork   ? u"Work "_s
                            : isHome ? u"Home "_s
                                     : QString()) +
                           contactCaption(field).chopped(1));
    return box;
}

QWidget* ContactPanel::withMail(int field, QWidget* box) {
    auto* button = new QPushButton(u"Write..."_s);
    button->setObjectName(u"Mail(%1)"_s.arg(field == WorkEmail ? 1 : 0));
    button->setAccessibleName(box->accessibleName() + u": write a mail"_s);
    connect(button, &QPushButton::clicked, this, [this, field] {
        if (text(field).contains(u'@'))
            m_session.GetSeams().shell.SendMail(text(field), {}, {});
    });
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins({});
    layout->addWidget(box, 1);
    layout->addWidget(button);
    return row;
}

void ContactPanel::show(const Contact& contact) {
    const QScopedValueRollback showing(m_isShowing, true);
    for (size_t field = 0; field < contact.size(); ++field) {
        if (m_texts.at(field))
            m_texts.at(field)->setPlainText(contact.at(field));
        else
            m_lines.at(field)->setText(contact.at(field));
    }
}

QString ContactPanel::text(int field) const {
    const auto place = static_cast<size_t>(field);
    return m_texts.at(place) ? m_texts.at(place)->toPlainText() : m_lines.at(place)->text();
}

Contact ContactPanel::contact() const {
    Contact contact;
    for (int field = 0; field < ContactFieldCount; ++field)
        contact.at(static_cast<size_t>(field)) = text(field);
    return contact;
}
