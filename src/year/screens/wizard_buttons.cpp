#include "year/screens/wizard_buttons.h"

#include <QHBoxLayout>
#include <QPushButton>

using namespace Qt::StringLiterals;

WizardButtons::WizardButtons() {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    layout->addStretch();
    const auto add = [&](const QString& name, const QString& text, auto wanted) {
        auto* button = new QPushButton(text);
        button->setObjectName(name);
        button->setAutoDefault(true); // Enter presses the one that has the focus
        layout->addWidget(button);
        connect(button, &QPushButton::clicked, this, wanted);
        return button;
    };
    m_back = add(u"cmdBack"_s, u"<< &Back"_s, &WizardButtons::backWanted);
    m_next = add(u"cmdNext"_s, QString(), &WizardButtons::nextWanted);
    add(u"cmdCancel"_s, u"Cancel"_s, &WizardButtons::cancelWanted);
}

void WizardButtons::setPage(bool isFirst, bool isLast) {
    m_back->setEnabled(!isFirst);
    m_next->setText(isLast ? u"Finish >>"_s : u"Next >>"_s);
    m_next->setDefault(true);
}
