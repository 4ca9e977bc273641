#include "frame/screens/splash_window.h"

#include "controls/colours.h"
#include "core/clock.h"
#include "core/version.h"

#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto ShownFor = 3s;

QLabel* line(const QString& text, double scale) {
    auto* label = new QLabel(text);
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * scale);
    label->setFont(font);
    label->setAlignment(Qt::AlignCenter);
    return label;
}

} // namespace

SplashWindow::SplashWindow(Clock& clock)
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                           Qt::WindowDoesNotAcceptFocus) {
    setObjectName(u"SplashORVA"_s);
    setWindowTitle(u"ORVA"_s);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::NoFocus);
    m_timer = clock.after(0s, [this, &clock] { appear(clock); });
}

void SplashWindow::appear(Clock& clock) {
    auto* layout = new QVBoxLayout(this);
    const int margin = fontMetrics().height() * 2;
    layout->setContentsMargins(margin * 2, margin, margin * 2, margin);
    layout->addWidget(line(u"ORVA"_s, 3));
    layout->addWidget(line(u"Version "_s + programVersion(), 1));
    setBackground(this, QColor(255, 255, 204));
    m_timer = clock.after(ShownFor, [this] { close(); });
    show();
}

void SplashWindow::mousePressEvent(QMouseEvent*) {
    close();
}
