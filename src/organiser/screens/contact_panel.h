#pragma once

#include "organiser/contact.h"

#include <QWidget>

#include <array>

class QPlainTextEdit;
class QLineEdit;
class Session;

/// One contact, on tabs: at home, at work, notes.
class ContactPanel : public QWidget {
    Q_OBJECT

public:
    explicit ContactPanel(Session& session);

    void show(const Contact& contact);
    Contact contact() const;
    void Empty_All_Fields() { show({}); }

signals:
    void edited(); ///< by the person

private:
    QWidget* makeTab(const QList<int>& fields);
    QWidget* makeBox(int field);
    QWidget* withMail(int field, QWidget* box);
    QString text(int field) const;

    Session& m_session;
    std::array<QLineEdit*, ContactFieldCount> m_lines{};
    std::array<QPlainTextEdit*, ContactFieldCount> m_texts{};
    bool m_isShowing = false;
};
