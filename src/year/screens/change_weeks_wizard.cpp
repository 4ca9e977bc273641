#include "year/screens/change_weeks_wizard.h"

#include "core/engine_failure.h"
#include "core/prompts.h"
#include "core/session.h"
#include "year/screens/wizard_buttons.h"
#include "year/week_change.h"
#include "year/week_choice.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

enum Page { ExplanationPage, WeekPage };

FailureBox readingFailure() {
    return {.title = u"Change week allocations"};
}

} // namespace

ChangeWeeksWizard::ChangeWeeksWizard(Session& session, QWidget* parent)
    : QDialog(parent)
    , m_session(session)
    , m_starts(weekStarts(session.CurrentDB))
    , m_pages(new QStackedWidget)
    , m_buttons(new WizardButtons) {
    setObjectName(u"ChangeWeekFrm"_s);
    setWindowTitle(u"Change Week Allocations Wizard"_s);
    m_pages->addWidget(makeExplanation());
    m_pages->addWidget(makeWeekPage());
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_pages, 1);
    layout->addWidget(m_buttons);
    connect(m_buttons, &WizardButtons::backWanted, this, &ChangeWeeksWizard::previous);
    connect(m_buttons, &WizardButtons::nextWanted, this, &ChangeWeeksWizard::next);
    connect(m_buttons, &WizardButtons::cancelWanted, this, &ChangeWeeksWizard::reject);
    resize(520, 420);
    showPage(ExplanationPage);
}

QWidget* ChangeWeeksWizard::makeExplanation() {
    auto* text = new QLabel(weekChangeExplanation());
    text->setObjectName(u"LblExplanation"_s);
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    text->setAlignment(Qt::AlignTop);
    return text;
}

QWidget* ChangeWeeksWizard::makeWeekPage() {
    m_weeks = new QListWidget;
    m_weeks->setObjectName(u"List1"_s);
    m_weeks->setAccessibleName(u"Week start dates"_s);
    for (const QDate start : std::as_const(m_starts))
        m_weeks->addItem(weekStartText(start, locale()));
    auto* question = new QLabel(u"From which &week on is the timetable allocation to change?"_s);
    question->setBuddy(m_weeks);
    m_summary = new QLabel;
    m_summary->setObjectName(u"LblSummary"_s);
    m_summary->setTextFormat(Qt::PlainText);
    m_summary->setWordWrap(true);
    m_summary->setAlignment(Qt::AlignTop);
    constexpr int summaryLines = 7;
    m_summary->setMinimumHeight(fontMetrics().lineSpacing() * summaryLines);
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins({});
    layout->addWidget(question);
    layout->addWidget(m_weeks, 1);
    layout->addWidget(m_summary);
    connect(m_weeks, &QListWidget::itemSelectionChanged, this, &ChangeWeeksWizard::showWeek);
    return page;
}

void ChangeWeeksWizard::showPage(int page) {
    m_pages->setCurrentIndex(page);
    m_buttons->setPage(page == ExplanationPage, page == WeekPage);
    if (page == WeekPage)
        m_weeks->setFocus();
    else
        m_buttons->next()->setFocus();
}

void ChangeWeeksWizard::next() {
    if (m_pages->currentIndex() == ExplanationPage)
        showPage(WeekPage);
    else
        finish();
}

void ChangeWeeksWizard::previous() {
    showPage(ExplanationPage);
}

short ChangeWeeksWizard::pickedWeek() const {
    const QList<QListWidgetItem*> picked = m_weeks->selectedItems();
    return picked.isEmpty() ? 0 : static_cast<short>(m_weeks->row(picked.first()) + 1);
}

void ChangeWeeksWizard::showWeek() {
    const short week = pickedWeek();
    QString summary;
    if (week != 0)
        tryTelling(m_session.GetSeams().prompts, readingFailure(),
                   [&] { summary = load_Week_information(m_session.CurrentDB, week); });
    m_summary->setText(summary);
}

void ChangeWeeksWizard::finish() {
    Prompts& prompts = m_session.GetSeams().prompts;
    const short week = pickedWeek();
    if (week == 0) {
        prompts.PlainBox(u"You must select the start date for the Week that you want the timetable "
                         "allocation to change from."_s,
                         OkButton | WarningIcon, u"No date selected"_s);
        return m_weeks->setFocus();
    }
    const WeekChange result = ReallocateWeeks(m_session, week);
    if (result == WeeksUnchanged && m_session.CurrentDB.isOpen())
        return; // what hinders it may be put right and tried again
    if (result == WeeksChanged)
        prompts.PlainBox(weekChangeReport(weekStartText(m_starts[week - 1], locale())),
                         OkButton | InformationIcon, weekChangeTitle());
    done(result == WeeksChanged ? Accepted : Rejected);
}

void ChangeWeeksWizard::reject() {
    const int answer = m_session.GetSeams().prompts.PlainBox(
        u"Change Week Allocations incomplete. Cancelling this operation now will return you to the "
        "currently open database.\n\nAre you sure you wish to cancel ?"_s,
        YesNoButtons | QuestionIcon, u"Cancel"_s);
    if (answer == AnswerYes)
        QDialog::reject();
}

void showChangeWeeksWizard(Session& session) {
    const QPointer<QWidget> caller = QApplication::activeWindow();
    tryTelling(session.GetSeams().prompts, readingFailure(), [&] {
        ChangeWeeksWizard wizard(session, caller);
        wizard.exec();
    });
    // A window manager does not know who is next where a box and the wizard below it go at once.
    if (caller)
        caller->activateWindow();
}
