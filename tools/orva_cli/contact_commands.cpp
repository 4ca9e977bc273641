#include "contact_commands.h"

#include "organiser/address_book.h"

#include <QFileInfo>

ExitStatus importContacts(const Workplace& workplace, const Call& call) {
    AddressBook book(workplace.session);
    const QString csv = QFileInfo(call.arguments.constFirst()).absoluteFilePath();
    return book.open(call.file) && book.import_csv(csv) ? Done : Failed;
}
