#pragma once

#include "planning/class_history.h"

#include <QWidget>

#include <array>

class QComboBox;
class QSplitter;
class QToolButton;
class RichTextBox;
class Session;

/// The history viewer: what a class has done so far, lesson by lesson, beside the sheet on which
/// the next one is planned. It shows the session's current class, and follows it: without one it
/// hides, for a class without lessons it closes. Texts can be read and copied.
class HistoryWindow : public QWidget {
    Q_OBJECT

public:
    explicit HistoryWindow(Session& session);

    /// Reads the lessons of the current class anew and shows the one before that of the daily
    /// sheet; comes to the top, but leaves the keyboard where it is.
    void FindPreviousWork();
    /// The same where the person has asked for the viewer, who then has the keyboard there.
    void showAsked();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QWidget* makeSelector();
    QToolButton* makeMoveButton(int element, const QString& icon, const QString& tip, int step);
    QWidget* makeText(int element, const QString& heading, const QString& name);
    void followTheYear();
    void placeSplitter();
    void ReloadHistory();
    void showEntry();

    Session& m_session;
    QComboBox* m_lessons = nullptr;
    QToolButton* m_back = nullptr;
    QToolButton* m_forward = nullptr;
    QSplitter* m_splitter = nullptr;
    std::array<RichTextBox*, 2> m_texts{}; ///< the lesson and the homework
    bool m_isSplitterPlaced = false;
    ClassHistory m_history;
    QString m_class; ///< whose it is
};
