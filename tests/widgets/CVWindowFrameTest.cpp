#include "widgets/CVWindowFrame.h"

#include <QApplication>
#include <QScreen>
#include <QWidget>

#include <gtest/gtest.h>

namespace {

QByteArray frameOf(const QRect& place) {
    QWidget window;
    window.setGeometry(place);
    return window.saveGeometry();
}

TEST(CVWindowFrame, ComesBackWhereItWas) {
    QWidget window;
    CVWindowFrame::restore(window, frameOf({30, 50, 400, 300}), {500, 500});
    EXPECT_EQ(window.geometry(), QRect(30, 50, 400, 300));
}

TEST(CVWindowFrame, OfAnotherScreenIsBroughtIntoThisOne) {
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    for (const QRect& place :
         {QRect(30, 50, screen.width() * 2, screen.height() * 2), QRect(30, 50, screen.width(), screen.height()),
          QRect(screen.right() - 50, 50, 400, 300), QRect(30, screen.bottom() - 50, 400, 300)}) {
        QWidget window;
        CVWindowFrame::restore(window, frameOf(place), {500, 500});
        EXPECT_TRUE(screen.contains(window.geometry())) << place.width() << 'x' << place.height();
        EXPECT_LE(window.width(), CVWindowFrame::largestSize(window).width());
        EXPECT_LE(window.height(), CVWindowFrame::largestSize(window).height());
        EXPECT_LT(window.height(), screen.height()) << "no room for the title";
    }
}

TEST(CVWindowFrame, OfAFirstWindowIsNoLargerThanTheScreen) {
    QWidget window;
    CVWindowFrame::restore(window, {}, {400, 5000});
    EXPECT_EQ(window.size(), QSize(400, CVWindowFrame::largestSize(window).height()));
}

} // namespace
