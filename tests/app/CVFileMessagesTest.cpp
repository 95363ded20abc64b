#include "app/CVFileMessages.h"

#include "kit/Printers.h"
#include "storage/CVSaveQueue.h"

#include <gtest/gtest.h>

namespace {

/// A save that failed because the disk is full.
CVSaveOutcome fullDisk(bool isThere, bool canMakeRoom = false) {
    CVSaveOutcome outcome;
    outcome.saved = false;
    outcome.message = "The budget could not be saved.";
    outcome.diskIsFull = true;
    outcome.isThere = isThere;
    outcome.canMakeRoom = canMakeRoom;
    return outcome;
}

TEST(CVFileMessages, SayThatTheDiskIsFullAndWhatIsWhole) {
    EXPECT_EQ(CVFileMessages::notSaved(fullDisk(true)), "the disk is full. Your last saved file is whole.");
    EXPECT_EQ(CVFileMessages::notSaved(fullDisk(false)), "the disk is full.");
    CVSaveOutcome other = fullDisk(true);
    other.diskIsFull = false;
    EXPECT_EQ(CVFileMessages::notSaved(other), "The budget could not be saved. Your last saved file is whole.");
    other.awaitsReadable = true;
    EXPECT_EQ(CVFileMessages::notSaved(other), "The budget could not be saved.") << "what stands there is another's";
    EXPECT_TRUE(CVFileMessages::quitUnsaved(fullDisk(true))
                    .message.startsWith("The disk is full. Your last saved file is whole. If you quit now"));
    EXPECT_TRUE(CVFileMessages::quitUnsaved(fullDisk(true), QTime(14, 2, 5))
                    .message.startsWith("Corvella tried again at 14:02:05, which failed too. The disk is full."));
}

TEST(CVFileMessages, OfferToDeleteEarlierVersionsOnlyWhereThatMakesRoom) {
    EXPECT_EQ(CVFileMessages::notSaved(fullDisk(true, true)),
              "the disk is full. Your last saved file is whole. Deleting earlier versions makes room.");
    EXPECT_TRUE(CVFileMessages::quitUnsaved(fullDisk(true, true))
                    .message.contains("is whole. Deleting earlier versions makes room. To do that, choose Cancel, then "
                                      "Delete Earlier Versions… in the window. If you quit now"));
    EXPECT_FALSE(CVFileMessages::quitUnsaved(fullDisk(true)).message.contains("versions"));
}

TEST(CVFileMessages, SayWhyACopyWasKeptAndWhere) {
    struct Row {
        CVKeptReason reason;
        const char* title;
    };
    for (const auto& [reason, title] : {Row{CVKeptReason::Unreadable, "The file that could not be read was kept"},
                                        Row{CVKeptReason::ChangedOutside, "What was changed outside Corvella was kept"},
                                        Row{CVKeptReason::AsItWasRead, "Your data file was kept as it was read"},
                                        Row{CVKeptReason::ReplacedWhenMoved, "The file that you replaced was kept"}}) {
        CVSaveOutcome outcome;
        outcome.keptCopy = "/folder/copy";
        outcome.keptReason = reason;
        const CVAlert alert = CVFileMessages::keptCopy(outcome);
        EXPECT_EQ(alert.title, title);
        EXPECT_TRUE(alert.message.contains("kept in “/folder/copy”") ||
                    alert.message.contains("kept whole in “/folder/copy”"))
            << alert.message.toStdString();
        EXPECT_EQ(alert.alternateButton, "") << "there is nothing to decide";
    }
}

} // namespace
