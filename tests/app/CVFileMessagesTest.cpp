#include "app/CVFileMessages.h"

#include "kit/Printers.h"
#include "storage/CVSaveQueue.h"

#include <QTemporaryFile>

#include <gtest/gtest.h>

namespace {

CVSaveOutcome failedSave(const QString& path, bool diskIsFull) {
    CVSaveOutcome outcome;
    outcome.saved = false;
    outcome.path = path;
    outcome.message = "The budget could not be saved.";
    outcome.diskIsFull = diskIsFull;
    return outcome;
}

TEST(CVFileMessages, SayThatTheDiskIsFullAndWhatIsWhole) {
    QTemporaryFile file;
    ASSERT_TRUE(file.open());
    EXPECT_EQ(CVFileMessages::notSaved(failedSave(file.fileName(), true)),
              "the disk is full. Your last saved file is whole.");
    EXPECT_EQ(CVFileMessages::notSaved(failedSave("/nowhere", true)), "the disk is full.");
    EXPECT_EQ(CVFileMessages::notSaved(failedSave(file.fileName(), false)),
              "The budget could not be saved. Your last saved file is whole.");
    EXPECT_TRUE(CVFileMessages::quitUnsaved(failedSave(file.fileName(), true))
                    .message.startsWith("The disk is full. Your last saved file is whole. If you quit now"));
    EXPECT_TRUE(CVFileMessages::quitUnsaved(failedSave(file.fileName(), true), QTime(14, 2, 5))
                    .message.startsWith("Corvella tried again at 14:02:05, which failed too. The disk is full."));
}

} // namespace
