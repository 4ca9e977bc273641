#include "controls/insert_object_menu.h"

#include "controls/box_objects.h"
#include "controls/equation_dialog.h"
#include "controls/focused_box.h"
#include "controls/icons.h"
#include "controls/rich_text_box.h"
#include "controls/room_in_box.h"
#include "controls/symbol_dialog.h"
#include "core/prompts.h"
#include "core/session.h"
#include "richtext/objects.h"

#include <QPointer>

using namespace Qt::StringLiterals;

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
        insertObjectInBox(*box, richtext::equation(formula));
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
    if (package.source.isEmpty()) {
        m_session.GetSeams().prompts.PlainBox(u"The file could not be read:\n"_s + path,
                                              OkButton | WarningIcon, u"Insert Object"_s);
        return;
    }
    const qsizetype excess =
        box->excessAfter([&](QTextCursor& cursor) { richtext::insertObject(cursor, package); });
    if (excess > 0)
        tellNoRoom(m_session.GetSeams().prompts, *box, u"The file \"%1\""_s.arg(package.name),
                   excess);
    else
        insertObjectInBox(*box, package);
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
