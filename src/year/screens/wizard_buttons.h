#pragma once

#include <QWidget>

class QPushButton;

/// The buttons below the pages of a dialog: `cmdBack`, `cmdNext`, which is the default one, and
/// `cmdCancel`.
class WizardButtons : public QWidget {
    Q_OBJECT

public:
    WizardButtons();

    /// On the first page there is nothing to go back to, on the last one the next step is the end.
    void setPage(bool isFirst, bool isLast);
    QPushButton* next() const { return m_next; }

signals:
    void backWanted();
    void nextWanted();
    void cancelWanted();

private:
    QPushButton* m_back;
    QPushButton* m_next;
};
