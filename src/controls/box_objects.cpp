#include "controls/box_objects.h"

#include "controls/equation_dialog.h"
#include "controls/rich_text_box.h"
#include "core/prompts.h"
#include "core/session.h"
#include "core/shell_services.h"
#include "richtext/object_files.h"
#include "richtext/objects.h"

#include <QPointer>

using namespace Qt::StringLiterals;

namespace {

void editEquation(RichTextBox& box, const richtext::EmbeddedObject& object) {
    const QPointer<RichTextBox> kept = &box;
    const QString formula = EquationDialog(&box).ask(object.name);
    if (kept && !box.isReadOnly() && !formula.isEmpty() && formula != object.name)
        insertObjectInBox(box, richtext::equation(formula));
}

void tellOfObject(const Session& session, const QString& text) {
    session.GetSeams().prompts.PlainBox(text, OkButton | WarningIcon, u"Insert Object"_s);
}

void openPackage(Session& session, const richtext::EmbeddedObject& object) {
    const QString path = richtext::ObjectFiles::ofProcess(session.AppPath).write(object);
    if (path.isEmpty())
        tellOfObject(session,
                     u"The file could not be opened, since there is no room to put it:\n"_s +
                         object.name);
    else
        OpenForeignFile(path, session.GetSeams().shell, session.GetSeams().prompts);
}

} // namespace

void insertObjectInBox(RichTextBox& box, const richtext::EmbeddedObject& object) {
    QTextCursor cursor = box.textCursor();
    richtext::insertObject(cursor, object);
    box.setTextCursor(cursor);
}

void openObjectOfBox(Session& session, RichTextBox& box) {
    const auto object = richtext::objectAt(box.textCursor());
    if (!object)
        return;
    if (object->className == u"Equation" && !object->name.isEmpty())
        editEquation(box, *object);
    else if (object->className == u"Package" && !object->name.isEmpty())
        openPackage(session, *object);
    else
        tellOfObject(session,
                     u"This object was made by another program and can be opened there only."_s);
}
