#include "desktop/screens/selector_dialog.h"

#include "desktop/screens/selector_pages.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

SelectorDialog::SelectorDialog(Prompts& prompts, QWidget* parent)
    : QDialog(parent), m_prompts(prompts) {
    setObjectName(u"SelectorFrm"_s);
}

std::optional<int> SelectorDialog::ReturnString(const OneItemRequest& request) {
    auto* content = new OneItemContent(request);
    return isChosen(request, content) ? content->item() : std::nullopt;
}

std::optional<QList<int>> SelectorDialog::ReturnString(const SeveralItemsRequest& request) {
    auto* content = new SeveralItemsContent(request);
    return isChosen(request, content) ? std::optional(content->items()) : std::nullopt;
}

std::optional<SpreadsheetChoice> SelectorDialog::ReturnString(const SpreadsheetRequest& request) {
    auto* content = new SpreadsheetContent(request, m_prompts);
    return isChosen(request, content) ? std::optional(content->choice()) : std::nullopt;
}

std::optional<NewField> SelectorDialog::ReturnString(const NewFieldRequest& request) {
    auto* content = new NewFieldContent(request, m_prompts);
    return isChosen(request, content) ? std::optional(content->field()) : std::nullopt;
}

/// Shows the form with the page; whether the person chose and did not cancel.
bool SelectorDialog::isChosen(const SelectorRequest& request, SelectorContent* content) {
    m_content = content;
    setWindowTitle(request.title);
    auto* text = new QLabel(request.text);
    text->setObjectName(u"Label1"_s);
    text->setWordWrap(true);
    text->setTextFormat(Qt::PlainText);
    constexpr int textWidth = 46; // characters
    text->setMinimumWidth(textWidth * fontMetrics().averageCharWidth());
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(text);
    layout->addWidget(m_content, 1);
    layout->addWidget(makeButtons());
    findChild<QPushButton*>(u"cmdOK"_s)->setDefault(true); // the dialog has it only now
    connect(m_content, &SelectorContent::finished, this, &SelectorDialog::accept);
    return exec() == Accepted;
}

QWidget* SelectorDialog::makeButtons() {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins({});
    layout->addStretch();
    auto* ok = new QPushButton(u"OK"_s);
    auto* cancel = new QPushButton(u"Cancel"_s);
    ok->setObjectName(u"cmdOK"_s);
    cancel->setObjectName(u"cmdCancel"_s);
    for (QPushButton* button : {ok, cancel})
        layout->addWidget(button);
    connect(ok, &QPushButton::clicked, this, &SelectorDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &SelectorDialog::reject);
    return row;
}

void SelectorDialog::accept() {
    if (m_content->check())
        QDialog::accept();
}
