#include "organiser/mail_contacts.h"

namespace {

Contact contactOfMail(const MailContact& from) {
    Contact contact;
    contact[Forename] = from.FirstName;
    contact[Surname] = from.LastName;
    contact[HomeAddress] = from.HomeAddress;
    contact[HomePostcode] = from.HomeAddressPostalCode;
    contact[HomeEmail1] = from.Email1Address;
    contact[HomeTelephone] = from.HomeTelephoneNumber;
    contact[MobilePhone] = from.MobileTelephoneNumber;
    contact[HomeFax] = from.HomeFaxNumber;
    contact[WorkAddress] = from.BusinessAddress;
    contact[WorkPostcode] = from.BusinessAddressPostalCode;
    contact[WorkPhone] = from.BusinessTelephoneNumber;
    contact[WorkFax] = from.BusinessFaxNumber;
    contact[WorkEmail] = from.Email2Address;
    return contact;
}

} // namespace

QList<Contact> contactsOfMail(const QList<MailContact>& contacts) {
    QList<Contact> named;
    for (const MailContact& contact : contacts) {
        if (!contact.FirstName.isEmpty() && !contact.LastName.isEmpty())
            named += contactOfMail(contact);
    }
    return named;
}
