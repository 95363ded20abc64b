#include "widgets/CVWrappingLayout.h"

#include <QHBoxLayout>
#include <QWidget>

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;

/// A widget with a preferred width and half of it as minimum.
class Box final : public QWidget {
public:
    explicit Box(int width, QWidget* parent) : QWidget(parent), mWidth(width) {
        setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    }

    [[nodiscard]] QSize sizeHint() const override { return {mWidth, 20}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return {mWidth / 2, 20}; }

private:
    int mWidth;
};

/// Three boxes of 100, 60 and 40 pixels, with gaps of 10 and a height of 20.
class CVWrappingLayoutTest : public testing::Test {
protected:
    CVWrappingLayoutTest() : mLayout(new CVWrappingLayout(&mWindow)) {
        mLayout->setSpacing(10);
        for (const int width : {100, 60, 40}) {
            mBoxes.push_back(new Box(width, &mWindow));
            mLayout->addWidget(mBoxes.back());
        }
    }

    std::vector<QRect> placesIn(int width) {
        mLayout->setGeometry(QRect(0, 0, width, 100));
        std::vector<QRect> places;
        for (const QWidget* const box : mBoxes)
            places.push_back(box->geometry());
        return places;
    }

    QWidget mWindow;
    CVWrappingLayout* mLayout;
    std::vector<QWidget*> mBoxes;
};

TEST_F(CVWrappingLayoutTest, PlacesItsPartsBesideEachOtherTheLastAtTheEdge) {
    EXPECT_THAT(placesIn(300), ElementsAre(QRect(0, 0, 100, 20), QRect(110, 0, 60, 20), QRect(260, 0, 40, 20)));
    EXPECT_EQ(mLayout->heightForWidth(300), 20);
    EXPECT_EQ(mLayout->sizeHint(), QSize(220, 20));
}

TEST_F(CVWrappingLayoutTest, SqueezesBeforeItWraps) {
    // All boxes have their minimum widths.
    EXPECT_THAT(placesIn(120), ElementsAre(QRect(0, 0, 50, 20), QRect(60, 0, 30, 20), QRect(100, 0, 20, 20)));
    // The boxes are squeezed by half of the possible amount.
    EXPECT_THAT(placesIn(170), ElementsAre(QRect(0, 0, 75, 20), QRect(85, 0, 45, 20), QRect(140, 0, 30, 20)));
}

TEST_F(CVWrappingLayoutTest, TakesAnotherLineForWhatHasNoRoom) {
    EXPECT_THAT(placesIn(119), ElementsAre(QRect(0, 0, 68, 20), QRect(78, 0, 41, 20), QRect(79, 30, 40, 20)));
    EXPECT_EQ(mLayout->heightForWidth(119), 50);
    EXPECT_EQ(mLayout->heightForWidth(50), 80);
    EXPECT_EQ(mLayout->minimumSize(), QSize(50, 20));
}

TEST_F(CVWrappingLayoutTest, IsMirroredFromRightToLeft) {
    mWindow.setLayoutDirection(Qt::RightToLeft);
    EXPECT_THAT(placesIn(300), ElementsAre(QRect(200, 0, 100, 20), QRect(130, 0, 60, 20), QRect(0, 0, 40, 20)));
}

TEST(CVWrappingLayout, PartsWithAStretchShareWhatIsLeft) {
    QWidget window;
    auto* const layout = new CVWrappingLayout(&window);
    layout->setSpacing(10);
    std::vector<Box*> boxes;
    for (const int stretch : {1, 3}) {
        boxes.push_back(new Box(50, &window));
        auto* const part = new QHBoxLayout;
        part->setContentsMargins(0, 0, 0, 0);
        part->addWidget(boxes.back());
        layout->addPart(part, stretch);
    }
    layout->setGeometry(QRect(0, 0, 150, 20));
    EXPECT_EQ(boxes[0]->geometry(), QRect(0, 0, 60, 20));
    EXPECT_EQ(boxes[1]->geometry(), QRect(70, 0, 80, 20));
}

} // namespace
