#include "desktop/screens/progress_dialog.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

ProgressDialog::ProgressDialog(QWidget* parent)
    : QWidget(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint)
    , m_bar(new QProgressBar)
    , m_line1(new QLabel)
    , m_line2(new QLabel) {
    setObjectName(u"ProgressFrm"_s);
    setWindowModality(Qt::ApplicationModal);
    m_bar->setObjectName(u"ProgressBar1"_s);
    m_bar->setAccessibleName(u"Progress"_s);
    m_bar->setRange(0, 100);
    m_line1->setObjectName(u"lblLine1"_s);
    m_line2->setObjectName(u"lblLine2"_s);
    constexpr int lettersShown = 60;
    for (QLabel* line : {m_line1, m_line2}) {
        line->setTextFormat(Qt::PlainText);
        line->setMinimumWidth(fontMetrics().averageCharWidth() * lettersShown);
    }
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_line1);
    layout->addWidget(m_bar);
    layout->addWidget(m_line2);
}

void ProgressDialog::showStep(int percent, const QString& line1, const QString& line2) {
    m_bar->setValue(percent);
    if (!line1.isEmpty())
        m_line1->setText(line1);
    if (!line2.isEmpty())
        m_line2->setText(line2);
    setAccessibleDescription(m_line1->text() + u' ' + m_line2->text());
}

void ProgressDialog::closeEvent(QCloseEvent* event) {
    event->ignore();
}

DesktopProgress::~DesktopProgress() = default;

void DesktopProgress::open(const QString& title) {
    m_titles += title;
    if (!m_window) {
        m_window = std::make_unique<ProgressDialog>(m_mainWindow);
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    }
    m_window->setWindowTitle(title);
    m_window->show();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void DesktopProgress::UpdateProgress(int percent, const QString& line1, const QString& line2) {
    if (!m_window)
        return;
    m_window->showStep(percent, line1, line2);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void DesktopProgress::close() {
    if (m_titles.isEmpty())
        return;
    m_titles.removeLast();
    if (!m_titles.isEmpty()) {
        m_window->setWindowTitle(m_titles.constLast());
        return;
    }
    // What was typed and clicked meanwhile waits in the queue. While this window still blocks all
    // others it is delivered to nobody.
    QCoreApplication::processEvents();
    m_window.reset();
    QGuiApplication::restoreOverrideCursor();
}
