#include "controls/edit_menu.h"

#include "controls/focused_box.h"
#include "controls/icons.h"
#include "controls/rich_text_box.h"
#include "controls/spelling_marks.h"
#include "richtext/objects.h"

#include <QTextDocument>

using namespace Qt::StringLiterals;

EditMenu::EditMenu(const FocusedBox& focused, QWidget* parent)
    : QMenu(u"&Edit"_s, parent), m_focused(focused) {
    setObjectName(u"mnuEdit"_s);
    addEditActions();
    connect(this, &QMenu::aboutToShow, this, &EditMenu::refresh);
}

void EditMenu::addEditActions() {
    // The box itself hears these keys, so they are shown as text.
    const auto add = [this](const QString& iconName, const QString& text, auto run) {
        QAction* action = addAction(::icon(iconName), text);
        connect(action, &QAction::triggered, this, [this, run] {
            if (RichTextBox* box = m_focused.box())
                run(*box);
        });
        return action;
    };
    m_undo = add(u"undo"_s, u"Undo\tCtrl+Z"_s, [](RichTextBox& box) { box.undo(); });
    m_redo = add(u"redo"_s, u"Redo\tCtrl+Y, Ctrl+Shift+Z"_s, [](RichTextBox& box) { box.redo(); });
    addSeparator();
    QAction* cut = add(u"cut"_s, u"Cut\tCtrl+X"_s, [](RichTextBox& box) { box.cut(); });
    QAction* copy = add(u"copy"_s, u"Copy\tCtrl+C"_s, [](RichTextBox& box) { box.copy(); });
    m_paste = add(u"paste"_s, u"Paste\tCtrl+V"_s, [](RichTextBox& box) { box.paste(); });
    QAction* remove = add(u"delete"_s, u"Delete\tDel"_s,
                          [](RichTextBox& box) { box.textCursor().removeSelectedText(); });
    m_ofSelection = {cut, copy, remove};
    addSeparator();
    m_selectAll =
        add(u"select_all"_s, u"Select All\tCtrl+A"_s, [](RichTextBox& box) { box.selectAll(); });
    addSeparator();
}

void EditMenu::addSelectionAction(QAction* action) {
    if (!m_selectionMenu)
        m_selectionMenu = addMenu(u"Selection"_s);
    m_selectionMenu->addAction(action);
    m_ofSelection += action;
}

void EditMenu::refresh() {
    qDeleteAll(m_ofCaret);
    m_ofCaret.clear();
    const RichTextBox* box = m_focused.box();
    const bool isWritable = box && box == m_focused.writableBox();
    const bool hasSelection = box && box->selectionLength() > 0;
    m_undo->setEnabled(isWritable && box->document()->isUndoAvailable());
    m_redo->setEnabled(isWritable && box->document()->isRedoAvailable());
    m_paste->setEnabled(isWritable && box->canPaste());
    m_selectAll->setEnabled(box && !box->document()->isEmpty());
    for (QAction* action : std::as_const(m_ofSelection))
        action->setEnabled(hasSelection);
    for (QAction* action : {m_ofSelection[0], m_ofSelection[2]})
        action->setEnabled(hasSelection && isWritable);
    if (box)
        addObject();
    if (isWritable)
        addSpelling();
    if (!m_ofCaret.isEmpty()) {
        m_ofCaret += insertSeparator(m_undo);
    }
}

QAction* EditMenu::addOnTop(const QString& text) {
    auto* action = new QAction(text, this);
    insertAction(m_undo, action);
    m_ofCaret += action;
    return action;
}

void EditMenu::addObject() {
    RichTextBox* box = m_focused.box();
    const auto object = richtext::objectAt(box->textCursor());
    if (!object)
        return;
    QAction* open = addOnTop(u"Open Object"_s);
    open->setIcon(::icon(u"link_open"_s));
    connect(open, &QAction::triggered, box, &RichTextBox::objectActivated);
}

void EditMenu::addSpelling() {
    RichTextBox* box = m_focused.box();
    const QTextCursor mistake = box->spelling().mistakeAt(box->textCursor());
    if (!mistake.hasSelection())
        return;
    const QString word = mistake.selectedText();
    for (const QString& suggestion : box->spelling().suggestions(word)) {
        QAction* action = addOnTop(suggestion);
        QFont font = action->font();
        font.setBold(true);
        action->setFont(font);
        connect(action, &QAction::triggered, box, [mistake, suggestion] {
            QTextCursor place = mistake;
            place.insertText(suggestion, place.charFormat());
        });
    }
    QAction* accept = addOnTop(u"Ignore This Word"_s);
    accept->setIcon(::icon(u"spelling"_s));
    connect(accept, &QAction::triggered, box, [box, word] { box->spelling().accept(word); });
}
