#include "incidents/screens/new_incident_panel.h"

#include "controls/date_field.h"
#include "controls/wheel_guard.h"
#include "core/clock.h"
#include "core/engine_failure.h"
#include "core/session.h"
#include "incidents/incident_titles.h"

#include <QComboBox>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr FailureBox classUnread{.title = u"Incident Reporter"};

QListWidget* makePickList(const QString& name, const QString& words) {
    auto* list = new QListWidget;
    list->setObjectName(name);
    list->setAccessibleName(words);
    return list;
}

} // namespace

NewIncidentPanel::NewIncidentPanel(Session& session)
    : m_session(session)
    , m_date(new DateField(u"Date of the incident"_s))
    , m_titles(new QComboBox)
    , m_classes(makePickList(u"List2"_s, u"Classes"_s))
    , m_pupils(makePickList(u"List3"_s, u"Pupils of the class"_s)) {
    setObjectName(u"NewPanel"_s);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(makeEntries());
    layout->addWidget(makeLists(), 1);
    layout->addWidget(makeButtons());
    Reload_TitlesList();
}

QWidget* NewIncidentPanel::makeEntries() {
    const struct {
        QString caption;
        QString name;
        QString field;
    } lines[] = {
        {u"Fo&rename:"_s, u"Forename of the pupil"_s, u"Forename"_s},
        {u"&Surname:"_s, u"Surname of the pupil"_s, u"Surname"_s},
        {u"&Tutor:"_s, u"Tutor of the pupil"_s, u"Tutor"_s},
    };
    auto* entries = new QWidget;
    auto* form = new QFormLayout(entries);
    form->setContentsMargins({});
    for (size_t number = 0; number < m_lines.size(); ++number) {
        auto* line = new QLineEdit;
        line->setObjectName(u"Text1(%1)"_s.arg(number));
        line->setAccessibleName(lines[number].name);
        line->setMaxLength(longestIncidentText(lines[number].field));
        form->addRow(lines[number].caption, line);
        m_lines.at(number) = line;
    }
    for (const Line name : {Forename, Surname}) {
        m_lines.at(name)->installEventFilter(this);
        connect(m_lines.at(name), &QLineEdit::textEdited, this, [this] { m_pupil.reset(); });
    }
    m_date->setObjectName(u"C1"_s);
    m_date->setRange(FirstIncidentDate, LastIncidentDate);
    auto* date = new QLabel(u"D&ate:"_s);
    date->setBuddy(m_date);
    form->addRow(date, m_date);
    m_titles->setObjectName(u"Combo1"_s);
    m_titles->setAccessibleName(u"Title of the incident"_s);
    m_titles->setEditable(true);
    m_titles->setInsertPolicy(QComboBox::NoInsert);
    m_titles->setCompleter(nullptr); // what is typed is what is meant
    m_titles->lineEdit()->setMaxLength(longestIncidentText(u"Event"));
    m_titles->lineEdit()->setAccessibleName(m_titles->accessibleName());
    ignoreWheel(*m_titles);
    form->addRow(u"T&itle:"_s, m_titles);
    return entries;
}

QWidget* NewIncidentPanel::makeLists() {
    auto* lists = new QWidget;
    auto* button = new QPushButton(u"&Pick the pupil from a class"_s);
    button->setObjectName(u"cmdClasses"_s);
    button->setAutoDefault(true);
    auto* row = new QHBoxLayout;
    row->addWidget(m_classes, 1);
    row->addWidget(m_pupils, 2);
    auto* layout = new QVBoxLayout(lists);
    layout->setContentsMargins({});
    layout->addWidget(button, 0, Qt::AlignLeft);
    layout->addLayout(row, 1);
    connect(button, &QPushButton::clicked, this, &NewIncidentPanel::listClasses);
    // The current item alone says nothing: a list makes one when the keyboard comes to it.
    connect(m_classes, &QListWidget::itemSelectionChanged, this, &NewIncidentPanel::listPupils);
    connect(m_pupils, &QListWidget::itemSelectionChanged, this, &NewIncidentPanel::pickPupil);
    return lists;
}

QWidget* NewIncidentPanel::makeButtons() {
    auto* buttons = new QWidget;
    auto* layout = new QHBoxLayout(buttons);
    layout->setContentsMargins({});
    layout->addStretch();
    const auto add = [&](const QString& name, const QString& text,
                         void (NewIncidentPanel::*sign)()) {
        auto* button = new QPushButton(text);
        button->setObjectName(name);
        button->setAutoDefault(true);
        layout->addWidget(button);
        connect(button, &QPushButton::clicked, this, sign);
    };
    add(u"cmdOK"_s, u"OK"_s, &NewIncidentPanel::createWanted);
    add(u"cmdCancel"_s, u"Cancel"_s, &NewIncidentPanel::leaveWanted);
    return buttons;
}

void NewIncidentPanel::begin(const IncidentPupil* pupil) {
    m_pupil = pupil ? std::optional(*pupil) : std::nullopt;
    // The forename up to its first blank, as it is typed; the report is on that pupil all the same.
    m_lines[Forename]->setText(pupil ? pupil->forename.section(u' ', 0, 0) : QString());
    m_lines[Surname]->setText(pupil ? pupil->surname : QString());
    m_lines[Tutor]->clear();
    m_date->setDate(m_session.GetSeams().clock.today());
    m_titles->setCurrentIndex(0);
    m_classes->clear();
    m_pupils->clear();
    setKept();
    m_lines[pupil ? Tutor : Forename]->setFocus();
}

NewIncident NewIncidentPanel::incident() const {
    return {.pupil = m_pupil ? std::optional(m_pupil->id) : std::nullopt,
            .surname = m_lines[Surname]->text(),
            .forename = m_lines[Forename]->text(),
            .tutor = m_lines[Tutor]->text(),
            .date = m_date->date(),
            .event = m_titles->currentText()};
}

void NewIncidentPanel::Reload_TitlesList() {
    m_titles->clear();
    m_titles->addItems(incidentTitles(m_session.GetSettings()));
}

void NewIncidentPanel::listClasses() {
    m_classes->clear();
    for (const ClassColour& each : std::as_const(m_session.ClassColours))
        m_classes->addItem(each.code);
    m_classes->setFocus();
}

void NewIncidentPanel::listPupils() {
    const QSignalBlocker quiet(m_pupils);
    m_pupils->clear();
    m_listed.clear();
    if (m_classes->selectedItems().isEmpty())
        return;
    tryTelling(m_session.GetSeams().prompts, classUnread, [this] {
        m_listed = classPupils(m_session.CurrentDB, m_classes->currentItem()->text());
    });
    for (const ClassPupil& each : std::as_const(m_listed))
        m_pupils->addItem(each.forename + u' ' + each.surname);
}

void NewIncidentPanel::pickPupil() {
    if (m_pupils->selectedItems().isEmpty())
        return;
    const ClassPupil& picked = m_listed.at(m_pupils->currentRow());
    m_pupil.reset();
    m_lines[Forename]->setText(picked.forename);
    m_lines[Surname]->setText(picked.surname);
    tryTelling(m_session.GetSeams().prompts, classUnread, [&] {
        m_lines[Tutor]->setText(
            tutorOf(m_session.CurrentDB, m_classes->currentItem()->text(), picked));
    });
}

/// A name is typed without a blank.
bool NewIncidentPanel::eventFilter(QObject* watched, QEvent* event) {
    const bool isBlank =
        event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->text() == u" ";
    return isBlank || QWidget::eventFilter(watched, event);
}

void NewIncidentPanel::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        emit leaveWanted();
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        emit createWanted();
    else
        QWidget::keyPressEvent(event);
}
