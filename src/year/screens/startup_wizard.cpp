#include "year/screens/startup_wizard.h"

#include "controls/window_going.h"
#include "core/clock.h"
#include "core/prompts.h"
#include "core/version.h"
#include "store/engine/error.h"
#include "year/backup.h"
#include "year/recent_years.h"
#include "year/repair.h"
#include "year/restore.h"
#include "year/screens/file_page.h"
#include "year/screens/startup_wizard_lists.h"
#include "year/screens/startup_wizard_pages.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFileInfo>
#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

QString nextCaption() {
    return u"Next >>"_s;
}

/// Takes no input and shows the waiting pointer for a scope.
class WaitingWindow {
public:
    explicit WaitingWindow(QWidget& window) : m_window(window) {
        m_window.setEnabled(false);
        QApplication::setOverrideCursor(Qt::WaitCursor);
    }
    ~WaitingWindow() {
        QApplication::restoreOverrideCursor();
        m_window.setEnabled(true);
    }
    WaitingWindow(const WaitingWindow&) = delete;
    WaitingWindow& operator=(const WaitingWindow&) = delete;

private:
    QWidget& m_window;
};

} // namespace

StartupWizard::StartupWizard(Session& session)
    : m_session(session)
    , m_actions(new ActionsPage(startupActions(), RecentYears(session.GetSettings())))
    , m_teacher(new TeacherPage(session.GetSeams().clock.today()))
    , m_classes(new ClassesPage(session.GetSeams().prompts))
    , m_weekA(new TimetablePage(u'A'))
    , m_weekB(new TimetablePage(u'B'))
    , m_terms(new TermsPage(session))
    , m_startWeek(new StartWeekPage)
    , m_file(new FilePage(session.FolderDefaults[SaveFolder].folder,
                          {.name = u"DBName"_s,
                           .location = u"LBlocation"_s,
                           .change = u"cmdLocation"_s,
                           .caption = u"File &name:"_s,
                           .file = u"database file"_s},
                          session.GetSeams().prompts))
    , m_parts(new QStackedWidget)
    , m_frames(new QStackedWidget)
    , m_pageLabel(new QLabel)
    , m_back(new QPushButton(u"<< &Back"_s))
    , m_next(new QPushButton(nextCaption())) {
    setObjectName(u"StartupWiz"_s);
    setWindowTitle(u"Startup Wizard"_s);
    connect(m_weekB, &TimetablePage::copyWanted, this, &StartupWizard::copyWeek);
    makePages();
    showFrame(FirstPage);
    m_unanswered = answers();
    new AskBeforeGoing(*this, [this] { return mayLoseAnswers(); });
}

void StartupWizard::makePages() {
    auto* first = new QWidget;
    auto* firstLayout = new QVBoxLayout(first);
    firstLayout->setContentsMargins({});
    firstLayout->addWidget(m_actions);
    auto* version = new QLabel(u"Version "_s + programVersion());
    version->setObjectName(u"lblVersion"_s);
    firstLayout->addWidget(version, 0, Qt::AlignRight);
    m_parts->addWidget(first);
    m_parts->addWidget(makeSetupPages());
    connect(m_actions, &ActionsPage::activated, this, &StartupWizard::next);
    connect(m_actions, &ActionsPage::otherYearWanted, this, &StartupWizard::openExisting);

    auto* line = new QFrame;
    line->setFrameShape(QFrame::HLine);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_parts, 1);
    layout->addWidget(line);
    layout->addLayout(makeButtons());
    m_next->setDefault(true); // the wizard has it only now
}

QWidget* StartupWizard::makeSetupPages() {
    const std::array<QWidget*, Frames> pages{m_teacher, m_classes,   m_weekA, m_weekB,
                                             m_terms,   m_startWeek, m_file};
    for (int frame = 0; frame < Frames; ++frame) {
        QWidget* page = pages[static_cast<size_t>(frame)];
        page->setObjectName(u"f1(%1)"_s.arg(frame));
        m_frames->addWidget(page);
    }
    auto* heading = new QLabel(u"<b>Setup a NEW database for ORVA </b>"_s);
    heading->setObjectName(u"lblHeading"_s);
    auto* setup = new QWidget;
    auto* layout = new QVBoxLayout(setup);
    layout->setContentsMargins({});
    layout->addWidget(heading);
    layout->addWidget(m_frames, 1);
    return setup;
}

QLayout* StartupWizard::makeButtons() {
    auto* cancelButton = new QPushButton(u"Cancel"_s);
    m_pageLabel->setObjectName(u"LBpage"_s);
    m_back->setObjectName(u"cmdBack"_s);
    m_next->setObjectName(u"cmdNext"_s);
    cancelButton->setObjectName(u"cmdCancel"_s);
    auto* row = new QHBoxLayout;
    row->addWidget(m_pageLabel, 1);
    for (QPushButton* button : {m_back, m_next, cancelButton}) {
        button->setAutoDefault(true); // Enter presses the one that has the focus
        row->addWidget(button);
    }
    connect(m_back, &QPushButton::clicked, this, &StartupWizard::previousInSetup);
    connect(m_next, &QPushButton::clicked, this, &StartupWizard::next);
    connect(cancelButton, &QPushButton::clicked, this, &StartupWizard::cancel);
    return row;
}

void StartupWizard::startSetup(const QString& frame) {
    m_actions->setAction(SetupAction);
    nextInSetup(frame);
}

void StartupWizard::nextInSetup(const QString& page) {
    if (!page.isEmpty())
        return showFrame(page.toInt());
    if (m_frame != FirstPage && !mayLeave(m_frame))
        return;
    if (m_frame == FileFrame)
        return finishSetup();
    prepareBehind(m_frame);
    showFrame(nextFrame(m_frame, answers().twoWeeks));
}

void StartupWizard::previousInSetup() {
    if (m_frame != FirstPage)
        showFrame(previousFrame(m_frame, answers().twoWeeks));
}

void StartupWizard::showFrame(int frame) {
    m_frame = frame;
    const bool isSetup = frame != FirstPage;
    m_isGivenUp = m_isGivenUp && !isSetup;
    m_parts->setCurrentIndex(isSetup ? 1 : 0);
    if (isSetup)
        m_frames->setCurrentIndex(frame);
    m_pageLabel->setText(pageLabel(frame, answers().twoWeeks));
    m_back->setVisible(isSetup);
    m_next->setText(frame == FileFrame ? u"Finish"_s : nextCaption());
    QWidget* page = isSetup ? m_frames->currentWidget() : m_actions;
    setFocusProxy(page); // the page of the moment has the focus whenever the window gets it
    page->setFocus();
}

/// The checks on the page that is left; what is wrong is told, and the cursor goes there.
bool StartupWizard::mayLeave(int frame) {
    const YearAnswers given = answers();
    AnswerCheck fault;
    if (frame == TeacherFrame)
        fault = checkTeacher(given);
    else if (frame == ClassesFrame)
        fault = checkClasses(given);
    else if (frame == TermsFrame)
        fault = checkTerms(given, locale());
    else if (frame == FileFrame)
        fault = checkFileName(m_file->name());
    if (!fault)
        return true;
    showFault(m_session.GetSeams().prompts, *fault);
    if (frame == TeacherFrame)
        m_teacher->focusOn(fault->field);
    else
        m_frames->currentWidget()->setFocus();
    return false;
}

/// Makes ready what the pages behind one show of its answers.
void StartupWizard::prepareBehind(int frame) {
    if (frame == ClassesFrame) {
        fillWeekA();
        fillWeekB();
    } else if (frame == TermsFrame) {
        m_startWeek->setQuestion(startWeekHeading(answers(), locale()));
        m_file->propose(defaultFileName(answers()));
    }
}

void StartupWizard::clearTimetables() {
    m_weekA->clearTimetables();
    m_weekB->clearTimetables();
}

void StartupWizard::fillWeekA() {
    const YearAnswers given = answers();
    m_weekA->fill(given.periodsPerDay, given.classes);
}

void StartupWizard::fillWeekB() {
    const YearAnswers given = answers();
    m_weekB->fill(given.periodsPerDay, given.classes);
}

/// What stands in week B already goes only when that is wanted.
void StartupWizard::copyWeek() {
    const bool copies =
        m_weekB->isFree() ||
        m_session.GetSeams().prompts.PlainBox(
            u"There are classes in week B already.\n\nDo you want to replace them by week A?"_s,
            YesNoButtons | QuestionIcon | SecondButtonDefault,
            u"Copy week A to week B"_s) == AnswerYes;
    if (copies)
        m_weekB->setWeek(m_weekA->week());
}

YearAnswers StartupWizard::answers() const {
    YearAnswers given;
    m_teacher->putInto(given);
    m_classes->putInto(given);
    given.weekA = m_weekA->week();
    if (given.twoWeeks)
        given.weekB = m_weekB->week();
    m_terms->putInto(given);
    m_startWeek->putInto(given);
    return given;
}

void StartupWizard::next() {
    if (m_frame == FirstPage)
        runAction(m_actions->action());
    else
        nextInSetup({});
}

void StartupWizard::runAction(int action) {
    switch (action) {
    case SetupAction:
        return nextInSetup({});
    case OpenAction:
        if (const QString year = m_actions->chosenYear(); !year.isEmpty())
            return openAndLeave(year, chosenFileFailure);
        return openExisting();
    case RestoreAction:
        return restoreBackup();
    case BackupAction:
        return compact();
    case RepairAction:
        return repair();
    default:
        return;
    }
}

void StartupWizard::openExisting() {
    const QString path = m_session.ChooseDatabaseFile();
    if (!path.isEmpty())
        openAndLeave(path, chosenFileFailure);
}

void StartupWizard::restoreBackup() {
    const QString restored = RestoreBackupFile(backupContext(m_session));
    if (!restored.isEmpty())
        m_session.GetSeams().prompts.PlainBox(
            u"The database has been restored to: \n\n%1"_s.arg(restored),
            OkButton | InformationIcon, u"Restore Database"_s);
}

void StartupWizard::compact() {
    const QString path = m_session.ChooseDatabaseFile(u"Select the database to compress:"_s);
    if (!path.isEmpty())
        BackupAndCompact(backupContext(m_session), path, false, {});
}

void StartupWizard::repair() {
    const QString path = m_session.ChooseDatabaseFile(u"Select the database to repair:"_s);
    if (!path.isEmpty())
        RepairDatabaseFile(backupContext(m_session), path);
}

bool StartupWizard::openDatabase(const QString& path, FailureBox failureBox) {
    // A copy: the path may be the session's own, which changes when a converted file is opened.
    const QString asked = path;
    m_session.DatabasePath = asked;
    const OpenResult result = OpenOrRepair(m_session, asked, {});
    if (result == OpenDone)
        return true;
    if (result != OpenCancelled) {
        const OpenFailure failure = failureBox(m_session.LastOpenFault(), asked);
        m_session.GetSeams().prompts.PlainBox(failure.text, OkButton | WarningIcon, failure.title);
    }
    m_session.DatabasePath.clear();
    return false;
}

void StartupWizard::openAndLeave(const QString& path, FailureBox failureBox) {
    if (!mayLoseAnswers() || !openDatabase(path, failureBox))
        return;
    m_session.GetWindows().RunCurrentStartup();
    leave();
}

void StartupWizard::finishSetup() {
    const QString path = targetFile(m_file->folder(), m_file->name());
    ExistingFile existing = ExistingFile::Keep;
    if (QFileInfo::exists(path)) {
        const int answer = m_session.GetSeams().prompts.PlainBox(
            u"This file already exists!\n\nIf you continue the file will be replaced!\n\n"
            "Do you wish to continue ?"_s,
            YesNoButtons | QuestionIcon | SecondButtonDefault, u"File exists"_s);
        if (answer != AnswerYes)
            return m_file->setFocus();
        existing = ExistingFile::Replace;
    }
    if (m_file->folder() == m_session.FolderDefaults[SaveFolder].folder)
        MakeProposedFolder(m_session.FolderDefaults[SaveFolder]);
    if (!createDatabase(path, existing) || !openDatabase(path, chosenFileFailure))
        return m_file->setFocus();
    leave();
}

/// A failure is told, and all answers stay for another try.
bool StartupWizard::createDatabase(const QString& path, ExistingFile existing) {
    const Seams& seams = m_session.GetSeams();
    try {
        const WaitingWindow waiting(*this);
        CreateDB(m_session.Engine(), answers(), path, existing, seams.progress, seams.prompts,
                 locale());
    } catch (const dao::EngineError& error) {
        seams.prompts.PlainBox(
            u"The database could not be created:\n\n%1\n\n%2"_s.arg(path, error.description()),
            OkButton | WarningIcon, databaseCreatedTitle());
        return false;
    }
    seams.prompts.PlainBox(databaseCreatedText(), OkButton | InformationIcon,
                           databaseCreatedTitle());
    return true;
}

void StartupWizard::cancel() {
    if (m_frame == FirstPage)
        cancelAll();
    else
        cancelSetup();
}

void StartupWizard::cancelSetup() {
    if (!asksToCancel(0))
        return;
    showFrame(FirstPage);
    m_isGivenUp = true;
}

bool StartupWizard::asksToCancel(int flags) {
    return m_session.GetSeams().prompts.PlainBox(
               u"Setup is not complete!\n\nDo you want to cancel setup?"_s,
               YesNoButtons | QuestionIcon | flags, u"Setup incomplete"_s) == AnswerYes;
}

/// Whether the wizard may go with what was answered in it: nothing yet, or the person gives it up.
bool StartupWizard::mayLoseAnswers() {
    return m_isGivenUp || m_isLeaving || answers() == m_unanswered ||
           asksToCancel(SecondButtonDefault);
}

void StartupWizard::cancelAll() {
    if (!m_session.DatabasePath.isEmpty())
        return openAndLeave(m_session.DatabasePath, defaultFileFailure);
    const int answer = m_session.GetSeams().prompts.PlainBox(
        u"There is no default database to be loaded!\n\n"
        "To continue using this program you must either\n"
        "Setup a new database or Open an existing database.\n\n"
        "Do you want to continue?"_s,
        YesNoButtons | QuestionIcon | FirstButtonDeclines, u"Quit"_s);
    // Once this call is through: the main window deletes the wizard as it goes.
    if (answer == AnswerNo)
        QMetaObject::invokeMethod(window(), &QWidget::close, Qt::QueuedConnection);
}

void StartupWizard::leave() {
    m_isLeaving = true;
    (parentWidget() ? parentWidget() : this)->close();
}

void StartupWizard::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        next();
    else if (event->matches(QKeySequence::Cancel))
        cancel();
    else
        QWidget::keyPressEvent(event);
}

void StartupWizard::closeEvent(QCloseEvent* event) {
    if (!m_isLeaving)
        cancel();
    event->setAccepted(m_isLeaving);
}
