// The editor of the person's own menu, and the popup of the tools button.

#include "core/settings.h"
#include "support/screen_planning.h"
#include "user_menu/screens/menu_editor.h"
#include "user_menu/screens/tools_popup.h"

#include <QMenu>
#include <QTreeView>

namespace {

class MenuEditorTest : public PlanningScreen<MenuEditor, ToolWindow::UserTools> {
protected:
    void add(const char* button, const QString& caption) {
        seams.prompts.expect(PromptKind::Input, u"Create Sub Menu"_s, caption);
        on<QPushButton>(button).click();
    }
    QTreeView& tree() { return on<QTreeView>("TV1"); }
};

QStringList captionsOf(const QMenu& menu) {
    QStringList captions;
    for (const QAction* action : menu.actions())
        captions += action->isSeparator() ? u"-"_s : action->text();
    return captions;
}

} // namespace

TEST_F(MenuEditorTest, AMenuIsMadeMovedAndSavedByTheKeyboard) {
    open();
    add("mnuBtn(0)", u"Plans"_s);
    seams.prompts.expect(PromptKind::Link, u"Create a File Link"_s,
                         LinkAnswer{u"Timetable & rooms"_s, u"/rooms.pdf"_s});
    on<QPushButton>("mnuBtn(1)").click();
    checkScreen(*window, u"mnuEditor"_s);

    tree().setFocus();
    press(tree(), Qt::Key_X, Qt::ControlModifier);
    press(tree(), Qt::Key_Home);
    press(tree(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(tree().currentIndex().data().toString(), u"Timetable & rooms"_s);
    EXPECT_EQ(tree().currentIndex().parent().data().toString(), u"Root Menu"_s);
    on<QPushButton>("mnuSave").click();

    QMenu popup;
    auto* command = popup.addAction(u"Change"_s);
    command->setParent(this->frame.get());
    fillToolsPopup(session, popup);
    fillToolsPopup(session, popup);
    EXPECT_EQ(captionsOf(popup), (QStringList{u"Shortcuts"_s, u"-"_s, u"Change"_s, u"-"_s,
                                              u"Batery Status..."_s, u"System Standby"_s}));
    const QMenu* shortcuts = popup.actions().first()->menu();
    EXPECT_EQ(captionsOf(*shortcuts),
              (QStringList{u"Menu Editor..."_s, u"-"_s, u"Plans"_s, u"Timetable && rooms"_s}));
}

TEST_F(MenuEditorTest, NothingIsDeletedOrLostUnasked) {
    open();
    seams.prompts.expect(PromptKind::Message, u"Can't delete"_s, AnswerOk);
    on<QPushButton>("mnuBtn(2)").click();
    add("mnuBtn(0)", u"Plans"_s);
    seams.prompts.expect(PromptKind::Message, u"Delete Menu"_s, BoxAnswer{AnswerNo, true});
    on<QPushButton>("mnuBtn(2)").click();
    EXPECT_EQ(tree().currentIndex().data().toString(), u"Plans"_s);
    seams.prompts.expect(PromptKind::Message, u"Users Menu Editor"_s, AnswerCancel);
    EXPECT_FALSE(window->close());
    seams.prompts.expect(PromptKind::Message, u"Delete Menu"_s, BoxAnswer{AnswerYes, true});
    on<QPushButton>("mnuBtn(2)").click();
    add("mnuBtn(0)", u"Plans"_s);
    on<QPushButton>("mnuBtn(2)").click();
    EXPECT_EQ(tree().currentIndex().data().toString(), u"Root Menu"_s);
}
