#include "app/CVReadingPanel.h"

#include "base/CVBundle.h"
#include "widgets/CVProgressPanel.h"

namespace {

constexpr int kReadingSteps = 100;

} // namespace

bool CVReadingPanel::operator()(double part) {
    if (!mPanel)
        mPanel = std::make_shared<CVProgressPanel>(QString::fromLatin1(CVBundle::kName), kReadingSteps, mWindow);
    return mPanel->stepsDone(static_cast<int>(part * kReadingSteps), whatCancelDoes());
}

QString CVReadingPanel::whatCancelDoes() const {
    switch (mReading) {
    case Reading::AtStart:
        return tr("Reading your budget. Cancel ends Corvella and changes nothing.");
    case Reading::OtherFile:
        return tr("Reading the chosen file. Cancel keeps the budget that is open.");
    case Reading::EarlierVersion:
        break;
    }
    return tr("Reading the earlier version. Cancel keeps your budget as it is.");
}
