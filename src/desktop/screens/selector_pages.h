#pragma once

#include "core/new_field.h"
#include "core/selector.h"

#include <QWidget>

class DateCalendar;
class Prompts;
class QComboBox;
class QLineEdit;
class QListWidget;
class QRadioButton;

/// What a page of the selector has between its text and its buttons.
class SelectorContent : public QWidget {
    Q_OBJECT

public:
    /// Whether the answer can be taken; if not the person is told why, and the dialog stays.
    virtual bool check() { return true; }
    /// The answer as one text (Prompts::ReturnString).
    virtual QString answer() const = 0;

signals:
    void finished(); ///< the person has chosen, as if by OK
};

/// The page of a request.
SelectorContent* makeSelectorContent(const SelectorRequest& request, Prompts& prompts);

/// One list, of which one item is chosen.
class OneItemContent : public SelectorContent {
    Q_OBJECT

public:
    explicit OneItemContent(const SelectorRequest& request);
    QString answer() const override;

private:
    QListWidget* m_list;
};

/// One list, of which any items are chosen.
class SeveralItemsContent : public SelectorContent {
    Q_OBJECT

public:
    explicit SeveralItemsContent(const SelectorRequest& request);
    QString answer() const override;

private:
    QListWidget* m_list;
};

/// The first sheet of a workbook, and boxes for the columns and the row that are wanted of it.
class SpreadsheetContent : public SelectorContent {
    Q_OBJECT

public:
    SpreadsheetContent(const SelectorRequest& request, Prompts& prompts);
    bool check() override;
    QString answer() const override;

private:
    QWidget* makePreview(const SelectorRequest& request);
    QComboBox* makeColumn(const SelectorRequest& request, int index);
    QComboBox* makeRow(const SelectorRequest& request);

    Prompts& m_prompts;
    QList<QComboBox*> m_columns;
    QComboBox* m_row;
};

/// The name, type and size of a new field, and a date.
class NewFieldContent : public SelectorContent {
    Q_OBJECT

public:
    NewFieldContent(const SelectorRequest& request, Prompts& prompts);
    bool check() override;
    QString answer() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* makeTypes(const SelectorRequest& request);
    NewField field() const;
    dao::DataType type() const;
    bool nameKey(const QString& typed);
    void enableSize();

    Prompts& m_prompts;
    QLineEdit* m_name;
    QLineEdit* m_size;
    QList<QRadioButton*> m_types; ///< as newFieldTypes()
    DateCalendar* m_calendar = nullptr;
    bool m_isDatePicked = false;
};
