#pragma once

#include "help/help.h"

#include <QTreeWidget>
#include <QWidget>

class QLineEdit;
class QListWidget;
class QListWidgetItem;

/// The three ways to a page, each a pane beside it. A click or Enter chooses a page, told by its
/// place in the book. The book has to outlive them.

/// The chapters with their pages.
class HelpContentsTree : public QTreeWidget {
    Q_OBJECT

public:
    explicit HelpContentsTree(const HelpBook& book);
    /// Makes the page the current one, without choosing it.
    void select(int page);

signals:
    void pageChosen(int page);
};

/// A field above a list. Enter in the field chooses what is current in the list, and the arrow keys
/// go through the list from there.
class HelpListPane : public QWidget {
    Q_OBJECT

public:
    HelpListPane(const QString& name, const QString& question);

    QLineEdit& field() const { return *m_field; }
    QListWidget& list() const { return *m_list; }

signals:
    void pageChosen(int page);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void addEntry(const QString& text, int page);

private:
    void choose(const QListWidgetItem* entry);

    QLineEdit* m_field;
    QListWidget* m_list;
};

/// All keywords. What is typed leads to the first that begins so.
class HelpIndexPane : public HelpListPane {
    Q_OBJECT

public:
    explicit HelpIndexPane(const HelpBook& book);

private:
    void goTo(const QString& beginning);
};

/// What is typed is looked for in all pages at once.
class HelpSearchPane : public HelpListPane {
    Q_OBJECT

public:
    explicit HelpSearchPane(const HelpBook& book);

private:
    void search(const QString& words);

    const HelpBook& m_book;
};
