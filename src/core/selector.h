#pragma once

#include <QString>
#include <QStringList>

/// What a page of the selector is asked to show and, where that is not one plain value, what it
/// answers (core/prompts.h, ReturnString).

/// What every page shows.
struct SelectorRequest {
    QString title; ///< the caption of the window
    QString text;  ///< what the person reads above
    QString label; ///< a line above the list, the preview or the calendar
};

/// One item of a list.
struct OneItemRequest : SelectorRequest {
    QStringList items;
};

/// Any items of a list.
struct SeveralItemsRequest : SelectorRequest {
    QStringList items;
};

/// A row and up to three columns of a workbook's first sheet.
struct SpreadsheetRequest : SelectorRequest {
    QString workbook;          ///< the path of the file
    QStringList columnLabels;  ///< of the columns to choose, up to three
    QStringList columns;       ///< what stands in each first ("A")
    QStringList columnChoices; ///< the columns that are offered
    bool thirdMayBeNone = false;
    QString rowLabel;
    int row = 1; ///< what stands there first
};

struct SpreadsheetChoice {
    int row = 1;         ///< from 1
    QStringList columns; ///< letters, one for each label; empty where None was chosen

    bool operator==(const SpreadsheetChoice&) const = default;
};

/// The name, type, size and date of a new field.
struct NewFieldRequest : SelectorRequest {
    QString name;             ///< what stands in the box
    bool showTypes = true;    ///< whether the type can be chosen
    bool memoOnly = false;    ///< of the types only Memo is offered, and set
    bool showCalendar = true; ///< whether a date can be picked
};
