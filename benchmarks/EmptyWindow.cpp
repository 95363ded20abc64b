#include <QApplication>
#include <QMainWindow>

/// The least that a program with a window does: the yardstick of what Corvella takes to start.
int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QMainWindow window;
    window.setWindowTitle(QStringLiteral("Empty Window"));
    window.show();
    return QApplication::exec();
}
