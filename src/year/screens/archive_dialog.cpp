#include "year/screens/archive_dialog.h"

#include "core/engine_failure.h"
#include "core/prompts.h"
#include "core/session.h"
#include "year/class_archive.h"
#include "year/screens/file_page.h"
#include "year/screens/wizard_buttons.h"
#include "year/wizard_rules.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPointer>
#include <QStackedWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

enum ArchivePage { ClassPage, NamePage };

constexpr FailureBox classesUnread{u"Archive Class"};

} // namespace

ArchiveDialog::ArchiveDialog(Session& session, const QString& classCode, QWidget* parent)
    : QDialog(parent)
    , m_session(session)
    , m_pages(new QStackedWidget)
    , m_buttons(new WizardButtons) {
    setObjectName(u"Archivefrm"_s);
    setWindowTitle(u"Archive a class"_s);
    auto* explanation = new QLabel(archiveExplanation());
    explanation->setObjectName(u"LblExplanation"_s);
    explanation->setTextFormat(Qt::PlainText);
    explanation->setWordWrap(true);
    m_pages->addWidget(makeClassPage(classCode));
    m_pages->addWidget(makeNamePage());
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(explanation);
    layout->addWidget(m_pages, 1);
    layout->addWidget(m_buttons);
    connect(m_buttons, &WizardButtons::backWanted, this, &ArchiveDialog::previous);
    connect(m_buttons, &WizardButtons::nextWanted, this, &ArchiveDialog::next);
    connect(m_buttons, &WizardButtons::cancelWanted, this, &ArchiveDialog::reject);
    resize(520, 400);
    showPage(ClassPage);
}

QWidget* ArchiveDialog::makeClassPage(const QString& classCode) {
    m_classes = new QListWidget;
    m_classes->setObjectName(u"CL1"_s);
    m_classes->setAccessibleName(u"Classes"_s);
    m_classes->addItems(Load_data(m_session.CurrentDB));
    const QList<QListWidgetItem*> asked = m_classes->findItems(classCode, Qt::MatchExactly);
    m_classes->setCurrentItem(asked.isEmpty() ? m_classes->item(0) : asked.constFirst());
    connect(m_classes, &QListWidget::itemDoubleClicked, this, &ArchiveDialog::next);
    auto* heading = new QLabel(u"&Select a class to archive:"_s);
    heading->setBuddy(m_classes);
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins({});
    layout->addWidget(heading);
    layout->addWidget(m_classes, 1);
    return page;
}

QWidget* ArchiveDialog::makeNamePage() {
    auto* heading = new QLabel(u"Enter a name for the archive:"_s);
    m_file = new FilePage(m_session.FolderDefaults[SaveFolder].folder,
                          {.name = u"Text1"_s,
                           .location = u"LBlocation"_s,
                           .change = u"DD1"_s,
                           .caption = u"File &name:"_s,
                           .file = u"archive"_s},
                          m_session.GetSeams().prompts);
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins({});
    layout->addWidget(heading);
    layout->addWidget(m_file);
    layout->addStretch();
    return page;
}

void ArchiveDialog::showPage(int page) {
    m_pages->setCurrentIndex(page);
    m_buttons->setPage(page == ClassPage, page == NamePage);
    if (page == NamePage)
        m_file->setFocus();
    else
        m_classes->setFocus();
}

QString ArchiveDialog::pickedClass() const {
    const QListWidgetItem* picked = m_classes->currentItem();
    return picked ? picked->text() : QString();
}

void ArchiveDialog::next() {
    if (m_pages->currentIndex() == NamePage)
        return finish();
    if (pickedClass().isEmpty()) {
        m_session.GetSeams().prompts.PlainBox(
            u"You must select the class that you want to archive."_s, OkButton | WarningIcon,
            u"No class selected"_s);
        return m_classes->setFocus();
    }
    m_file->propose(archiveName(pickedClass()));
    showPage(NamePage);
}

void ArchiveDialog::previous() {
    showPage(ClassPage);
}

void ArchiveDialog::finish() {
    if (const AnswerCheck fault = checkFileName(m_file->name())) {
        showFault(m_session.GetSeams().prompts, *fault);
        return m_file->setFocus();
    }
    const ::FolderDefault& proposed = m_session.FolderDefaults[SaveFolder];
    if (m_file->folder() == proposed.folder)
        MakeProposedFolder(proposed);
    const bool isMade =
        Archive_NOW(m_session, pickedClass(), targetFile(m_file->folder(), m_file->name()));
    if (!isMade && m_session.CurrentDB.isOpen())
        return m_file->setFocus(); // what hinders it may be put right and tried again
    done(isMade ? Accepted : Rejected);
}

void ArchiveDialog::reject() {
    if (asksToCancelArchive(m_session.GetSeams().prompts))
        QDialog::reject();
}

void showArchiveDialog(Session& session, const QString& classCode) {
    const QPointer<QWidget> caller = QApplication::activeWindow();
    tryTelling(session.GetSeams().prompts, classesUnread, [&] {
        ArchiveDialog dialog(session, classCode, caller);
        dialog.exec();
    });
    // A window manager does not know who is next where a box and the dialog below it go at once.
    if (caller)
        caller->activateWindow();
}
