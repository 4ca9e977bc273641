#include "classes/screens/side_panel.h"

#include "classes/class_desk.h"
#include "classes/class_export_commands.h"
#include "classes/class_settings.h"
#include "classes/screens/photo_actions.h"
#include "classes/screens/photo_box.h"
#include "controls/colours.h"
#include "controls/tool_button.h"
#include "core/session.h"
#include "core/settings.h"
#include "store/engine/error.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr QColor NoLessonColour(238, 249, 234);
constexpr std::chrono::milliseconds FlashTime{400};

} // namespace

SidePanel::SidePanel(Session& session, ClassDesk& desk, const KeyArray& keys)
    : m_session(session)
    , m_desk(desk)
    , m_photo(new PhotoBox)
    , m_showsPhoto(session.GetSettings().get(setting::DisplayKeyPicture))
    , m_writing(*this, session.GetSeams(),
                {.what = u"The note on the lesson"_s, .save = [this] { return writeNote(); }}) {
    m_photo->setVisible(m_showsPhoto);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_photo, 0, Qt::AlignHCenter);
    layout->addWidget(makeKey(keys), 1);
    layout->addWidget(makeNotes(), 1);
    connectPhotoBox(*m_photo, session, desk, [this] { showPhoto(); });
}

QWidget* SidePanel::makeKey(const KeyArray& keys) {
    m_key = new QGroupBox(u"Key"_s);
    m_key->setObjectName(u"RegisterKey"_s);
    auto* layout = new QVBoxLayout(m_key);
    for (const QString& line : fixedKeyLines())
        layout->addWidget(new QLabel(line));
    auto* list = new QListWidget;
    list->setObjectName(u"List1"_s);
    list->setAccessibleName(u"Key to your own marks"_s);
    list->addItems(keys.lines);
    layout->addWidget(list, 1);
    return m_key;
}

QWidget* SidePanel::makeNotes() {
    const QString name = u"Notes for individual pupils per lesson."_s;
    auto* frame = new QWidget;
    auto* layout = new QVBoxLayout(frame);
    layout->setContentsMargins({});
    m_showNotes = new QCheckBox(u"Lesson Notes"_s);
    m_showNotes->setObjectName(u"chkNotes"_s);
    m_showNotes->setToolTip(name);
    m_export =
        makeToolButton(u"cmdExportNotes"_s, u"export"_s, u"Export Notesfor this pupil to Excel"_s);
    m_note = new QPlainTextEdit;
    m_note->setObjectName(u"TxtLessonNotes"_s);
    m_note->setAccessibleName(name);
    m_note->setTabChangesFocus(true);
    auto* head = new QHBoxLayout;
    head->addWidget(m_showNotes, 1);
    head->addWidget(m_export);
    layout->addLayout(head);
    layout->addWidget(m_note, 1);
    const bool isShown = m_session.GetSettings().get(setting::PupilNotes);
    m_showNotes->setChecked(isShown);
    for (QWidget* each : {static_cast<QWidget*>(m_export), static_cast<QWidget*>(m_note)}) {
        each->setVisible(isShown);
        connect(m_showNotes, &QCheckBox::toggled, each, &QWidget::setVisible);
    }
    connect(m_export, &QToolButton::clicked, this, &SidePanel::exportNotes);
    connect(m_note, &QPlainTextEdit::textChanged, this, [this] {
        if (m_place)
            m_writing.typed();
    });
    return frame;
}

void SidePanel::showPhoto() {
    if (m_showsPhoto)
        ::showPhoto(*m_photo, m_session, m_desk);
}

void SidePanel::flashKey() {
    setBackground(m_key, palette().color(QPalette::Highlight));
    m_flash = m_session.GetSeams().clock.after(FlashTime, [this] {
        m_key->setPalette({});
        m_key->setAutoFillBackground(false);
    });
}

void SidePanel::showLessonNote(int row, int column) {
    m_export->setEnabled(row >= 0);
    if (storeNote())
        showPlace(lessonNotePlace(m_desk.sheet(), m_desk.classCode(), row, column));
}

bool SidePanel::writeNote() {
    if (!m_place || !m_note->document()->isModified())
        return true;
    try {
        storeLessonNote(m_session.CurrentDB, *m_place, m_note->toPlainText());
        m_note->document()->setModified(false);
        m_failure.reset();
        return true;
    } catch (const dao::EngineError& error) {
        if (m_failure.first())
            tellFailure(m_session.GetSeams().prompts, GetNotesFailure, error);
        return false;
    }
}

/// A note that can't be read is not written over either.
void SidePanel::showPlace(std::optional<LessonNotePlace> place) {
    const bool isOff = lessonNotesAreOff(m_session.GetSettings());
    m_place.reset(); // what is set now is nothing to keep
    m_failure.reset();
    QString note = isOff ? lessonNotesOffText() : QString();
    try {
        if (place && !isOff)
            note = lessonNote(m_session.CurrentDB, *place);
    } catch (const dao::EngineError& error) {
        tellFailure(m_session.GetSeams().prompts, GetNotesFailure, error);
        place.reset();
    }
    m_note->setPlainText(note);
    m_note->setEnabled(place && !isOff);
    m_note->setPalette({});
    if (!place)
        setBackground(m_note, NoLessonColour);
    if (!isOff)
        m_place = place;
}

void SidePanel::exportNotes() {
    const int row = m_desk.currentRow();
    if (row < 0 || !storeNote())
        return;
    const PupilName name = pupilName(m_desk.sheet(), row);
    exportNotesOfPupil(m_session, m_desk.classCode(), m_desk.sheet().pupil(row),
                       name.firstname + u' ' + name.surname);
}

void SidePanel::saveLook() {
    m_session.GetSettings().set(setting::PupilNotes, m_showNotes->isChecked());
}
