#pragma once

#include "classes/pupil_notes.h"
#include "classes/register_keys.h"
#include "controls/kept_writing.h"
#include "store/kept_row.h"

#include <QWidget>

class ClassDesk;
class PhotoBox;
class QCheckBox;
class QGroupBox;
class QPlainTextEdit;
class QToolButton;
class Session;

/// The panel beside the register: the pupil's photo, the key to the marks, and the note on the
/// pupil's lesson.
class SidePanel : public QWidget {
    Q_OBJECT

public:
    SidePanel(Session& session, ClassDesk& desk, const KeyArray& keys);

    /// Shows the current pupil's photo, where the settings want one.
    void showPhoto();
    /// Makes the key to the marks stand out for a moment.
    void flashKey();
    /// The caret of the register has moved: keeps the note of the cell left, and shows that of the
    /// current one. A column that is none is -1.
    void showLessonNote(int row, int column);
    /// Keeps the note of the current cell. Answers false, having said why, where that failed.
    bool storeNote() { return m_writing.leave(); }
    /// Keeps in the settings whether the notes show.
    void saveLook();

private:
    QWidget* makeKey(const KeyArray& keys);
    QWidget* makeNotes();
    bool writeNote();
    void exportNotes();
    void showPlace(std::optional<LessonNotePlace> place);

    Session& m_session;
    ClassDesk& m_desk;
    PhotoBox* m_photo;
    bool m_showsPhoto;
    QGroupBox* m_key = nullptr;
    std::unique_ptr<Timer> m_flash; ///< while the key stands out
    QCheckBox* m_showNotes = nullptr;
    QToolButton* m_export = nullptr;
    QPlainTextEdit* m_note = nullptr;
    std::optional<LessonNotePlace> m_place; ///< of the note that shows
    ToldOnce m_failure;
    KeptWriting m_writing; ///< last
};
