#include "settings/screens/timetable_page.h"

#include "controls/wheel_guard.h"
#include "core/engine_failure.h"
#include "core/prompts.h"
#include "core/session.h"
#include "settings/screens/setting_controls.h"
#include "settings/settings_pages.h"

#include <QComboBox>
#include <QFormLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr FailureBox timetableFailure{.title = u"Timetable Settings Error"};

} // namespace

TimetableSettings::TimetableSettings(Session& session)
    : m_session(session)
    , m_font(new FontSample(u"lbsmpl"_s, u"Timetable"_s, session.GetSeams().prompts)) {
    const QStringList captions{u"Morning Break is after period:"_s, u"Dinner is after period: "_s,
                               u"Afternoon Break is after period:"_s};
    auto* layout = new QFormLayout(this);
    layout->addRow(explanation(u"Breaks stand between the periods of your timetable. The font is "
                               "that of its cells."_s));
    for (size_t i = 0; i < m_breaks.size(); ++i) {
        auto* box = new QComboBox;
        box->setObjectName(u"CboBreak(%1)"_s.arg(i));
        box->addItem(u"None"_s);
        for (int period = 1; period < session.PeriodsPerDay; ++period)
            box->addItem(QString::number(period));
        ignoreWheel(*box);
        layout->addRow(captions.at(static_cast<qsizetype>(i)), box);
        m_breaks.at(i) = box;
    }
    layout->addRow(m_font);
}

void TimetableSettings::acquire() {
    const TimetableValues page = readTimetable(m_session);
    for (size_t i = 0; i < m_breaks.size(); ++i)
        m_breaks.at(i)->setCurrentIndex(page.breaks.at(i));
    m_font->setSample(page.font);
}

bool TimetableSettings::apply() {
    TimetableValues page{.breaks = {}, .font = m_font->font()};
    for (size_t i = 0; i < m_breaks.size(); ++i)
        page.breaks.at(i) = m_breaks.at(i)->currentIndex();
    if (!tryTelling(m_session.GetSeams().prompts, timetableFailure,
                    [&] { Apply_Timetable(m_session, page); }))
        return false;
    ToolWindows& windows = m_session.GetWindows();
    if (windows.isOpen(ToolWindow::Timetable) && windows.close(ToolWindow::Timetable))
        windows.open(ToolWindow::Timetable);
    return true;
}
