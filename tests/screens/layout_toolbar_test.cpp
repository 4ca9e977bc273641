#include "controls/layout_toolbar.h"

#include "controls/colours.h"
#include "controls/icons.h"
#include "support/screen_checks.h"

#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>

namespace {

/// The strongest contrast of a pixel of the icon against a background.
double strongest(const QIcon& icon, const QColor& background) {
    const QImage image = icon.pixmap(24, 24).toImage();
    double best = 1;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y).alpha() > 200)
                best = std::max(best, contrast(image.pixelColor(x, y), background));
        }
    }
    return best;
}

} // namespace

TEST(LayoutToolbar, TheKeyboardReachesEveryButtonOverOneStop) {
    QWidget window;
    auto* layout = new QHBoxLayout(&window);
    auto* line = new QLineEdit;
    line->setAccessibleName(u"Before"_s);
    auto* bar = new LayoutToolbar(u"Keys"_s, u"BB|B"_s, u"One|Two|Three"_s, u"bold|cut|copy"_s);
    auto* after = new QPushButton(u"After"_s);
    layout->addWidget(line);
    layout->addWidget(bar);
    layout->addWidget(after);
    bar->button(0)->setEnabled(false);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    line->setFocus();
    const struct {
        Qt::Key key;
        QString focus;
    } steps[] = {
        {Qt::Key_Tab, u"Keys(1)"_s},   {Qt::Key_Left, u"Keys(1)"_s}, {Qt::Key_Right, u"Keys(2)"_s},
        {Qt::Key_Right, u"Keys(2)"_s}, {Qt::Key_Home, u"Keys(1)"_s}, {Qt::Key_End, u"Keys(2)"_s},
    };
    for (const auto& [key, focus] : steps) {
        press(window, key);
        ASSERT_EQ(window.focusWidget()->objectName(), focus) << key;
    }
    press(window, Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), after);
    press(window, Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(window.focusWidget()->objectName(), u"Keys(2)"_s);
    checkScreen(window, u"layout_toolbar"_s);
}

TEST(LayoutToolbar, AToggleIsTheCommandByEveryRoad) {
    LayoutToolbar bar(u"Keys"_s, u"B"_s, u"One"_s, u"bold"_s);
    QAction& action = *bar.button(0);
    action.setCheckable(true);
    auto& widget = *qobject_cast<QToolButton*>(bar.widgetForAction(&action));
    int commands = 0;
    QObject::connect(&action, &QAction::triggered, &bar, [&] { ++commands; });
    const auto commandsOf = [&](const std::function<void()>& road) {
        commands = 0;
        road();
        QCoreApplication::processEvents();
        return commands;
    };
    EXPECT_EQ(commandsOf([&] { widget.click(); }), 1);
    EXPECT_EQ(commandsOf([&] { widget.toggle(); }), 1); // as a screen reader does
    EXPECT_EQ(commandsOf([&] { widget.toggle(); }), 1);
    EXPECT_EQ(commandsOf([&] { action.trigger(); }), 1);
    EXPECT_EQ(commandsOf([&] { action.setChecked(true); }), 0);
    EXPECT_EQ(commandsOf([&] { action.setChecked(false); }), 0);
}

TEST(Icons, AllReadInLightAndDark) {
    const QPalette usual = QApplication::palette();
    const QStringList files = QDir(u":/icons"_s).entryList();
    ASSERT_FALSE(files.isEmpty());
    for (const QColor& background : {QColor(239, 239, 239), QColor(60, 60, 60)}) {
        QApplication::setPalette(QPalette(background));
        for (const QString& file : files)
            EXPECT_GE(strongest(icon(QFileInfo(file).baseName()), background), 3)
                << file.toStdString();
    }
    QApplication::setPalette(usual);
    EXPECT_TRUE(icon(u"no such icon"_s).isNull());
}
