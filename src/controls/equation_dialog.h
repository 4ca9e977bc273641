#pragma once

#include <QDialog>

class QLabel;
class QLineEdit;

/// A small editor for a formula on one line: what is typed, and below it how it will be shown.
class EquationDialog : public QDialog {
    Q_OBJECT

public:
    explicit EquationDialog(QWidget* parent = nullptr);

    /// Asks for a formula, beginning with one; answers it as it is shown, empty when it was
    /// cancelled or left empty.
    QString ask(const QString& formula);

private:
    void addSigns(class QLayout& layout);

    QLineEdit* m_typed;
    QLabel* m_shown;
};
