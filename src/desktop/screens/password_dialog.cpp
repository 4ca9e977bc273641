#include "desktop/screens/password_dialog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

PasswordDialog::PasswordDialog(QWidget* parent) : QDialog(parent), m_password(new QLineEdit) {
    setObjectName(u"PasswordORVA"_s);
    setWindowTitle(u"Enter Password"_s);
    auto* first = new QLabel(u"Please enter the password"_s);
    auto* second = new QLabel(u"to open this database:"_s);
    m_password->setObjectName(u"txtPassword"_s);
    m_password->setAccessibleName(first->text() + u' ' + second->text().remove(u':'));
    m_password->setEchoMode(QLineEdit::Password);
    auto* ok = new QPushButton(u"OK"_s);
    ok->setObjectName(u"cmdOK"_s);
    auto* cancel = new QPushButton(u"Cancel"_s);
    cancel->setObjectName(u"cmdCancel"_s);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    buttons->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(first);
    layout->addWidget(second);
    layout->addWidget(m_password);
    layout->addLayout(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    ok->setDefault(true); // the dialog has it only now
    m_password->setFocus();
}

QString PasswordDialog::ask() {
    const QString password = exec() == Accepted ? m_password->text() : QString();
    m_password->clear();
    return password;
}
