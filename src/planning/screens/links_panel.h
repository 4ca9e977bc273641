#pragma once

#include <QWidget>

class QComboBox;
class QFrame;
class QPushButton;
class QToolButton;
class Session;

/// The links of the selected period to files and web addresses: a list and the buttons that work on
/// it, which a button shows and hides.
class LinksPanel : public QWidget {
    Q_OBJECT

public:
    /// `list` is the object name of the list of links.
    LinksPanel(const Session& session, const QString& list, QWidget* parent = nullptr);

    /// Shows the links of a period of a sheet; period 0 is none.
    void showLinks(const QString& planDate, int period);

private:
    QPushButton* addButton(const QString& icon, const QString& text, void (LinksPanel::*act)());
    void add();
    void open();
    void remove();
    void showAll();
    void reload();

    const Session& m_session;
    QString m_planDate;
    int m_period = 0;
    QToolButton* m_toggle;
    QFrame* m_panel;
    QComboBox* m_list;
    QPushButton* m_add;
    QPushButton* m_open;
    QPushButton* m_remove;
};
