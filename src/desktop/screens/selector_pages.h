#pragma once

#include "core/new_field.h"
#include "core/selector.h"

#include <QList>
#include <QWidget>

#include <optional>

class DateCalendar;
class Prompts;
class Spreadsheet;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;

/// What a page of the selector has between its text and its buttons.
class SelectorContent : public QWidget {
    Q_OBJECT

public:
    /// Whether the answer can be taken; if not the person is told why, and the dialog stays.
    virtual bool check() { return true; }

signals:
    void finished(); ///< the person has chosen, as if by OK
};

/// One list, of which one item is chosen.
class OneItemContent : public SelectorContent {
    Q_OBJECT

public:
    explicit OneItemContent(const OneItemRequest& request);
    std::optional<int> item() const; ///< nothing where there is none

private:
    QListWidget* m_list;
};

/// One list, of which any items are chosen.
class SeveralItemsContent : public SelectorContent {
    Q_OBJECT

public:
    explicit SeveralItemsContent(const SeveralItemsRequest& request);
    QList<int> items() const;

private:
    QListWidget* m_list;
};

/// The first sheet of a workbook, and boxes for the columns and the row that are wanted of it.
class SpreadsheetContent : public SelectorContent {
    Q_OBJECT

public:
    SpreadsheetContent(const SpreadsheetRequest& request, Prompts& prompts);
    bool check() override;
    SpreadsheetChoice choice() const;

private:
    QWidget* makePreview(const Spreadsheet& sheet);
    QComboBox* makeColumn(const SpreadsheetRequest& request, int index);
    QComboBox* makeRow(const SpreadsheetRequest& request);

    Prompts& m_prompts;
    QList<QComboBox*> m_columns;
    QComboBox* m_row;
};

/// The name, type and size of a new field, and a date.
class NewFieldContent : public SelectorContent {
    Q_OBJECT

public:
    NewFieldContent(const NewFieldRequest& request, Prompts& prompts);
    bool check() override;
    NewField field() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* makeTypes(const NewFieldRequest& request);
    dao::DataType type() const;
    QLayout* makeDateLine();
    void pickDate(bool isPicked);
    bool nameKey(const QString& typed);
    void enableSize();

    Prompts& m_prompts;
    QLineEdit* m_name;
    QLineEdit* m_size;
    QList<QRadioButton*> m_types; ///< as newFieldTypes()
    DateCalendar* m_calendar = nullptr;
    QLabel* m_date = nullptr; ///< in words, as the calendar
    QPushButton* m_noDate = nullptr;
    bool m_isDatePicked = false;
};
