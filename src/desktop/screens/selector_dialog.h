#pragma once

#include "core/new_field.h"
#include "core/selector.h"

#include <QDialog>
#include <QList>

#include <optional>

class Prompts;
class SelectorContent;

/// The general dialog with which a person chooses: an item, several, the cells of a spreadsheet, or
/// a new field. Each operation below prepares the form for its page, shows it, waits, and answers
/// what was chosen, as Prompts::ReturnString does; a form serves one of them, once.
class SelectorDialog : public QDialog {
    Q_OBJECT

public:
    /// `prompts` tells what is wrong with an answer.
    explicit SelectorDialog(Prompts& prompts, QWidget* parent = nullptr);

    std::optional<int> ReturnString(const OneItemRequest& request);
    std::optional<QList<int>> ReturnString(const SeveralItemsRequest& request);
    std::optional<SpreadsheetChoice> ReturnString(const SpreadsheetRequest& request);
    std::optional<NewField> ReturnString(const NewFieldRequest& request);

    void accept() override;

private:
    bool isChosen(const SelectorRequest& request, SelectorContent* content);
    QWidget* makeButtons();

    Prompts& m_prompts;
    SelectorContent* m_content = nullptr;
};
