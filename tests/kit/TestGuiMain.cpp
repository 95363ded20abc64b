#include <QApplication>

#include <gmock/gmock.h>

int main(int argc, char** argv) {
    // No window of a test appears on the developer's screen.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleMock(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
