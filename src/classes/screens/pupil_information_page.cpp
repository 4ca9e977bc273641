#include "classes/screens/pupil_information_page.h"

#include "classes/class_export_commands.h"
#include "classes/screens/photo_actions.h"
#include "classes/screens/photo_box.h"
#include "controls/bound_text.h"
#include "core/session.h"
#include "core/shell.h"
#include "store/engine/error.h"
#include "store/engine/names.h"
#include "store/schema.h"
#include "store/table_names.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

using namespace Qt::StringLiterals;

PupilInformationPage::PupilInformationPage(Session& session, ClassDesk& desk)
    : ClassViewPage(session, desk)
    , m_binding(session.GetSeams().prompts)
    , m_notes(new QPlainTextEdit)
    , m_photo(new PhotoBox)
    , m_writing(*this, session.GetSeams(),
                {.what = u"What was typed about the pupil"_s,
                 .save = [this] { return m_binding.flush(); },
                 .leave = [this] { return m_binding.leave(); }}) {
    setObjectName(u"PupilInformation"_s);
    m_notes->setObjectName(u"TxtNotes"_s);
    m_notes->setAccessibleName(u"More information"_s);
    m_notes->setTabChangesFocus(true);
    auto* layout = new QGridLayout(this);
    layout->addWidget(makeBoxes(), 0, 0);
    setFocusProxy(m_firstname);
    layout->addWidget(m_photo, 0, 1, Qt::AlignTop | Qt::AlignRight);
    auto* label = new QLabel(u"More information"_s);
    label->setBuddy(m_notes);
    layout->addWidget(label, 1, 0);
    layout->addWidget(m_notes, 2, 0, 1, 2);
    layout->setRowStretch(2, 1);
    layout->setColumnStretch(0, 1);
    m_boxes.push_back(std::make_unique<BoundPlainText>(*m_notes));
    m_binding.bind(u"Notes"_s, *m_boxes.back());
    connect(m_notes, &QPlainTextEdit::textChanged, this, &PupilInformationPage::typed);
    connectPhotoBox(*m_photo, session, desk,
                    [this] { showPhoto(*m_photo, this->session(), this->desk()); });
}

QWidget* PupilInformationPage::makeBoxes() {
    auto* boxes = new QWidget;
    auto* form = new QFormLayout(boxes);
    form->setContentsMargins({});
    m_firstname = addLine(*form, u"Firstname"_s, u"Firstname"_s);
    m_surname = addLine(*form, u"Surname"_s, u"Surname"_s);
    addLine(*form, u"Tutor"_s, u"Tutor"_s);
    addLine(*form, u"Sex"_s, u"Sex (M or F)"_s);
    addLine(*form, u"PID"_s, u"Pupil ID"_s);
    addLine(*form, u"Address1"_s, u"Address"_s);
    addLine(*form, u"Address2"_s, {});
    addLine(*form, u"Address3"_s, {});
    addLine(*form, u"PostCode"_s, u"Post Code"_s);
    addLine(*form, u"Tel1"_s, u"Telephone"_s);
    addLine(*form, u"Tel2"_s, u"Telephone"_s);
    m_email = addLine(*form, u"Email"_s, u"Email"_s);
    form->setWidget(form->rowCount() - 1, QFormLayout::FieldRole, withMailButton(*m_email));
    return boxes;
}

/// The box of the address and the button beside it.
QWidget* PupilInformationPage::withMailButton(QLineEdit& email) {
    auto* button = new QPushButton(u"Send Mail"_s);
    button->setObjectName(u"cmdMail"_s);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, &PupilInformationPage::sendMail);
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins({});
    layout->addWidget(&email, 1);
    layout->addWidget(button);
    layout->addStretch();
    return row;
}

QLineEdit* PupilInformationPage::addLine(QFormLayout& form, const QString& field,
                                         const QString& label) {
    auto* box = new QLineEdit;
    box->setObjectName(u"Txt"_s + field);
    box->setAccessibleName(label.isEmpty() ? u"Address, line "_s + field.right(1) : label);
    const dao::Field inFile = schemaField(Table::Class, field);
    const int size = inFile.Size;
    box->setMaxLength(size);
    constexpr int widest = 40; // characters
    box->setMaximumWidth(qMin(size + 2, widest) * box->fontMetrics().averageCharWidth() * 5 / 4);
    form.addRow(label, box);
    m_boxes.push_back(std::make_unique<BoundLine>(*box));
    m_binding.bind(field, *m_boxes.back());
    if (!inFile.AllowZeroLength)
        m_binding.requireText(field);
    connect(box, &QLineEdit::textEdited, this, &PupilInformationPage::typed);
    return box;
}

void PupilInformationPage::showRecords() {}

void PupilInformationPage::showPupil(int) {
    const std::optional<qint64> pupil = desk().currentPupil();
    close();
    try {
        if (pupil)
            m_pupil = session().CurrentDB.OpenRecordset(u"SELECT * FROM %1 WHERE ID = %2;"_s.arg(
                dao::writeName(classTable(desk().classCode())), QString::number(*pupil)));
        m_binding.setData(m_pupil);
        m_binding.load();
    } catch (const dao::EngineError& error) {
        close();
        tellFailure(session().GetSeams().prompts, LoadingFailure, error);
    }
    m_name = {m_surname->text(), m_firstname->text()};
    setEnabled(m_pupil.isOpen());
    showPhoto(*m_photo, session(), desk());
}

/// A name that has changed is to be read anew in the list of names.
bool PupilInformationPage::leave() {
    if (!m_writing.leave())
        return false;
    const PupilName name{m_surname->text(), m_firstname->text()};
    if (m_pupil.isOpen() && name != m_name) {
        desk().renameCurrent(name);
        QTimer::singleShot(0, this, [this] {
            if (desk().view() == PupilInformationView)
                emit recordsChanged();
        });
    }
    close();
    return true;
}

void PupilInformationPage::exportRecords() {
    Export_to_Excel(session(), desk().classCode());
}

void PupilInformationPage::close() {
    m_pupil.Close();
    m_pupil = {};
    m_binding.setData(m_pupil);
}

void PupilInformationPage::typed() {
    if (m_pupil.isOpen())
        m_writing.typed();
}

void PupilInformationPage::sendMail() {
    const QString address = m_email->text();
    if (address.contains(u'@'))
        session().GetSeams().shell.SendMail(address, {}, {});
}
