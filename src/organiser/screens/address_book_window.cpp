#include "organiser/screens/address_book_window.h"

#include "controls/icons.h"
#include "core/prompts.h"
#include "core/session.h"
#include "organiser/contact_tree_model.h"
#include "organiser/screens/contact_panel.h"

#include <QCloseEvent>
#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QShortcut>
#include <QSplitter>
#include <QStackedWidget>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize bookSize(760, 520);
enum BookPage { FrontPage, ContactPage };
enum BookButton { NewContact, DeleteContact, SaveContact, MailClientImport, CsvImport };

} // namespace

AddressBookWindow::AddressBookWindow(Session& session)
    : m_session(session)
    , m_book(session)
    , m_model(new ContactTreeModel(this))
    , m_panel(new ContactPanel(session))
    , m_writing(*this, session.GetSeams(),
                {.what = u"The address book"_s, .save = [this] { return save(); }}) {
    setObjectName(u"ContactsFrm"_s);
    setWindowTitle(u"Address Book"_s);
    resize(bookSize);
    m_pages = new QStackedWidget;
    m_pages->addWidget(makeFrontPage());
    m_pages->addWidget(m_panel);
    auto* split = new QSplitter;
    split->setObjectName(u"PSplit"_s);
    split->setChildrenCollapsible(false);
    split->addWidget(makeTree());
    split->addWidget(m_pages);
    split->setStretchFactor(1, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(makeButtons());
    layout->addWidget(split, 1);
    connect(m_panel, &ContactPanel::edited, this, [this] {
        if (m_shown)
            m_writing.typed();
    });
    m_book.load_Contacts_DB();
    m_front->setText(m_book.frontPage().isEmpty()
                         ? u"Double click here to enter front page details"_s
                         : m_book.frontPage());
    loadTreeview();
    enableButtons();
    m_tree->setFocus();
}

AddressBookWindow::~AddressBookWindow() {
    m_writing.end();
}

QWidget* AddressBookWindow::makeTree() {
    m_tree = new QTreeView;
    m_tree->setObjectName(u"TV1"_s);
    m_tree->setAccessibleName(u"Contacts"_s);
    m_tree->setHeaderHidden(true);
    m_tree->setUniformRowHeights(true);
    m_tree->setModel(m_model);
    connect(m_tree->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &AddressBookWindow::selectionChanged);
    auto* erase = new QShortcut(Qt::Key_Delete, m_tree);
    erase->setContext(Qt::WidgetShortcut);
    connect(erase, &QShortcut::activated, this, &AddressBookWindow::deleteSelected);
    return m_tree;
}

QWidget* AddressBookWindow::makeFrontPage() {
    m_front = new QLabel;
    m_front->setObjectName(u"L3"_s);
    m_front->setAccessibleName(u"Front page"_s);
    m_front->setTextFormat(Qt::PlainText);
    m_front->setWordWrap(true);
    m_front->setAlignment(Qt::AlignCenter);
    m_front->setFocusPolicy(Qt::StrongFocus);
    m_front->installEventFilter(this);
    m_frontText = new QPlainTextEdit;
    m_frontText->setObjectName(u"T1"_s);
    m_frontText->setAccessibleName(u"Text of the front page"_s);
    m_frontText->setTabChangesFocus(true);
    m_frontText->hide();
    m_frontText->installEventFilter(this);
    connect(m_frontText, &QPlainTextEdit::textChanged, this, [this] { m_writing.typed(); });
    m_frontView = new QScrollArea; // however long the text is, the window keeps its size
    m_frontView->setFrameShape(QFrame::NoFrame);
    m_frontView->setFocusPolicy(Qt::NoFocus);
    m_frontView->setWidgetResizable(true);
    m_frontView->setWidget(m_front);
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(m_frontView, 1);
    layout->addWidget(m_frontText, 1);
    return page;
}

QLayout* AddressBookWindow::makeButtons() {
    struct Button {
        BookButton number;
        QString caption;
        QString icon;
        void (AddressBookWindow::*act)();
    };
    const Button buttons[] = {
        {NewContact, u"&New Contact..."_s, u"new"_s, &AddressBookWindow::addContact},
        {DeleteContact, u"&Delete"_s, u"delete"_s, &AddressBookWindow::deleteSelected},
        {SaveContact, u"&Save"_s, u"save"_s, &AddressBookWindow::saveAndShow},
        {MailClientImport, u"Import from &Outlook"_s, u"mail"_s,
         &AddressBookWindow::importFromMailClient},
        {CsvImport, u"&Import csv file (outlook express export)"_s, u"open"_s,
         &AddressBookWindow::importCsv},
    };
    auto* layout = new QHBoxLayout;
    for (const Button& button : buttons) {
        auto* made = new QPushButton(icon(button.icon), button.caption);
        made->setObjectName(u"FlatButton1(%1)"_s.arg(button.number));
        connect(made, &QPushButton::clicked, this, button.act);
        layout->addWidget(made);
        m_buttons.at(button.number) = made;
    }
    layout->addStretch();
    return layout;
}

void AddressBookWindow::loadTreeview() {
    const QScopedValueRollback loading(m_isLoading, true);
    if (m_book.isOpen())
        m_model->setEntries(m_book.entries());
}

void AddressBookWindow::enableButtons() {
    const QModelIndex at = m_tree->currentIndex();
    m_buttons[NewContact]->setEnabled(m_book.isOpen());
    m_buttons[DeleteContact]->setEnabled(m_book.isOpen() && at.isValid());
    m_buttons[SaveContact]->setEnabled(m_shown.has_value());
    m_buttons[MailClientImport]->setEnabled(m_book.isOpen());
    m_buttons[CsvImport]->setEnabled(m_book.isOpen());
}

void AddressBookWindow::selectionChanged() {
    if (m_isLoading)
        return;
    const ContactEntry* entry = m_model->entry(m_tree->currentIndex());
    if (entry && m_shown != entry->place) {
        const ContactEntry chosen = *entry;
        if (m_writing.leave())
            showContact(chosen);
        if (m_shown)
            select(*m_shown); // what was written may have brought the tree into another order
    }
    enableButtons();
}

void AddressBookWindow::showContact(const ContactEntry& entry) {
    const std::optional<Contact> contact = m_book.contact(entry);
    if (!contact)
        return;
    leaveFrontPage();
    m_shown = entry.place;
    m_kept = *contact;
    m_panel->show(m_kept);
    m_pages->setCurrentIndex(ContactPage);
}

/// Selects a contact in the tree without reading it again.
void AddressBookWindow::select(const dao::Bookmark& place) {
    const QScopedValueRollback loading(m_isLoading, true);
    const QModelIndex at = m_model->indexOf(place);
    if (!at.isValid())
        return;
    m_tree->expand(at.parent());
    m_tree->setCurrentIndex(at);
    m_tree->scrollTo(at, QAbstractItemView::PositionAtCenter);
}

/// Writes what stands in the panel and on the front page.
bool AddressBookWindow::save() {
    if (!m_book.isOpen())
        return true;
    if (m_frontText->isVisible() && !m_book.setFrontPage(m_frontText->toPlainText()))
        return false;
    const Contact now = m_panel->contact();
    if (!m_shown || now == m_kept)
        return true;
    if (!m_book.save(*m_shown, now))
        return false;
    const bool isRenamed = now[Forename] != m_kept[Forename] || now[Surname] != m_kept[Surname];
    m_kept = now;
    if (isRenamed) {
        loadTreeview();
        select(*m_shown);
    }
    return true;
}

void AddressBookWindow::saveAndShow() {
    m_book.tellAgain();
    if (!m_writing.save() || !m_shown)
        return;
    loadTreeview();
    select(*m_shown);
}

void AddressBookWindow::addContact() {
    if (!m_writing.leave())
        return;
    const QString name = m_session.GetSeams().prompts.input_box(
        u"Please enter the name of the new contact: \nE.g.  Alexander Morrow\nContacts are order "
        "alphebetically by Surname then Forename.\nFurther details for the contact may be entered "
        "once a contact name has been entered."_s,
        OkCancelButtons, u"Enter Contact Name:"_s, {});
    if (name.trimmed().isEmpty())
        return;
    const std::optional<dao::Bookmark> added = m_book.Add_new_contact(name);
    if (!added)
        return;
    loadTreeview();
    for (const ContactEntry& entry : m_book.entries()) {
        if (entry.place == *added)
            showContact(entry);
    }
    select(*added);
    enableButtons();
}

void AddressBookWindow::deleteSelected() {
    const QModelIndex at = m_tree->currentIndex();
    if (!at.isValid()) {
        m_session.GetSeams().prompts.msg_Box(u"You have not selected a Contact(s) to delete."_s,
                                             OkButton | WarningIcon, u"No contact selected."_s);
        return;
    }
    if (!m_writing.leave())
        return;
    const ContactEntry* entry = m_model->entry(m_tree->currentIndex());
    const bool isDeleted = entry ? m_book.deleteContact(*entry)
                                 : m_book.deleteGroup(m_model->letter(m_tree->currentIndex()));
    if (!isDeleted)
        return;
    m_shown.reset();
    m_panel->Empty_All_Fields();
    m_pages->setCurrentIndex(FrontPage);
    loadTreeview();
    enableButtons();
    m_tree->setFocus();
}

void AddressBookWindow::importFromMailClient() {
    if (!m_writing.leave())
        return;
    m_book.Extract_From_Outlook();
    loadTreeview();
    enableButtons();
}

/// What is read is always `addresses.csv` of the person's folder; another file that is named is
/// copied there first.
void AddressBookWindow::importCsv() {
    const QString path = m_book.folder() + u"addresses.csv"_s;
    Prompts& prompts = m_session.GetSeams().prompts;
    const QString answer =
        prompts
            .input_box(
                u"You can import the windows address book used in Outlook Express by first \n"
                "exporting the address book from Outlook Express to a csv file and then \n"
                "importing the csv file here.\n\nPlease enter the location of the csv file "
                "that is an Oulook Express export below:"_s,
                OkCancelButtons, u"CSV file import"_s, path)
            .trimmed();
    if (answer.isEmpty() || !m_writing.leave())
        return;
    const QFileInfo chosen(answer);
    if (chosen.isFile() && chosen != QFileInfo(path)) {
        QFile::remove(path);
        if (!QFile::copy(answer, path)) {
            prompts.msg_Box(u"The file could not be copied to:\n"_s + path, OkButton | WarningIcon,
                            u"CSV file import"_s);
            return;
        }
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
    }
    m_book.import_csv(path);
    loadTreeview();
    enableButtons();
}

void AddressBookWindow::editFrontPage() {
    m_frontText->setPlainText(m_book.frontPage());
    m_frontView->hide();
    m_frontText->show();
    m_frontText->setFocus();
}

void AddressBookWindow::leaveFrontPage() {
    if (!m_frontText->isVisible() || !m_writing.save())
        return;
    m_frontText->hide();
    m_front->setText(m_book.frontPage().isEmpty()
                         ? u"Double click here to enter front page details"_s
                         : m_book.frontPage());
    m_frontView->show();
}

bool AddressBookWindow::eventFilter(QObject* watched, QEvent* event) {
    const auto isKey = [event](Qt::Key key) {
        return event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == key;
    };
    if (watched == m_front && m_book.isOpen() &&
        (event->type() == QEvent::MouseButtonDblClick || isKey(Qt::Key_Return) ||
         isKey(Qt::Key_F2))) {
        editFrontPage();
        return true;
    }
    if (watched == m_frontText && event->type() == QEvent::FocusOut)
        leaveFrontPage();
    return QWidget::eventFilter(watched, event);
}

void AddressBookWindow::closeEvent(QCloseEvent* event) {
    event->setAccepted(m_writing.mayGo());
}
