#include "organiser/screens/reminder_panel.h"

#include "controls/date_field.h"
#include "controls/wheel_guard.h"
#include "core/prompts.h"
#include "core/session.h"
#include "core/settings.h"
#include "core/tool_windows.h"
#include "organiser/screens/time_entry.h"
#include "organiser/sound_list.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileInfo>
#include <QFormLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int LongestCaption = 255;

QCheckBox* makeChoice(const QString& name, const QString& text) {
    auto* box = new QCheckBox(text);
    box->setObjectName(name);
    return box;
}

} // namespace

ReminderPanel::ReminderPanel(Session& session)
    : m_session(session)
    , m_caption(new QLineEdit)
    , m_date(new DateField(u"Date of the reminder"_s))
    , m_time(new TimeEntry)
    , m_daily(makeChoice(u"Check1(0)"_s, u"Activate every &day"_s))
    , m_weekly(makeChoice(u"Check1(1)"_s, u"Activate every &week"_s))
    , m_type(new QComboBox)
    , m_message(new QPlainTextEdit)
    , m_sounds(new QComboBox)
    , m_loops(makeChoice(u"Check2"_s, u"&Repeat the sound until the reminder is closed"_s)) {
    setObjectName(u"EditPanel"_s);
    auto* form = new QFormLayout;
    makeTitle(*form);
    makeTime(*form);
    makeMessage(*form);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form, 1);
    layout->addWidget(makeSound());
    layout->addWidget(makeButtons());
}

void ReminderPanel::makeTitle(QFormLayout& form) {
    m_caption->setObjectName(u"txtCaption"_s);
    m_caption->setAccessibleName(u"Title of the reminder"_s);
    m_caption->setMaxLength(LongestCaption);
    form.addRow(u"&Title:"_s, m_caption);
    connect(m_caption, &QLineEdit::textEdited, m_time, &TimeEntry::ClearTimeFormat);
}

void ReminderPanel::makeTime(QFormLayout& form) {
    m_date->setObjectName(u"Calendar1"_s);
    m_time->setObjectName(u"TimeEntry"_s);
    auto* row = new QHBoxLayout;
    row->addWidget(m_date);
    row->addWidget(new QLabel(u"Time:"_s));
    row->addWidget(m_time);
    row->addStretch();
    auto* dateCaption = new QLabel(u"D&ate:"_s);
    dateCaption->setBuddy(m_date);
    form.addRow(dateCaption, row);
    auto* repetition = new QHBoxLayout;
    repetition->addWidget(m_daily);
    repetition->addWidget(m_weekly);
    repetition->addStretch();
    form.addRow(QString(), repetition);
    connect(m_date, &DateField::dateChanged, m_time, &TimeEntry::ClearTimeFormat);
    connect(m_daily, &QCheckBox::clicked, m_weekly, [this] { m_weekly->setChecked(false); });
    connect(m_weekly, &QCheckBox::clicked, m_daily, [this] { m_daily->setChecked(false); });
}

void ReminderPanel::makeMessage(QFormLayout& form) {
    m_type->setObjectName(u"Combo1"_s);
    m_type->setAccessibleName(u"Type of the reminder"_s);
    m_type->addItem(u"Standard Message Reminder"_s, MessageReminder);
    m_type->addItem(u"Play Sound Only!"_s, SoundOnlyReminder);
    ignoreWheel(*m_type);
    m_message->setObjectName(u"txtMemo"_s);
    m_message->setAccessibleName(u"Message to display"_s);
    m_message->setTabChangesFocus(true);
    form.addRow(u"T&ype:"_s, m_type);
    form.addRow(u"Message t&o display:"_s, m_message);
    connect(m_type, &QComboBox::currentIndexChanged, this, &ReminderPanel::followType);
    connect(m_message, &QPlainTextEdit::textChanged, m_time, &TimeEntry::ClearTimeFormat);
}

QWidget* ReminderPanel::makeSound() {
    auto* frame = new QGroupBox(u"Sound"_s);
    m_sounds->setObjectName(u"cboS"_s);
    m_sounds->setAccessibleName(u"Sound of the reminder"_s);
    m_sounds->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    ignoreWheel(*m_sounds);
    auto* browse = new QPushButton(u"&Browse..."_s);
    browse->setObjectName(u"cmdBrowse"_s);
    browse->setAutoDefault(false);
    auto* layout = new QVBoxLayout(frame);
    auto* row = new QHBoxLayout;
    row->addWidget(m_sounds, 1);
    row->addWidget(browse);
    layout->addLayout(row);
    layout->addWidget(m_loops);
    connect(browse, &QPushButton::clicked, this, &ReminderPanel::browse);
    connect(m_sounds, &QComboBox::currentIndexChanged, m_time, &TimeEntry::ClearTimeFormat);
    return frame;
}

QWidget* ReminderPanel::makeButtons() {
    auto* buttons = new QWidget;
    auto* layout = new QHBoxLayout(buttons);
    layout->setContentsMargins({});
    const auto add = [&](const QString& name, const QString& text, void (ReminderPanel::*sign)()) {
        auto* button = new QPushButton(text);
        button->setObjectName(name);
        button->setAutoDefault(true);
        layout->addWidget(button);
        connect(button, &QPushButton::clicked, this, sign);
    };
    add(u"Command4"_s, u"Test Ite&m"_s, &ReminderPanel::testWanted);
    layout->addStretch();
    add(u"cmdSave"_s, u"&SAVE"_s, &ReminderPanel::saveWanted);
    add(u"cmdCancel"_s, u"Cancel"_s, &ReminderPanel::leaveWanted);
    return buttons;
}

void ReminderPanel::showDraft(const ReminderDraft& draft) {
    m_caption->setText(draft.caption);
    m_date->setDate(draft.date);
    m_time->setTime(draft.time);
    m_daily->setChecked(draft.isDaily);
    m_weekly->setChecked(draft.isWeekly);
    m_type->setCurrentIndex(m_type->findData(draft.type));
    m_message->setPlainText(draft.message);
    listSounds(draft.sound);
    m_loops->setChecked(draft.loops);
    followType();
    m_time->ClearTimeFormat();
    setKept();
    m_caption->setFocus();
    m_caption->selectAll();
}

void ReminderPanel::write(const EventText& event) {
    const QString text = event.text.trimmed();
    m_date->setDate(event.date);
    m_message->setPlainText(text);
    m_caption->setText(text.section(u'\n', 0, 0).left(LongestCaption));
}

ReminderDraft ReminderPanel::draft() const {
    return {.caption = m_caption->text(),
            .message = m_message->toPlainText(),
            .date = m_date->date(),
            .time = m_time->time(),
            .isDaily = m_daily->isChecked(),
            .isWeekly = m_weekly->isChecked(),
            .type = m_type->currentData().toLongLong(),
            .sound = chosenSound(),
            .loops = m_loops->isChecked()};
}

void ReminderPanel::followType() {
    const bool isSoundOnly = m_type->currentData() == SoundOnlyReminder;
    m_loops->setEnabled(!isSoundOnly);
    if (!isSoundOnly)
        return;
    m_message->setPlainText(SoundOnlyMessage);
    m_loops->setChecked(false);
}

void ReminderPanel::listSounds(const QString& chosen) {
    QStringList paths = ReminderSounds(m_session.GetSettings(), recentlyUsedFile());
    if (!chosen.isEmpty() && !paths.contains(chosen))
        paths.prepend(chosen);
    m_sounds->clear();
    m_sounds->addItem(u"< NONE >"_s, QString());
    for (const QString& path : paths) {
        m_sounds->addItem(path, path);
        m_sounds->setItemData(m_sounds->count() - 1, path, Qt::ToolTipRole);
    }
    m_sounds->setCurrentIndex(m_sounds->findData(chosen));
}

QString ReminderPanel::chosenSound() const {
    return m_sounds->currentData().toString();
}

void ReminderPanel::browse() {
    const QString file = m_session.GetSeams().prompts.OpenFileDialog(
        u" Select the Sound file to play when reminder is displayed:"_s,
        {{u"Sound File (*.wav)"_s, u"*.wav"_s}}, QFileInfo(chosenSound()).path(), ExistingFileFlags,
        false);
    if (file.isEmpty())
        return;
    NoteReminderSound(m_session.GetSettings(), file);
    listSounds(file);
}

/// Return in a line saves, Escape leaves the panel.
void ReminderPanel::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        emit leaveWanted();
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        emit saveWanted();
    else
        QWidget::keyPressEvent(event);
}
