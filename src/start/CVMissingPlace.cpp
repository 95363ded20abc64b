#include "start/CVMissingPlace.h"

#include "base/CVDefaultsKeys.h"
#include "base/QBUserDefaults.h"
#include "start/CVStartMessages.h"

std::optional<CVMissingPlace> CVMissingPlace::of(const CVStandardFolders& folders, const QBUserDefaults& defaults) {
    const auto missing = CVMissingDataFile(defaults);
    return missing ? std::optional(CVMissingPlace{*missing, CVFindDataFile(folders, defaults)}) : std::nullopt;
}

QList<CVMissingPlace::Choice> CVMissingPlace::choices() const {
    return {Choice::TryAgain, other ? Choice::OpenOther : Choice::StartNew, Choice::Quit};
}

CVMissingPlace::Next CVMissingPlace::carryOut(Choice choice, const CVStandardFolders& folders,
                                              QBUserDefaults& defaults) const {
    if (choice == Choice::Quit)
        return Next::Quit;
    const auto now = of(folders, defaults);
    if (!now)
        return Next::Search;
    // The question is another one by now, or the user wants to look again.
    if (now != *this || choice == Choice::TryAgain)
        return Next::Ask;
    if (choice == Choice::StartNew) {
        defaults.removeKey(CVDefaultsKeys::kDataFileLocation);
        defaults.synchronize();
    }
    return Next::Search;
}

bool CVMissingPlace::settle(const CVStandardFolders& folders, QBUserDefaults& defaults, CVAlerts& alerts) {
    while (const auto place = of(folders, defaults)) {
        const QList<Choice> choices = place->choices();
        const CVAlert::Answer answer = alerts.run(nullptr, CVStartMessages::missingPlace(*place));
        const Choice choice = answer == CVAlert::kDefault ? choices[0]
                              : answer == CVAlert::kOther ? choices[1]
                                                          : choices[2];
        switch (place->carryOut(choice, folders, defaults)) {
        case Next::Search:
            return true;
        case Next::Quit:
            return false;
        case Next::Ask:
            break;
        }
    }
    return true;
}
