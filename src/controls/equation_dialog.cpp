#include "controls/equation_dialog.h"

#include "richtext/formula.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

struct Sign {
    QString sign;
    QString name;
};

const Sign signs[] = {
    {u"\u221A"_s, u"Square root"_s},
    {u"\u00B2"_s, u"Squared"_s},
    {u"\u00B3"_s, u"Cubed"_s},
    {u"\u00BD"_s, u"One half"_s},
    {u"\u03C0"_s, u"Pi"_s},
    {u"\u03B8"_s, u"Theta"_s},
    {u"\u00D7"_s, u"Times"_s},
    {u"\u00F7"_s, u"Divided by"_s},
    {u"\u00B1"_s, u"Plus or minus"_s},
    {u"\u2264"_s, u"Less than or equal to"_s},
    {u"\u2265"_s, u"Greater than or equal to"_s},
    {u"\u2260"_s, u"Not equal to"_s},
    {u"\u221E"_s, u"Infinity"_s},
    {u"\u00B0"_s, u"Degrees"_s},
};

} // namespace

EquationDialog::EquationDialog(QWidget* parent)
    : QDialog(parent), m_typed(new QLineEdit), m_shown(new QLabel) {
    setObjectName(u"EquationFrm"_s);
    setWindowTitle(u"Equation Editor"_s);
    m_typed->setObjectName(u"txtFormula"_s);
    m_typed->setAccessibleDescription(u"For example x^2 +- sqrt(pi)"_s);
    m_typed->setPlaceholderText(u"x^2 +- sqrt(pi)"_s);
    m_typed->setMaxLength(500);
    m_typed->setMinimumWidth(360);
    m_shown->setObjectName(u"lbShown"_s);
    m_shown->setTextFormat(Qt::PlainText);
    m_shown->setWordWrap(true);
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * 1.5);
    m_shown->setFont(large);
    m_shown->setMinimumHeight(QFontMetrics(large).height() * 2);
    auto* caption = new QLabel(u"&Formula:"_s);
    caption->setBuddy(m_typed);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(caption);
    layout->addWidget(m_typed);
    auto* row = new QHBoxLayout;
    row->setSpacing(2);
    addSigns(*row);
    row->addStretch();
    layout->addLayout(row);
    layout->addWidget(m_shown);
    layout->addWidget(buttons);

    connect(m_typed, &QLineEdit::textChanged, this,
            [this](const QString& typed) { m_shown->setText(richtext::formulaText(typed)); });
}

void EquationDialog::addSigns(QLayout& layout) {
    for (const Sign& sign : signs) {
        auto* button = new QToolButton;
        button->setText(sign.sign);
        button->setToolTip(sign.name);
        button->setAccessibleName(sign.name);
        connect(button, &QToolButton::clicked, this, [this, text = sign.sign] {
            m_typed->insert(text);
            m_typed->setFocus();
        });
        layout.addWidget(button);
    }
}

QString EquationDialog::ask(const QString& formula) {
    m_typed->setText(formula);
    m_typed->setFocus();
    return exec() == QDialog::Accepted ? m_shown->text().simplified() : QString();
}
