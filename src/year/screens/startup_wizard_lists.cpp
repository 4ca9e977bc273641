#include "year/screens/startup_wizard_lists.h"

#include "calendar/term_weeks.h"
#include "classes/class_code.h"
#include "controls/date_field.h"
#include "controls/restricted_edit.h"
#include "core/dates.h"
#include "core/session.h"
#include "year/wizard_rules.h"

#include <QComboBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int PeriodRole = Qt::UserRole;

bool isEnter(const QKeyEvent* event) {
    return event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
}

QPushButton* makePageButton(const QString& objectName, const QString& caption) {
    auto* button = new QPushButton(caption);
    button->setObjectName(objectName);
    button->setAutoDefault(true); // Enter presses it, not the wizard's "Next"
    return button;
}

/// Delete on a list does what the button beside it does.
template<typename Page>
void onDelete(QListWidget* list, Page* page, void (Page::*command)()) {
    auto* shortcut = new QShortcut(QKeySequence::Delete, list);
    shortcut->setContext(Qt::WidgetShortcut);
    QObject::connect(shortcut, &QShortcut::activated, page, command);
}

} // namespace

ClassesPage::ClassesPage(Prompts& prompts)
    : m_prompts(prompts)
    , m_code(new RestrictedEdit(u"Classcode"_s, isClassCodeCharacter,
                                RestrictedEdit::Letters::Capitals))
    , m_classes(new QListWidget) {
    m_code->setObjectName(u"Text2"_s);
    m_code->setMaxLength(MaximumClassCode);
    m_classes->setObjectName(u"List1"_s);
    m_classes->setAccessibleName(u"Your classcodes"_s);
    auto* add = makePageButton(u"cmdAddClass"_s, u"   Add to list  >>"_s);
    auto* remove = makePageButton(u"cmdRemoveClass"_s, u"   << Remove from list"_s);
    setFocusProxy(m_code);

    auto* codeCaption = new QLabel(u"&Enter the code of each class:"_s);
    codeCaption->setBuddy(m_code);
    auto* listCaption = new QLabel(u"&Your classcodes:"_s);
    listCaption->setBuddy(m_classes);
    auto* layout = new QGridLayout(this);
    layout->addWidget(codeCaption, 0, 0);
    layout->addWidget(listCaption, 0, 1);
    layout->addWidget(m_code, 1, 0);
    layout->addWidget(add, 2, 0);
    layout->addWidget(remove, 3, 0);
    layout->addWidget(m_classes, 1, 1, 4, 1);
    layout->setRowStretch(4, 1);

    connect(add, &QPushButton::clicked, this, &ClassesPage::addClass);
    connect(remove, &QPushButton::clicked, this, &ClassesPage::removeClass);
    onDelete(m_classes, this, &ClassesPage::removeClass);
    connect(m_code, &RestrictedEdit::refused, this, [this] {
        m_prompts.PlainBox(u"Sorry but you can't use that character in a Classcode!"_s,
                           OkButton | WarningIcon, u"Invalid Character"_s);
    });
}

QStringList ClassesPage::classes() const {
    QStringList codes;
    for (int row = 0; row < m_classes->count(); ++row)
        codes += m_classes->item(row)->text();
    return codes;
}

void ClassesPage::putInto(YearAnswers& answers) const {
    answers.classes = classes();
}

void ClassesPage::keyPressEvent(QKeyEvent* event) {
    // In the empty box Enter goes on, as everywhere in the wizard.
    if (isEnter(event) && m_code->hasFocus() && !m_code->text().isEmpty())
        addClass();
    else
        QWidget::keyPressEvent(event);
}

void ClassesPage::addClass() {
    const QString code = m_code->text();
    QStringList codes = classes();
    const AnswerCheck fault = checkClassCode(code, codes);
    if (fault) {
        showFault(m_prompts, *fault);
    } else {
        codes += code;
        sortClasses(codes);
        m_classes->clear();
        m_classes->addItems(codes);
        m_classes->setCurrentRow(static_cast<int>(codes.indexOf(code)));
        m_code->clear();
    }
    m_code->setFocus();
}

void ClassesPage::removeClass() {
    delete m_classes->currentItem();
}

PeriodList::PeriodList(const QString& day) {
    setAccessibleName(day);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(this, &QListWidget::itemClicked, this, &PeriodList::chosen);
}

void PeriodList::addPeriod(const QString& text) {
    auto* item = new QListWidgetItem(this);
    item->setSizeHint({0, fontMetrics().height() * 3 / 2});
    setPeriod(count() - 1, text);
}

void PeriodList::setPeriod(int row, const QString& text) {
    item(row)->setText(text);
    item(row)->setData(Qt::AccessibleTextRole,
                       u"Period %1: %2"_s.arg(row + 1).arg(text.isEmpty() ? u"free"_s : text));
}

QSize PeriodList::sizeHint() const {
    const int letters = MaximumClassCode + 2;
    const int rows = fontMetrics().height() * 3 / 2 * MaximumPeriods;
    return QSize(fontMetrics().horizontalAdvance(u'M') * letters, rows) +
           QSize(frameWidth(), frameWidth()) * 2;
}

void PeriodList::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Space)
        emit chosen();
    else if (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right)
        event->ignore();
    else
        QListWidget::keyPressEvent(event);
}

void PeriodList::focusInEvent(QFocusEvent* event) {
    QListWidget::focusInEvent(event);
    setCurrentRow(std::max(currentRow(), 0), QItemSelectionModel::ClearAndSelect);
}

/// One place alone is marked on the page: the one that keys change.
void PeriodList::focusOutEvent(QFocusEvent* event) {
    QListWidget::focusOutEvent(event);
    clearSelection();
}

TimetablePage::TimetablePage(QChar letter)
    : m_class(new QComboBox), m_numbers(new PeriodList(u"Periods"_s)) {
    m_class->setObjectName(letter == u'A' ? u"Combo4"_s : u"Combo5"_s);
    m_class->setAccessibleName(u"Class to put in, week %1"_s.arg(letter));
    m_class->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_numbers->setFocusPolicy(Qt::NoFocus);
    m_numbers->setSelectionMode(QAbstractItemView::NoSelection);
    makeLists(letter);
    setFocusProxy(m_class);

    auto* caption = new QLabel(u"C&lass:"_s);
    caption->setBuddy(m_class);
    auto* picker = new QHBoxLayout;
    picker->addWidget(new QLabel(u"<b>for Week %1</b>"_s.arg(letter)));
    picker->addStretch();
    if (letter == u'B') {
        QPushButton* copy = makePageButton(u"cmdCopyWeek"_s, u"&Copy week A to week B"_s);
        connect(copy, &QPushButton::clicked, this, &TimetablePage::copyWanted);
        picker->addWidget(copy);
        picker->addStretch();
    }
    picker->addWidget(caption);
    picker->addWidget(m_class);
    auto* grid = new QGridLayout;
    grid->addWidget(new QLabel(u"Period"_s), 0, 0);
    grid->addWidget(m_numbers, 1, 0);
    for (int day = 0; day < Days; ++day) {
        grid->addWidget(new QLabel(DayName(Monday + day)), 0, day + 1);
        grid->addWidget(m_lists[static_cast<size_t>(day)], 1, day + 1);
    }
    auto* hint = new QLabel(u"Choose a class, then click the periods in which you teach it, or "
                            "press Space on them. Once more makes a period free."_s);
    hint->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(picker);
    layout->addLayout(grid);
    layout->addWidget(hint);
}

void TimetablePage::makeLists(QChar letter) {
    for (int day = 0; day < Days; ++day) {
        const int weekday = Monday + day;
        auto* list = new PeriodList(u"%1, week %2"_s.arg(DayName(weekday)).arg(letter));
        list->setObjectName(u"lb"_s + timetableField(weekday, letter));
        connect(list, &PeriodList::chosen, this, [this, day] { selectPeriod(day); });
        m_lists[static_cast<size_t>(day)] = list;
    }
}

void TimetablePage::clearTimetables() {
    m_numbers->clear();
    for (PeriodList* list : m_lists)
        list->clear();
}

void TimetablePage::fill(int periods, const QStringList& classes) {
    const QString picked = m_class->currentText();
    m_class->clear();
    m_class->addItems(classes);
    m_class->setCurrentIndex(std::max(m_class->findText(picked), 0));

    clearTimetables();
    for (int period = 1; period <= periods; ++period)
        m_numbers->addPeriod(QString::number(period));
    for (size_t day = 0; day < Days; ++day) {
        for (int period = 1; period <= periods; ++period) {
            const QString chosen = classAt(m_chosen, static_cast<int>(day), period);
            m_lists[day]->addPeriod(classes.contains(chosen) ? chosen : QString());
        }
    }
}

WeekTimetable TimetablePage::week() const {
    WeekTimetable week;
    for (size_t day = 0; day < Days; ++day) {
        for (int row = 0; row < m_lists[day]->count(); ++row)
            week[day] += m_lists[day]->item(row)->text();
    }
    return week;
}

void TimetablePage::selectPeriod(int day) {
    PeriodList* list = m_lists[static_cast<size_t>(day)];
    const int row = list->currentRow();
    if (row < 0)
        return;
    const QString picked = m_class->currentText();
    choose(static_cast<size_t>(day), row, list->item(row)->text() == picked ? QString() : picked);
}

void TimetablePage::choose(size_t day, int row, const QString& text) {
    m_lists[day]->setPeriod(row, text);
    QStringList& chosen = m_chosen[day];
    while (chosen.size() <= row)
        chosen += QString();
    chosen[row] = text;
}

void TimetablePage::setWeek(const WeekTimetable& week) {
    for (size_t day = 0; day < Days; ++day) {
        for (int row = 0; row < m_lists[day]->count(); ++row)
            choose(day, row, week[day].value(row));
    }
}

bool TimetablePage::isFree() const {
    const WeekTimetable shown = week();
    return std::all_of(shown.begin(), shown.end(),
                       [](const QStringList& day) { return day.join(QString()).isEmpty(); });
}

void TimetablePage::moveToDay(int day, int row) {
    if (day < 0 || day >= Days)
        return;
    PeriodList* list = m_lists[static_cast<size_t>(day)];
    list->setCurrentRow(row);
    list->setFocus();
}

void TimetablePage::keyPressEvent(QKeyEvent* event) {
    const int step = event->key() == Qt::Key_Right ? 1 : event->key() == Qt::Key_Left ? -1 : 0;
    for (int day = 0; step != 0 && day < Days; ++day) {
        const PeriodList* list = m_lists[static_cast<size_t>(day)];
        if (list->hasFocus())
            return moveToDay(day + step, list->currentRow());
    }
    QWidget::keyPressEvent(event);
}

TermsPage::TermsPage(Session& session)
    : m_session(session)
    , m_first(new DateField(u"First day of the teaching period"_s))
    , m_last(new DateField(u"Last day of the teaching period"_s))
    , m_periods(new QListWidget) {
    m_first->setObjectName(u"StartDate"_s);
    m_last->setObjectName(u"EndDate"_s);
    m_periods->setObjectName(u"List2"_s);
    m_periods->setAccessibleName(u"Teaching periods"_s);
    setFocusProxy(m_first);

    auto* firstCaption = new QLabel(u"F&rom:"_s);
    firstCaption->setBuddy(m_first);
    auto* lastCaption = new QLabel(u"T&o:"_s);
    lastCaption->setBuddy(m_last);
    auto* listCaption = new QLabel(u"Teaching perio&ds:"_s);
    listCaption->setBuddy(m_periods);
    auto* layout = new QGridLayout(this);
    layout->addWidget(new QLabel(u"Add a teaching period :"_s), 0, 0, 1, 2);
    layout->addWidget(listCaption, 0, 2);
    layout->addWidget(firstCaption, 1, 0);
    layout->addWidget(m_first, 1, 1);
    layout->addWidget(lastCaption, 2, 0);
    layout->addWidget(m_last, 2, 1);
    layout->addWidget(makeButton(u"cmdAddPeriod"_s, u"   Add to list  >>"_s, &TermsPage::addPeriod),
                      3, 0, 1, 2);
    layout->addWidget(
        makeButton(u"cmdRemovePeriod"_s, u"   << Remove from list"_s, &TermsPage::removePeriod), 4,
        0, 1, 2);
    layout->addWidget(
        makeButton(u"cmdImport"_s, u"&Import from another file..."_s, &TermsPage::importPeriods), 5,
        0, 1, 2);
    layout->addWidget(m_periods, 1, 2, 6, 1);
    layout->setRowStretch(6, 1);
    layout->setColumnStretch(2, 1);
    onDelete(m_periods, this, &TermsPage::removePeriod);
}

QPushButton* TermsPage::makeButton(const QString& objectName, const QString& caption,
                                   void (TermsPage::*command)()) {
    auto* button = makePageButton(objectName, caption);
    connect(button, &QPushButton::clicked, this, command);
    return button;
}

void TermsPage::putInto(YearAnswers& answers) const {
    for (int row = 0; row < m_periods->count(); ++row)
        answers.terms += m_periods->item(row)->data(PeriodRole).value<DatePeriod>();
}

void TermsPage::keyPressEvent(QKeyEvent* event) {
    const QWidget* focus = focusWidget();
    const bool isInDates = m_first->isAncestorOf(focus) || m_last->isAncestorOf(focus);
    // In empty boxes Enter goes on, as everywhere in the wizard.
    const bool hasDates = !m_first->isEmpty() || !m_last->isEmpty();
    if (isEnter(event) && isInDates && hasDates)
        addPeriod();
    else
        QWidget::keyPressEvent(event);
}

void TermsPage::addPeriod() {
    const DatePeriod period{m_first->date(), m_last->date()};
    if (const AnswerCheck fault = checkTerm(period)) {
        showFault(m_session.GetSeams().prompts, *fault);
        return (period.first.isValid() ? m_last : m_first)->setFocus();
    }
    insert(period);
    m_first->setDate({});
    m_last->setDate({});
    m_first->setFocus();
}

void TermsPage::insert(const DatePeriod& period) {
    const auto isBehind = [this, &period](int row) {
        return m_periods->item(row)->data(PeriodRole).value<DatePeriod>().first > period.first;
    };
    int row = m_periods->count();
    while (row > 0 && isBehind(row - 1))
        --row;
    auto* item = new QListWidgetItem(periodItem(period, locale()));
    item->setData(PeriodRole, QVariant::fromValue(period));
    m_periods->insertItem(row, item);
    m_periods->setCurrentItem(item);
}

void TermsPage::removePeriod() {
    delete m_periods->currentItem();
}

void TermsPage::importPeriods() {
    const QList<DatePeriod> periods =
        ImportTermDates(m_session.Engine(), m_session.GetSeams().prompts,
                        m_session.FolderDefaults[OpenFolder].folder);
    for (const DatePeriod& period : periods)
        insert(period);
}
