#include "support/screen_checks.h"

#include "controls/colours.h"

#include <QAccessible>
#include <QCheckBox>
#include <QDialog>
#include <QDir>
#include <QMenuBar>
#include <QPointer>
#include <QRadioButton>
#include <QTimer>

namespace {

std::string described(const QWidget& widget) {
    return std::string(widget.metaObject()->className()) + " '" +
           widget.objectName().toStdString() + "' of '" +
           widget.window()->objectName().toStdString() + "'";
}

QList<QWidget*> tabOrder(QWidget& window) {
    QList<QWidget*> order;
    for (QWidget* next = window.nextInFocusChain(); next != &window;
         next = next->nextInFocusChain()) {
        const bool reached = next->isVisibleTo(&window) && next->isEnabled() &&
                             next->window() == &window && !next->focusProxy() &&
                             (next->focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
        if (reached)
            order += next;
    }
    return order;
}

QRect placeIn(const QWidget& window, const QWidget& widget) {
    return {widget.mapTo(&window, QPoint()), widget.size()};
}

/// What overlaps in height stands in one line.
bool followsTheEye(const QRect& from, const QRect& to) {
    const bool rightOf = to.left() >= from.right();
    const bool below = to.top() >= from.bottom();
    return rightOf || below;
}

QPalette schemePalette(bool dark) {
    return dark ? QPalette(QColor(60, 60, 60), QColor(45, 45, 45))
                : QPalette(QColor(239, 239, 239));
}

} // namespace

void checkFocus(QWidget& window) {
    const QList<QWidget*> order = tabOrder(window);
    for (qsizetype i = 0; i < order.size(); ++i) {
        QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(order[i]);
        EXPECT_FALSE(!accessible || accessible->text(QAccessible::Name).trimmed().isEmpty())
            << "no accessible name: " << described(*order[i]);
        if (i == 0)
            continue;
        EXPECT_TRUE(followsTheEye(placeIn(window, *order[i - 1]), placeIn(window, *order[i])))
            << "Tab goes back from " << described(*order[i - 1]) << " to " << described(*order[i]);
    }
}

void checkLegible(QWidget& window) {
    constexpr double readable = 4.5;
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        // A tool button has no background of its own.
        const bool holdsText =
            qobject_cast<const QLabel*>(widget) || qobject_cast<const QLineEdit*>(widget) ||
            qobject_cast<const QPushButton*>(widget) || qobject_cast<const QCheckBox*>(widget) ||
            qobject_cast<const QRadioButton*>(widget);
        if (!holdsText || !widget->isVisibleTo(&window) || !widget->isEnabled())
            continue;
        const QPalette& palette = widget->palette();
        EXPECT_GE(contrast(palette.color(widget->foregroundRole()),
                           palette.color(widget->backgroundRole())),
                  readable)
            << described(*widget);
    }
}

void checkNothingCut(QWidget& window) {
    for (const QLabel* label : window.findChildren<QLabel*>()) {
        if (!label->isVisibleTo(&window))
            continue;
        const QSize needed =
            label->wordWrap() ? QSize(0, label->heightForWidth(label->width())) : label->sizeHint();
        EXPECT_TRUE(label->width() >= needed.width() && label->height() >= needed.height())
            << described(*label);
    }
}

void checkLetters(QWidget& window) {
    // Below the menus of the frame, unless it has them itself or stands apart.
    const bool isBelowMenus =
        !qobject_cast<QDialog*>(&window) && window.findChildren<QMenuBar*>().isEmpty();
    QString taken = isBelowMenus ? u"FVH"_s : QString();
    const auto take = [&](const QString& text) {
        const QKeySequence key = QKeySequence::mnemonic(text);
        if (key.isEmpty())
            return;
        const QChar letter = key.toString().back();
        EXPECT_FALSE(taken.contains(letter))
            << "twice underlined: " << text.toStdString() << " of " << described(window);
        taken += letter;
    };
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        if (!widget->isVisibleTo(&window) || widget->window() != window.window())
            continue;
        if (const auto* label = qobject_cast<const QLabel*>(widget); label && label->buddy()) {
            take(label->text());
            EXPECT_NE(label->buddy()->focusPolicy(), Qt::NoFocus) << described(*label->buddy());
        } else if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
            take(button->text());
        } else if (qobject_cast<const QMenuBar*>(widget)) {
            for (const QAction* action : widget->actions())
                take(action->text());
        }
    }
}

/// Enter presses the default button, also after the focus has been on another and gone on.
void checkDefaultButton(QWidget& window) {
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window)) << described(window);
    QPushButton* usual = nullptr;
    QPushButton* other = nullptr;
    for (QPushButton* button : window.findChildren<QPushButton*>()) {
        if (button->isDefault())
            usual = button;
        else if (button->isEnabled() && button->isVisible())
            other = button;
    }
    QWidget* focus = window.focusWidget();
    if (!usual || !other || !focus || qobject_cast<QPushButton*>(focus))
        return;
    other->setFocus(Qt::TabFocusReason);
    focus->setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(usual->isDefault()) << described(window);
}

void checkScreen(QWidget& window, const QString& name) {
    checkFocus(window);
    checkDefaultButton(window);
    checkLetters(window);
    const QPalette usual = QApplication::palette();
    for (const bool dark : {false, true}) {
        QApplication::setPalette(schemePalette(dark));
        QCoreApplication::processEvents();
        checkLegible(window);
        checkNothingCut(window);
        const QString folder = qEnvironmentVariable("ORVA_PICTURES");
        if (!folder.isEmpty()) {
            QDir().mkpath(folder);
            window.grab().save(u"%1/%2_%3.png"_s.arg(folder, name, dark ? u"dark"_s : u"light"_s));
        }
    }
    QApplication::setPalette(usual);
}

void whenAsked(const std::function<void(QWidget&)>& act) {
    QTimer::singleShot(0, qApp, [act] {
        const QPointer<QWidget> window = QApplication::activeModalWidget();
        if (!window) {
            ADD_FAILURE() << "no window waits";
            return;
        }
        act(*window);
        if (!window || !window->isVisible())
            return;
        ADD_FAILURE() << "still open: " << described(*window);
        qobject_cast<QDialog*>(window)->done(QDialog::Rejected);
    });
}

void press(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QWidget* focus = window.focusWidget();
    QTest::keyClick(focus ? focus : &window, key, modifiers);
}
