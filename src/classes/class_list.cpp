#include "classes/class_list.h"

#include "classes/class_tables.h"
#include "core/prompts.h"
#include "store/engine/names.h"
#include "store/schema.h"
#include "store/table_names.h"
#include "store/table_structure.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

void addWhereMissing(const dao::Database& database, const QString& table, QStringView field) {
    dao::FieldCollection fields = database.TableDefs()[table].Fields();
    if (!fields.Contains(field))
        fields.Append(schemaField(Table::Class, field));
}

} // namespace

void UpdateClassTables(const dao::Database& database) {
    dao::Transaction transaction(database);
    for (const QString& table : database.TableDefs().names()) {
        if (!classOfClassTable(table))
            continue;
        addWhereMissing(database, table, u"Photo");
        addWhereMissing(database, table, u"PID");
    }
    if (!database.TableDefs().Contains(ClassTempTable))
        CreateClassTempTable(database);
    transaction.commit();
}

int classIndex(const QList<ClassColour>& classes, const QString& classCode) {
    const auto found =
        std::find_if(classes.begin(), classes.end(),
                     [&classCode](const ClassColour& each) { return each.code == classCode; });
    return found == classes.end() ? -1 : static_cast<int>(found - classes.begin());
}

void showNoClasses(Prompts& prompts) {
    prompts.PlainBox(u"There are no class codes available!\n"
                     "You can't use this facility untill a class code has been entered.\n"
                     "Please use the 'Create a New Database' function on the Startup Wizard."_s,
                     OkButton, u"NO CLASS CODES"_s);
}

void showNoPupils(Prompts& prompts, const QString& classCode) {
    // The stray quote at the end belongs to the text.
    prompts.PlainBox(u"There are currently no pupils entered for the classcode "_s + classCode +
                         u"\n\nPlease create a class list before continuing.\""_s,
                     OkButton, u"No Pupils"_s);
}
