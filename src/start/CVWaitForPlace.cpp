#include "start/CVWaitForPlace.h"

#include "base/CVBundle.h"
#include "start/CVStartMessages.h"
#include "widgets/CVProgressPanel.h"

#include <QCoreApplication>

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>

namespace {

constexpr std::chrono::milliseconds kBetweenLooks(20);

/// What the thread and whoever waits for it share; it lives until both have gone.
struct PlaceAnswer {
    std::mutex mutex;
    std::condition_variable changed;
    bool isThere = false;
};

} // namespace

bool CVWaitForPlace(const QString& path, std::function<void()> look) {
    const auto answer = std::make_shared<PlaceAnswer>();
    std::thread([answer, look = std::move(look)] {
        look();
        {
            const std::lock_guard lock(answer->mutex);
            answer->isThere = true;
        }
        answer->changed.notify_all();
    }).detach();
    CVProgressPanel panel(QString::fromLatin1(CVBundle::kName), 0, nullptr);
    for (;;) {
        {
            std::unique_lock lock(answer->mutex);
            if (answer->changed.wait_for(lock, kBetweenLooks, [&answer] { return answer->isThere; }))
                return true;
        }
        if (!panel.stepsDone(0, CVStartMessages::waitingForPlace(path)))
            return false;
        // The panel handles events only when its value changes.
        QCoreApplication::processEvents();
    }
}
