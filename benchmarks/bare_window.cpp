// The least program with a main window, of the size of the program's frame, as the memory of what
// it shows takes its time too. It ends as soon as the window is painted.

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
    window.showMaximized();
    return QApplication::exec();
}
