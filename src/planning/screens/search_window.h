#pragma once

#include "planning/lesson_search.h"

#include <QTimer>
#include <QWidget>

#include <optional>

class QCheckBox;
class QComboBox;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QVBoxLayout;
class Session;

/// The find box over the daily sheet: looks for a text through all lessons or all homework and
/// shows each hit on its sheet. It looks through one sheet a turn of the event loop, so that
/// everything stays usable meanwhile: what is looked for can be changed, and the hunt called off.
class SearchWindow : public QWidget {
    Q_OBJECT

public:
    explicit SearchWindow(Session& session);

    bool isLooking() const { return m_turn.isActive(); }

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void makeQuery(QVBoxLayout& layout);
    void makeButtons(QVBoxLayout& layout);
    LessonQuery query() const;
    void find();
    void look();
    void showHit();
    void giveWay();
    void tellEnd();
    void callOff();
    void startOver();
    void callOffOrClose();
    void showState();
    void keepText();

    Session& m_session;
    QComboBox* m_text = nullptr;
    QRadioButton* m_homework = nullptr;
    QCheckBox* m_matchCase = nullptr;
    QProgressBar* m_progress = nullptr;
    QPushButton* m_find = nullptr;
    QPushButton* m_close = nullptr;
    std::optional<LessonSearch> m_search;
    bool m_hasHit = false; ///< the search goes on from there
    QTimer m_turn;
};
