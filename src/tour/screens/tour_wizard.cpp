#include "tour/screens/tour_wizard.h"

#include "calendar/term_weeks.h"
#include "controls/date_field.h"
#include "core/dates.h"
#include "year/screens/startup_wizard.h"
#include "year/screens/startup_wizard_lists.h"
#include "year/wizard_rules.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

template<typename Control>
Control& on(const QWidget& wizard, const QString& name) {
    return *wizard.findChild<Control*>(name);
}

void fillTeacher(StartupWizard& wizard, const YearAnswers& answers) {
    on<QComboBox>(wizard, u"Combo1"_s).setCurrentText(answers.title);
    on<QLineEdit>(wizard, u"Text1"_s).setText(answers.name);
    on<QComboBox>(wizard, u"Combo2"_s).setCurrentText(answers.year);
    on<QComboBox>(wizard, u"Combo3"_s).setCurrentText(QString::number(answers.periodsPerDay));
    on<QCheckBox>(wizard, u"Chk2"_s).setChecked(answers.twoWeeks);
}

void fillClasses(StartupWizard& wizard, const YearAnswers& answers) {
    for (const QString& code : answers.classes) {
        on<QLineEdit>(wizard, u"Text2"_s).setText(code);
        on<QPushButton>(wizard, u"cmdAddClass"_s).click();
    }
}

void fillWeek(StartupWizard& wizard, const YearAnswers& answers, QChar letter) {
    auto& picker = on<QComboBox>(wizard, letter == u'A' ? u"Combo4"_s : u"Combo5"_s);
    constexpr int days = 5;
    for (int day = 0; day < days; ++day) {
        auto& list = on<PeriodList>(wizard, u"lb"_s + timetableField(Monday + day, letter));
        for (int period = 1; period <= answers.periodsPerDay; ++period) {
            const QString code = classAt(answers.week(letter), day, period);
            if (code.isEmpty())
                continue;
            picker.setCurrentText(code);
            list.setCurrentRow(period - 1);
            emit list.chosen();
        }
        list.clearSelection();
    }
}

void fillTerms(StartupWizard& wizard, const YearAnswers& answers) {
    for (const DatePeriod& term : answers.terms) {
        on<DateField>(wizard, u"StartDate"_s).setDate(term.first);
        on<DateField>(wizard, u"EndDate"_s).setDate(term.last);
        on<QPushButton>(wizard, u"cmdAddPeriod"_s).click();
    }
}

void fillPage(StartupWizard& wizard, const YearAnswers& answers, int frame) {
    switch (frame) {
    case TeacherFrame:
        return fillTeacher(wizard, answers);
    case ClassesFrame:
        return fillClasses(wizard, answers);
    case WeekAFrame:
        return fillWeek(wizard, answers, u'A');
    case WeekBFrame:
        return fillWeek(wizard, answers, u'B');
    case TermsFrame:
        return fillTerms(wizard, answers);
    case StartWeekFrame:
        return on<QComboBox>(wizard, u"Combo6"_s).setCurrentText(answers.startWeek);
    default:
        return;
    }
}

} // namespace

void fillWizard(StartupWizard& wizard, const YearAnswers& answers,
                const std::function<void(int frame)>& onPage) {
    wizard.startSetup(u"0"_s);
    for (int frame = TeacherFrame;; frame = nextFrame(frame, answers.twoWeeks)) {
        fillPage(wizard, answers, frame);
        onPage(frame);
        if (frame == FileFrame)
            return;
        wizard.nextInSetup({});
    }
}
