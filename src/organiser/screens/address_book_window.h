#pragma once

#include "controls/kept_writing.h"
#include "organiser/address_book.h"

#include <QWidget>

#include <array>

class ContactPanel;
class ContactTreeModel;
class QLabel;
class QPlainTextEdit;
class QPushButton;
class QScrollArea;
class QStackedWidget;
class QTreeView;
class Session;

/// The address book: a tree of contacts by their letters, and the selected one beside it. What is
/// typed is on disk two seconds later and before another contact is shown.
class AddressBookWindow : public QWidget {
    Q_OBJECT

public:
    explicit AddressBookWindow(Session& session);
    ~AddressBookWindow() override;

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* makeTree();
    QWidget* makeFrontPage();
    QLayout* makeButtons();
    void loadTreeview();
    void selectionChanged();
    void showContact(const ContactEntry& entry);
    void select(const dao::Bookmark& place);
    void addContact();
    void deleteSelected();
    void saveAndShow();
    void importFromMailClient();
    void importCsv();
    void editFrontPage();
    void leaveFrontPage();
    bool save();
    void enableButtons();

    Session& m_session;
    AddressBook m_book;
    ContactTreeModel* m_model;
    QTreeView* m_tree = nullptr;
    QStackedWidget* m_pages = nullptr;
    QScrollArea* m_frontView = nullptr;
    QLabel* m_front = nullptr;
    QPlainTextEdit* m_frontText = nullptr;
    ContactPanel* m_panel;
    std::array<QPushButton*, 5> m_buttons{}; ///< by their numbers
    std::optional<dao::Bookmark> m_shown;    ///< the contact in the panel
    Contact m_kept{};                        ///< as it is in the file
    bool m_isLoading = false;
    KeptWriting m_writing;
};
