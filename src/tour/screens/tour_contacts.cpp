#include "tour/screens/tour_contacts.h"

#include "core/session.h"
#include "frame/screens/main_window.h"
#include "organiser/address_book.h"
#include "organiser/contact_tree_model.h"
#include "organiser/screens/address_book_window.h"
#include "tour/screens/tour_pictures.h"

#include <QTreeView>

using namespace Qt::StringLiterals;

void visitContacts(Session& session, MainWindow& frame, TourPictures& pictures) {
    {
        AddressBook book(session);
        if (!book.load_Contacts_DB())
            return;
        if (book.entries().isEmpty()) {
            for (const QString& name :
                 {u"Grace Okafor"_s, u"Tom Baker"_s, u"Élodie Étienne"_s, u"Sam O'Brien"_s})
                book.Add_new_contact(name);
        }
        const ContactEntry last = book.entries().last();
        Contact contact = book.contact(last).value_or(Contact());
        contact[HomeAddress] = u"12 Mill Lane\nWesthaven"_s;
        contact[HomePostcode] = u"WH3 4QT"_s;
        contact[HomeTelephone] = u"01632 960 112"_s;
        contact[HomeEmail1] = u"sam.obrien@example.org"_s;
        book.save(last.place, contact);
    }
    frame.open(ToolWindow::AddressBook);
    if (auto* window = frame.findChild<AddressBookWindow*>()) {
        auto* tree = window->findChild<QTreeView*>(u"TV1"_s);
        tree->expandAll();
        tree->setCurrentIndex(tree->model()->index(0, 0, tree->model()->index(u'O' - u'A', 0)));
        pictures.save(frame, u"ContactsFrm"_s);
    }
    frame.CloseOpenForms();
}
