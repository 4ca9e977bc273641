#pragma once

#include "core/selector.h"

#include <QDialog>

class Prompts;
class SelectorContent;

/// The general dialog with which a person chooses: an item, several, the cells of a spreadsheet, or
/// a new field. It shows one of four pages, once.
class SelectorDialog : public QDialog {
    Q_OBJECT

public:
    /// `prompts` tells what is wrong with an answer.
    SelectorDialog(const SelectorRequest& request, Prompts& prompts, QWidget* parent = nullptr);

    /// Shows the dialog and answers what was chosen, as Prompts::ReturnString does.
    QString ReturnString();

    void accept() override;

private:
    QWidget* makeButtons();

    SelectorContent* m_content;
};
