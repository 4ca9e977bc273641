#pragma once

#include <QDialog>

class QLineEdit;

/// The small window that asks for the password of a database. What is typed is hidden, also from
/// screen readers, and goes nowhere but into the answer.
class PasswordDialog : public QDialog {
    Q_OBJECT

public:
    explicit PasswordDialog(QWidget* parent = nullptr);

    /// Shows the window and waits. Answers the password, empty when it was cancelled.
    QString ask();

private:
    QLineEdit* m_password;
};
