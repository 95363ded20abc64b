#include <QApplication>

#include <gmock/gmock.h>

int main(int argc, char** argv) {
    // No window of a test ever appears on the screen of whoever runs it.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleMock(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
