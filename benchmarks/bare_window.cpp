// The least program with a main window: it shows the window and ends as soon as that is painted.

#include <QApplication>
#include <QMainWindow>
#include <QTimer>

namespace {

class BareWindow : public QMainWindow {
protected:
    void paintEvent(QPaintEvent* event) override {
        QMainWindow::paintEvent(event);
        QTimer::singleShot(0, qApp, &QApplication::quit);
    }
};

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    BareWindow window;
    window.resize(1024, 700); // as large as the frame starts
    window.show();
    return QApplication::exec();
}
