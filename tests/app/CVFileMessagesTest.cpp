#include "app/CVFileMessages.h"

#include "kit/Printers.h"
#include "storage/CVSaveQueue.h"
#include "versions/CVKeptCopy.h"
#include "versions/CVVersionFolder.h"

#include <QTemporaryDir>
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

TEST(CVFileMessages, OfferToDeleteEarlierVersionsOnlyWhereThatMakesRoom) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("Corvella Data.corvella");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    const QString whole = "the disk is full. Your last saved file is whole.";
    EXPECT_EQ(CVFileMessages::notSaved(failedSave(path, true)), whole);
    EXPECT_FALSE(CVFileMessages::canMakeRoom(failedSave(path, true)));
    ASSERT_TRUE(CVVersionFolder(path).keepCopy(path, CVVersionReason::Removal, QDateTime::currentDateTime()).ok());
    EXPECT_EQ(CVFileMessages::notSaved(failedSave(path, true)), whole + " Deleting earlier versions makes room.");
    EXPECT_TRUE(CVFileMessages::quitUnsaved(failedSave(path, true))
                    .message.contains("is whole. Deleting earlier versions makes room. To do that, choose Cancel, then "
                                      "Delete Earlier Versions… in the window. If you quit now"));
    EXPECT_FALSE(CVFileMessages::canMakeRoom(failedSave(path, false)));
    EXPECT_FALSE(CVFileMessages::quitUnsaved(failedSave(path, false)).message.contains("versions"));
    ASSERT_TRUE(CVVersionFolder(path).removeAll().ok());
    ASSERT_TRUE(CVKeptCopy::keep(path, CVKeptReason::Unreadable, QDateTime::currentDateTime()).result.ok());
    EXPECT_TRUE(CVFileMessages::canMakeRoom(failedSave(path, true))) << "kept copies take room too";
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
