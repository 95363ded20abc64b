#include "app/CVReadingPanel.h"

#include "shared/base/CVBundle.h"
#include "shared/widgets/CVProgressPanel.h"

namespace {

constexpr int kSteps = 100;

} // namespace

CVReadingPanel::CVReadingPanel()
    : mPanel(std::make_shared<CVProgressPanel>(QString::fromLatin1(CVBundle::kName), kSteps, nullptr)) {}

bool CVReadingPanel::operator()(double part) const {
    return mPanel->stepsDone(static_cast<int>(part * kSteps),
                             tr("Reading your budget. Cancel ends Corvella and changes nothing."));
}
