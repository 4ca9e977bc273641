#include "settings/screens/planning_page.h"

#include "controls/wheel_guard.h"
#include "core/prompts.h"
#include "core/session.h"
#include "planning/plan_choices.h"
#include "settings/screens/setting_controls.h"
#include "settings/settings_pages.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

/// A list whose first entry is that nothing is chosen.
QComboBox* optionalChoice(const QString& objectName, const QStringList& choices) {
    auto* box = new QComboBox;
    box->setObjectName(objectName);
    box->addItem(QString());
    box->addItems(choices);
    ignoreWheel(*box);
    return box;
}

} // namespace

PlanningSettings::PlanningSettings(Session& session)
    : m_session(session)
    , m_font(new FontSample(u"lbsmpl"_s, u"Planning sheet"_s, session.GetSeams().prompts))
    , m_coding(new QCheckBox(u"Show classes in their &colours"_s))
    , m_subject(optionalChoice(u"STP_Subject"_s, subjectChoices()))
    , m_ability(new QLineEdit)
    , m_unit(new QLineEdit)
    , m_term(optionalChoice(u"Combo4"_s, termChoices(session.TermCount))) {
    m_coding->setObjectName(u"ck3"_s);
    m_subject->setEditable(true);
    m_ability->setObjectName(u"STP_Ability"_s);
    m_unit->setObjectName(u"STP_Unit"_s);
    auto* layout = new QFormLayout(this);
    layout->addRow(explanation(u"The font is that of new text on planning sheets. A new short term "
                               "plan begins with what is chosen below."_s));
    layout->addRow(m_font);
    layout->addRow(m_coding);
    layout->addRow(u"&Subject:"_s, m_subject);
    layout->addRow(u"&Ability Level:"_s, m_ability);
    layout->addRow(u"&Unit of Study:"_s, m_unit);
    layout->addRow(u"&Term:"_s, m_term);
    const QStringList captions{u"Starter :"_s, u" Main :"_s, u"Plenary :"_s};
    for (size_t i = 0; i < m_times.size(); ++i) {
        m_times.at(i) = optionalChoice(u"CboT(%1)"_s.arg(i), timingChoices(LessonParts[i]));
        layout->addRow(captions.at(static_cast<qsizetype>(i)), m_times.at(i));
    }
    auto* clear = new QPushButton(u"&Reset"_s);
    clear->setObjectName(u"ResetPlan"_s);
    connect(clear, &QPushButton::clicked, this, &PlanningSettings::reset);
    layout->addRow(clear);
}

void PlanningSettings::reset() {
    m_subject->setCurrentText({});
    m_ability->clear();
    m_unit->clear();
    m_term->setCurrentIndex(0);
    for (QComboBox* box : m_times)
        box->setCurrentIndex(0);
}

void PlanningSettings::acquire() {
    const PlanningValues page = readPlanning(m_session.GetSettings());
    m_font->setSample(page.font);
    m_coding->setChecked(page.showsClassCoding);
    m_subject->setCurrentText(page.subject);
    m_ability->setText(page.ability);
    m_unit->setText(page.unit);
    m_term->setCurrentIndex(page.term + 1 < m_term->count() ? page.term + 1 : 0);
    for (size_t i = 0; i < m_times.size(); ++i)
        m_times.at(i)->setCurrentIndex(std::max(0, m_times.at(i)->findText(page.times.at(i))));
}

bool PlanningSettings::apply() {
    PlanningValues page{.font = m_font->font(),
                        .showsClassCoding = m_coding->isChecked(),
                        .subject = m_subject->currentText(),
                        .ability = m_ability->text(),
                        .unit = m_unit->text(),
                        .term = m_term->currentIndex() - 1,
                        .times = {}};
    for (size_t i = 0; i < m_times.size(); ++i)
        page.times.at(i) = m_times.at(i)->currentText();
    Apply_Planning(m_session.GetSettings(), page);
    return true;
}
