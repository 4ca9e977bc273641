#pragma once

#include <QString>
#include <QStringList>

/// The pages of the selector, by their numbers.
enum class SelectorPage {
    OneItem,      ///< one item of a list
    Spreadsheet,  ///< a row and up to three columns of a workbook's first sheet
    SeveralItems, ///< any items of a list
    NewField,     ///< the name, type, size and date of a new field
};

/// What the selector shows. What a page does not name is not looked at.
struct SelectorRequest {
    SelectorPage page;
    QString title = {}; ///< the caption of the window
    QString text = {};  ///< what the person reads above
    QString label = {}; ///< a line above the list, the preview or the calendar

    QStringList items = {}; ///< OneItem, SeveralItems

    /// Spreadsheet: the path of the file; the labels of the columns to choose, up to three, and
    /// what stands in each first ("A"); the columns that are offered, and whether "None" is, for
    /// the third; the label of the row and what stands there first.
    QString workbook = {};
    QStringList columnLabels = {};
    QStringList columns = {};
    QStringList columnChoices = {};
    bool thirdMayBeNone = false;
    QString rowLabel = {};
    int row = 1;

    QString name = {};        ///< NewField: the name that stands in the box
    bool showTypes = true;    ///< NewField: whether the type can be chosen
    bool memoOnly = false;    ///< NewField: of the types only Memo is offered, and set
    bool showCalendar = true; ///< NewField: whether a date can be picked
};
