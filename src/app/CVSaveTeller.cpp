#include "app/CVSaveTeller.h"

#include "app/CVFileMessages.h"
#include "storage/CVSaveQueue.h"
#include "workspace/CVMainWindowController.h"
#include "workspace/controls/CVSaveStatus.h"

#include <QMainWindow>
#include <QStringList>

void CVSaveTeller::tell(const CVSaveOutcome& outcome, const CVMainWindowController& window, bool isSaving,
                        QWidget* mover) {
    CVSaveStatus& status = window.saveStatus();
    if (!outcome.saved)
        status.setFailed(CVFileMessages::notSaved(outcome),
                         outcome.canMakeRoom ? CVSaveStatus::MakeRoom::Yes : CVSaveStatus::MakeRoom::No);
    else if (!isSaving)
        status.setSaved();
    // The remark is gone by the time that the same trouble begins anew.
    if (outcome.saved && outcome.versionTrouble.isEmpty())
        mToldTroubles.clear();
    // An alert for each save would keep the user from working.
    QStringList remarks;
    if (!outcome.versionTrouble.isEmpty() && mToldTroubles.insert(outcome.versionTrouble).second)
        remarks.append(outcome.versionTrouble);
    if (outcome.isOpenToOthers)
        remarks.append(CVFileMessages::openToOthers());
    if (!outcome.accessTrouble.isEmpty())
        remarks.append(outcome.accessTrouble);
    const bool isNewCopy = !outcome.keptCopy.isEmpty() && mToldCopies.insert(outcome.keptCopy).second;
    // What was not understood was told when the file was read.
    const bool isExplained = outcome.keptReason == CVKeptReason::AsItWasRead;
    if (isNewCopy && isExplained)
        remarks.append(CVFileMessages::keptAsRead(outcome));
    if (!remarks.isEmpty())
        status.remark(remarks.join(u' '));
    if (isNewCopy && !isExplained) {
        const bool wasMoved = outcome.keptReason == CVKeptReason::ReplacedWhenMoved && mover && mover->isVisible();
        mAlerts.run(wasMoved ? mover : window.window(), CVFileMessages::keptCopy(outcome));
    }
}
