#include "frame/screens/accessible_program.h"

#include <QAccessible>
#include <QAccessibleObject>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QWindow>

#include <algorithm>

namespace {

/// Whether a menu hangs on no bar and no other menu.
bool isContextMenu(const QMenu& menu) {
    const QObjectList holders = menu.menuAction()->associatedObjects();
    return std::none_of(holders.begin(), holders.end(), [](const QObject* holder) {
        return qobject_cast<const QMenuBar*>(holder) || qobject_cast<const QMenu*>(holder);
    });
}

/// The root of the tree: the windows, as the toolkit lists them, and the open context menus.
class ProgramInterface : public QAccessibleObject {
public:
    using QAccessibleObject::QAccessibleObject;

    QAccessibleInterface* parent() const override { return nullptr; }
    int childCount() const override { return static_cast<int>(children().size()); }
    QAccessibleInterface* child(int index) const override { return children().value(index); }
    int indexOfChild(const QAccessibleInterface* child) const override {
        const QList<QAccessibleInterface*> all = children();
        const auto isChild = [child](const QAccessibleInterface* each) {
            return each->object() == child->object();
        };
        const auto found = std::find_if(all.begin(), all.end(), isChild);
        return found == all.end() ? -1 : static_cast<int>(found - all.begin());
    }
    QAccessibleInterface* focusChild() const override {
        return QAccessible::queryAccessibleInterface(QApplication::focusWidget());
    }
    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? QCoreApplication::applicationName() : QString();
    }
    QAccessible::Role role() const override { return QAccessible::Application; }
    QAccessible::State state() const override { return {}; }

private:
    static QList<QAccessibleInterface*> children() {
        QList<QAccessibleInterface*> all;
        for (const QWindow* window : QGuiApplication::topLevelWindows()) {
            if (window->type() == Qt::Popup || window->type() == Qt::Desktop)
                continue;
            if (QAccessibleInterface* root = window->accessibleRoot())
                all += root;
        }
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            auto* menu = qobject_cast<QMenu*>(widget);
            if (menu && menu->isVisible() && isContextMenu(*menu))
                all += QAccessible::queryAccessibleInterface(menu);
        }
        return all;
    }
};

QAccessibleInterface* makeInterface(const QString& key, QObject* object) {
    return key == u"QApplication" ? new ProgramInterface(object) : nullptr;
}

} // namespace

void showContextMenusToAssistiveTools() {
    QAccessible::installFactory(makeInterface);
}
