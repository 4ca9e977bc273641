#include "tour/screens/tour_menu.h"

#include "core/session.h"
#include "core/settings.h"
#include "frame/screens/main_window.h"
#include "tour/screens/tour_pictures.h"
#include "user_menu/screens/menu_editor.h"
#include "user_menu/user_menu.h"

#include <QTreeView>

using namespace Qt::StringLiterals;

void visitMenuEditor(Session& session, MainWindow& frame, TourPictures& pictures) {
    saveUserMenu(session.GetSettings(),
                 {.caption = RootMenuCaption.toString(),
                  .menus = {{.caption = u"Maths"_s,
                             .shortcuts = {{u"Graph plotter"_s,
                                            u"/usr/share/applications/plotter.desktop"_s},
                                           {u"Scheme of work"_s, u"/home/teacher/scheme.odt"_s}}},
                            {.caption = u"Tutor group"_s}},
                  .shortcuts = {{u"School's web page"_s, u"https://school.example.org"_s}}});
    frame.open(ToolWindow::UserTools);
    if (auto* editor = frame.findChild<MenuEditor*>()) {
        editor->findChild<QTreeView*>(u"TV1"_s)->expandAll();
        pictures.save(*editor, u"mnuEditor"_s);
    }
    frame.CloseOpenForms();
}
