#include "classes/screens/class_home_page.h"

#include "classes/class_desk.h"
#include "controls/colours.h"
#include "controls/icons.h"

#include <QApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QToolButton>

using namespace Qt::StringLiterals;

ClassHomePage::ClassHomePage(ClassDesk& desk)
    : m_desk(desk), m_classes(new QListWidget), m_tasks(new QListWidget), m_hint(new QLabel) {
    auto* layout = new QGridLayout(this);
    layout->addWidget(makeClassList(), 0, 0, 2, 1);
    layout->addWidget(makeViewButtons(), 0, 1);
    layout->addWidget(makeTasks(), 1, 1);
    layout->setColumnStretch(1, 1);
    layout->setRowStretch(1, 1);
    setFocusProxy(m_classes);
}

QWidget* ClassHomePage::makeClassList() {
    auto* group = new QGroupBox(u"Classes"_s);
    m_classes->setObjectName(u"ClassList"_s);
    m_classes->setAccessibleName(u"Classes"_s);
    m_classes->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    m_classes->setFixedWidth(fontMetrics().averageCharWidth() * 20);
    auto* layout = new QVBoxLayout(group);
    layout->addWidget(m_classes);
    connect(m_classes, &QListWidget::currentTextChanged, this, [this](const QString& code) {
        if (!code.isEmpty() && code != m_desk.classCode())
            emit classWanted(code);
    });
    return group;
}

QWidget* ClassHomePage::makeViewButtons() {
    struct ViewButton {
        ClassView view;
        QString caption;
        QString tip;
        QString icon;
    };
    const QList<ViewButton> views{
        {RegisterView, u"&Register"_s, u"Opens the Register form."_s, u"register"_s},
        {GradesView, u"&Grades"_s, u"Opens the Grades Sheet."_s, u"grades"_s},
        {PupilNotesView, u"Pupil &Notes"_s, u"Shows the Pupils notes for editing"_s, u"notes"_s},
        {PupilInformationView, u"Pupil &Information"_s,
         u"Displays information about the pupil selected."_s, u"pupil"_s},
    };
    constexpr int iconSize = 40;
    auto* group = new QWidget;
    auto* layout = new QHBoxLayout(group);
    layout->setContentsMargins({});
    for (const ViewButton& each : views) {
        auto* button = new QToolButton;
        button->setObjectName(u"ViewButton(%1)"_s.arg(static_cast<int>(each.view)));
        button->setText(each.caption);
        button->setToolTip(each.tip);
        button->setAccessibleName(QString(each.caption).remove(u'&'));
        button->setIcon(icon(each.icon));
        button->setIconSize({iconSize, iconSize});
        button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        button->setFocusPolicy(Qt::StrongFocus);
        connect(button, &QToolButton::clicked, this,
                [this, view = each.view] { emit viewWanted(view); });
        layout->addWidget(button);
    }
    return group;
}

QWidget* ClassHomePage::makeTasks() {
    auto* group = new QGroupBox(u"Tasks"_s);
    m_tasks->setObjectName(u"TaskList"_s);
    m_tasks->setAccessibleName(u"Tasks"_s);
    for (const ClassTaskEntry& entry : classTasks())
        m_tasks->addItem(entry.caption);
    m_tasks->setCurrentRow(0);
    m_tasks->installEventFilter(this);
    m_hint->setObjectName(u"TaskHint"_s);
    m_hint->setWordWrap(true);
    m_hint->setMinimumHeight(2 * fontMetrics().lineSpacing());
    auto* ok = new QPushButton(u"OK"_s);
    ok->setObjectName(u"TaskOK"_s);
    ok->setAccessibleName(u"Do the selected task"_s);
    auto* row = new QHBoxLayout;
    row->addWidget(m_hint, 1);
    row->addWidget(ok);
    auto* layout = new QVBoxLayout(group);
    layout->addWidget(m_tasks, 1);
    layout->addLayout(row);
    connect(m_tasks, &QListWidget::currentRowChanged, this, &ClassHomePage::showHint);
    connect(m_tasks, &QListWidget::itemDoubleClicked, this, &ClassHomePage::runTask);
    connect(ok, &QPushButton::clicked, this, &ClassHomePage::runTask);
    return group;
}

void ClassHomePage::showClasses() {
    const QSignalBlocker blocker(m_classes);
    m_classes->clear();
    for (const ClassColour& each : m_desk.classes()) {
        auto* item = new QListWidgetItem(each.code, m_classes);
        const QColor colour = toColour(each.colour);
        item->setBackground(colour);
        item->setForeground(textColourOn(colour));
        if (each.code == m_desk.classCode())
            m_classes->setCurrentItem(item);
    }
}

void ClassHomePage::selectFirstTask() {
    m_tasks->setCurrentRow(0);
}

void ClassHomePage::showHint() {
    m_hint->setText(m_tasks->currentRow() < 0 ? QString()
                                              : classTasks()[m_tasks->currentRow()].hint);
}

void ClassHomePage::runTask() {
    if (m_tasks->currentRow() < 0)
        return;
    const bool withCtrl = QApplication::keyboardModifiers().testFlag(Qt::ControlModifier);
    emit taskWanted(classTasks()[m_tasks->currentRow()].task, withCtrl);
}

bool ClassHomePage::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_tasks && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            runTask();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}
