#include "budget/CVGridColumns.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(CVGridColumns, AreAllInTheTableAtFirst) {
    const CVGridColumns columns(7);
    EXPECT_THAT(columns.shown(), ElementsAre(1, 2, 3, 4, 5, 6, 7));
    EXPECT_THAT(columns.spare(), IsEmpty());
}

TEST(CVGridColumns, TakeOutTheLastOnesInTheirOrder) {
    CVGridColumns columns(7);
    columns.configure(4);
    EXPECT_THAT(columns.shown(), ElementsAre(1, 2, 3, 4));
    EXPECT_THAT(columns.spare(), ElementsAre(5, 6, 7));
}

TEST(CVGridColumns, ComeBackInTheirFormerOrder) {
    CVGridColumns columns(7);
    columns.configure(4);
    columns.configure(7);
    EXPECT_THAT(columns.shown(), ElementsAre(1, 2, 3, 4, 5, 6, 7));
    EXPECT_THAT(columns.spare(), IsEmpty());
}

TEST(CVGridColumns, TakenOutLaterStandAheadOfThoseTakenOutBefore) {
    CVGridColumns columns(7);
    columns.configure(5);
    columns.configure(2);
    EXPECT_THAT(columns.spare(), ElementsAre(3, 4, 5, 6, 7));
    columns.configure(4);
    EXPECT_THAT(columns.shown(), ElementsAre(1, 2, 3, 4));
    EXPECT_THAT(columns.spare(), ElementsAre(5, 6, 7));
}

TEST(CVGridColumns, StayAsTheyAreWhenAsManyAreWanted) {
    CVGridColumns columns(7);
    columns.configure(4);
    columns.configure(4);
    EXPECT_THAT(columns.shown(), ElementsAre(1, 2, 3, 4));
    EXPECT_THAT(columns.spare(), ElementsAre(5, 6, 7));
}

TEST(CVGridColumns, ComeBackOnlyAsFarAsThereAreAny) {
    CVGridColumns columns(3);
    columns.configure(0);
    EXPECT_THAT(columns.shown(), IsEmpty());
    columns.configure(9);
    EXPECT_THAT(columns.shown(), ElementsAre(1, 2, 3));
    EXPECT_THAT(columns.spare(), IsEmpty());
}

} // namespace
