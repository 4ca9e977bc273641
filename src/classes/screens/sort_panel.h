#pragma once

#include "classes/sort_query.h"

#include <QTabWidget>

class ClassDesk;
class QComboBox;
class QPlainTextEdit;
class QRadioButton;
class QToolButton;
class Session;

/// `Psort`: sorts the grades by up to three columns, and picks pupils by a query that is built a
/// condition at a time.
class SortPanel : public QTabWidget {
    Q_OBJECT

public:
    SortPanel(Session& session, ClassDesk& desk);

    /// Offers the fields of the desk's class. What was chosen stays for the same class; a query of
    /// another one would show its pupils, so it goes. Raises what the engine raises.
    void fillSortFields();

signals:
    /// A text to make the current query. `picks`: it picks pupils, and does not only sort them.
    void queryWanted(const QString& query, bool picks);
    void allWanted(); ///< all pupils are to be shown again

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct SortBox {
        QComboBox* field;
        QRadioButton* descending;
    };

    QWidget* makeSortPage();
    QWidget* makeQueryPage();
    QWidget* makeConditionRow();
    QWidget* makeLogicalRow();
    QWidget* makeRunRow();
    void sort();
    void clearSort();
    void build();
    void lookUp();
    void clearQuery();
    void run();
    std::optional<QueryField> field() const;
    QString logicalOperator() const;

    Session& m_session;
    ClassDesk& m_desk;
    QString m_classCode; ///< whose fields are offered
    QList<QueryField> m_fields;
    QList<SortBox> m_sortBoxes;
    QComboBox* m_field;
    QComboBox* m_comparison;
    QComboBox* m_value;
    QList<QToolButton*> m_logical;
    QPlainTextEdit* m_query;
};
