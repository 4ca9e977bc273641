#include "classes/screens/new_class_wizard.h"

#include "classes/class_code.h"
#include "classes/class_creation.h"
#include "classes/screens/class_week_grid.h"
#include "controls/restricted_edit.h"
#include "core/prompts.h"
#include "core/session.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QStackedWidget>

using namespace Qt::StringLiterals;

NewClassWizard::NewClassWizard(Session& session, QWidget* parent)
    : QDialog(parent)
    , m_session(session)
    , m_answers(readNewClass(session.CurrentDB))
    , m_title(new QLabel)
    , m_help(new QLabel)
    , m_pages(new QStackedWidget) {
    setObjectName(u"NewClassFrm"_s);
    setWindowTitle(newClassTitle());
    QFont bold = font();
    bold.setBold(true);
    m_title->setFont(bold);
    m_title->setObjectName(u"LblTitle"_s);
    m_help->setObjectName(u"LblHelp"_s);
    m_help->setWordWrap(true);
    m_pages->addWidget(makeCodePage());
    m_pages->addWidget(makeTimetablePage(TimetableAPage, u'A'));
    if (m_answers.twoWeeks)
        m_pages->addWidget(makeTimetablePage(TimetableBPage, u'B'));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_title);
    layout->addWidget(m_help);
    layout->addWidget(m_pages, 1);
    layout->addWidget(makeButtons());
    resize(520, 420);
    showPage();
}

QWidget* NewClassWizard::makeCodePage() {
    constexpr int codeLength = 6;
    m_code =
        new RestrictedEdit(u"Classcode"_s, isClassCodeCharacter, RestrictedEdit::Letters::Capitals);
    m_code->setObjectName(u"TxtCode"_s);
    m_code->setMaxLength(codeLength);
    m_code->installEventFilter(this);
    connect(m_code, &RestrictedEdit::textChanged, this,
            [this] { m_answers.code = m_code->text(); });
    connect(m_code, &RestrictedEdit::refused, this, // pasted; a key does not get that far
            [this] { showInvalidCharacter(m_session.GetSeams().prompts); });
    auto* list = new QListWidget;
    list->setObjectName(u"List1"_s);
    list->setAccessibleName(u"Classcodes in use"_s);
    list->addItems(m_answers.codesInUse);
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins({});
    layout->addWidget(list, 1);
    auto* row = new QHBoxLayout;
    auto* label = new QLabel(u"New &Classcode:"_s);
    label->setBuddy(m_code);
    row->addWidget(label);
    row->addWidget(m_code, 1);
    layout->addLayout(row);
    return page;
}

QWidget* NewClassWizard::makeTimetablePage(int page, QChar letter) {
    auto* grid = new ClassWeekGrid(m_answers.periodsPerDay, u"Timetable%1"_s.arg(letter));
    m_grids += grid;
    connect(grid, &ClassWeekGrid::cellPicked, this,
            [this, letter](int index) { toggle(letter, index); });
    auto* group = new QWidget;
    auto* layout = new QVBoxLayout(group);
    layout->setContentsMargins({});
    auto* heading = new QLabel(page == TimetableAPage ? u"Timetable A"_s : u"Timetable B"_s);
    heading->setBuddy(grid);
    layout->addWidget(heading);
    layout->addWidget(grid, 1);
    return group;
}

QWidget* NewClassWizard::makeButtons() {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins({});
    layout->addStretch();
    const auto add = [&](const QString& name, const QString& text, void (NewClassWizard::*act)()) {
        auto* button = new QPushButton(text);
        button->setObjectName(name);
        layout->addWidget(button);
        connect(button, &QPushButton::clicked, this, act);
        return button;
    };
    m_previous = add(u"cmdPrevious"_s, u"<< Previous"_s, &NewClassWizard::previous);
    m_next = add(u"cmdNext"_s, u"Next >>"_s, &NewClassWizard::next);
    add(u"cmdCancel"_s, u"Cancel"_s, &NewClassWizard::reject)->setAutoDefault(false);
    m_previous->setAutoDefault(false);
    m_next->setDefault(true);
    return row;
}

void NewClassWizard::next() {
    Prompts& prompts = m_session.GetSeams().prompts;
    const NewClassStep step = nextPage(m_answers, m_answers.page, prompts);
    showPage();
    if (step != NewClassStep::Finish)
        return;
    if (createClass(m_session.CurrentDB, m_answers, prompts))
        m_created = m_answers.code;
    done(m_created.isEmpty() ? Rejected : Accepted);
}

void NewClassWizard::previous() {
    previousPage(m_answers, m_answers.page);
    showPage();
}

void NewClassWizard::toggle(QChar letter, int index) {
    if (toggleCell(m_answers, letter, index, m_session.GetSeams().prompts))
        showPage();
}

/// Shows what the answers say.
void NewClassWizard::showPage() {
    m_title->setText(newClassPageTitle(m_answers.page));
    m_help->setText(newClassHelp(m_answers.page));
    if (m_code->text() != m_answers.code)
        m_code->setText(m_answers.code);
    m_grids[0]->showWeek(m_answers, u'A');
    if (m_answers.twoWeeks)
        m_grids[1]->showWeek(m_answers, u'B');
    const bool isOther = m_pages->currentIndex() != m_answers.page;
    m_pages->setCurrentIndex(m_answers.page);
    m_previous->setEnabled(m_answers.page > ClassCodePage);
    m_next->setText(nextButtonText(m_answers));
    if (m_answers.page == ClassCodePage)
        m_code->setFocus();
    else if (isOther)
        m_grids[m_answers.page - TimetableAPage]->setFocus();
}

bool NewClassWizard::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_code && event->type() == QEvent::KeyPress) {
        const QString typed = static_cast<QKeyEvent*>(event)->text();
        if (!typed.isEmpty() && typed.at(0).isPrint() &&
            classCodeKey(m_session.GetSeams().prompts, typed).isEmpty())
            return true;
    }
    return QDialog::eventFilter(watched, event);
}

/// The cells have colours of the scheme.
void NewClassWizard::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && m_next)
        showPage();
}

void NewClassWizard::reject() {
    if (confirmCancel(m_session.GetSeams().prompts))
        QDialog::reject();
}
