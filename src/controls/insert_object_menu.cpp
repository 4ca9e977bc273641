#include "controls/insert_object_menu.h"

#include "controls/equation_dialog.h"
#include "controls/focused_box.h"
#include "controls/icons.h"
#include "controls/rich_text_box.h"
#include "controls/room_in_box.h"
#include "controls/symbol_dialog.h"
#include "core/prompts.h"
#include "core/session.h"
#include "core/shell_services.h"
#include "richtext/object_files.h"
#include "richtext/objects.h"

#include <QPointer>

using namespace Qt::StringLiterals;

namespace {

void insertAt(RichTextBox& box, const richtext::EmbeddedObject& object) {
    QTextCursor cursor = box.textCursor();
    richtext::insertObject(cursor, object);
    box.setTextCursor(cursor);
}

} // namespace

InsertObjectMenu::InsertObjectMenu(Session& session, const FocusedBox& focused, QWidget* parent)
    : QMenu(u"Insert Object"_s, parent), m_session(session), m_focused(focused) {
    setIcon(::icon(u"insert_object"_s));
    addAction(::icon(u"equation"_s), u"Equation Editor"_s, this, &InsertObjectMenu::insertEquation);
    addAction(::icon(u"package"_s), u"Packager..."_s, this, &InsertObjectMenu::insertPackage);
    addAction(::icon(u"symbol"_s), u"Symbol..."_s, this, &InsertObjectMenu::insertSymbol);
    const auto enable = [this] {
        for (QAction* action : actions())
            action->setEnabled(m_focused.writableBox());
    };
    connect(&m_focused, &FocusedBox::changed, this, enable);
    enable();
}

void InsertObjectMenu::insertEquation() {
    const QPointer<RichTextBox> box = m_focused.writableBox();
    if (!box)
        return;
    const QString formula = EquationDialog(box).ask({});
    if (box && !formula.isEmpty())
        insertAt(*box, richtext::equation(formula));
}

void InsertObjectMenu::insertPackage() {
    const QPointer<RichTextBox> box = m_focused.writableBox();
    if (!box)
        return;
    const QString path = m_session.GetSeams().prompts.OpenFileDialog(
        u" Select the file to link to :"_s, {{u"All file types"_s, u"*.*"_s}},
        m_session.FolderDefaults[OpenFolder].folder, ExistingFileFlags, false);
    if (!box || path.isEmpty())
        return;
    const richtext::EmbeddedObject package = richtext::packageOf(path);
    if (package.source.isEmpty())
        return tell(u"The file could not be read:\n"_s + path);
    const qsizetype excess =
        box->excessAfter([&](QTextCursor& cursor) { richtext::insertObject(cursor, package); });
    if (excess > 0)
        tellNoRoom(m_session.GetSeams().prompts, *box, u"The file \"%1\""_s.arg(package.name),
                   excess);
    else
        insertAt(*box, package);
}

void InsertObjectMenu::insertSymbol() {
    const QPointer<RichTextBox> box = m_focused.writableBox();
    if (!box)
        return;
    const QString chosen = SymbolDialog(box).ask();
    if (!box || chosen.isEmpty())
        return;
    QTextCharFormat typing = box->currentCharFormat();
    typing.clearProperty(QTextFormat::ObjectType);
    const int start = box->selectionStart();
    box->setSelectedText(chosen.first(1));
    box->select(start, 1);
    box->setFontName(chosen.mid(1));
    box->select(start + 1, 0);
    box->setCurrentCharFormat(typing);
}

void InsertObjectMenu::openObject(RichTextBox& box) {
    const auto object = richtext::objectAt(box.textCursor());
    if (!object)
        return;
    if (object->className == u"Equation" && !object->name.isEmpty())
        editEquation(box, *object);
    else if (object->className == u"Package" && !object->name.isEmpty())
        openPackage(*object);
    else
        tell(u"This object was made by another program and can be opened there only."_s);
}

void InsertObjectMenu::editEquation(RichTextBox& box, const richtext::EmbeddedObject& object) {
    const QPointer<RichTextBox> kept = &box;
    const QString formula = EquationDialog(&box).ask(object.name);
    if (kept && !box.isReadOnly() && !formula.isEmpty() && formula != object.name)
        insertAt(box, richtext::equation(formula));
}

void InsertObjectMenu::openPackage(const richtext::EmbeddedObject& object) {
    const QString path = richtext::ObjectFiles::ofProcess(m_session.AppPath).write(object);
    if (path.isEmpty())
        tell(u"The file could not be opened, since there is no room to put it:\n"_s + object.name);
    else
        OpenForeignFile(path, m_session.GetSeams().shell, m_session.GetSeams().prompts);
}

void InsertObjectMenu::tell(const QString& text) {
    m_session.GetSeams().prompts.PlainBox(text, OkButton | WarningIcon, u"Insert Object"_s);
}
