#include "desktop/screens/selector_dialog.h"

#include "desktop/screens/selector_pages.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

SelectorDialog::SelectorDialog(const SelectorRequest& request, Prompts& prompts, QWidget* parent)
    : QDialog(parent), m_content(makeSelectorContent(request, prompts)) {
    setObjectName(u"SelectorFrm"_s);
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
    connect(m_content, &SelectorContent::finished, this, &SelectorDialog::accept);
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
    ok->setDefault(true);
    for (QPushButton* button : {ok, cancel})
        layout->addWidget(button);
    connect(ok, &QPushButton::clicked, this, &SelectorDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &SelectorDialog::reject);
    return row;
}

QString SelectorDialog::ReturnString() {
    return exec() == Accepted ? m_content->answer() : QString();
}

void SelectorDialog::accept() {
    if (m_content->check())
        QDialog::accept();
}
