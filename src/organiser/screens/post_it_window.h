#pragma once

#include "controls/kept_writing.h"
#include "organiser/post_it_rows.h"

#include <QWidget>

class FormatTools;
class PostItStrip;
class RichTextBox;
class Session;

/// A post-it note: a title that moves it, and the text. Everything about it, its place too, is on
/// disk two seconds after it changed and when it closes.
class PostItWindow : public QWidget {
    Q_OBJECT

public:
    /// Shows a note of the open year as it was just read.
    PostItWindow(Session& session, PostIt note);
    ~PostItWindow() override;

    /// Writes the note as it stands. Answers false where it failed, which has been told.
    bool SavePositInfo();

protected:
    void closeEvent(QCloseEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void makeParts();
    void showNote();
    void enterBody();
    void makeTools();
    void toggleShrink();
    void setShrunk(bool isShrunk);
    void CreatePicRegion();
    void showMenu(const QPoint& place);
    void deleteNote();
    Leaving leave();
    bool isAsKept() const;
    PostIt shown() const;
    bool keepAsNew();
    void discard();

    Session& m_session;
    PostIt m_note; ///< as it is in the file
    bool m_isGone = false;
    PostItStrip* m_strip;
    RichTextBox* m_body;
    FormatTools* m_tools = nullptr; ///< made when somebody writes for the first time
    ToldOnce m_failure;
    KeptWriting m_writing;
};
