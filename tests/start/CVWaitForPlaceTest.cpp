#include "start/CVWaitForPlace.h"

#include "kit/CancelledPanel.h"
#include "kit/Printers.h"
#include "kit/ProgressDelay.h"

#include <QTimer>

#include <gtest/gtest.h>

#include <future>

namespace {

TEST(CVWaitForPlace, EndsAtOnceWhereThePlaceAnswers) {
    const ProgressDelay delay = ProgressDelay::forEver();
    bool looked = false;
    EXPECT_TRUE(CVWaitForPlace("/share/file", [&looked] { looked = true; }));
    EXPECT_TRUE(looked);
}

TEST(CVWaitForPlace, NamesAPlaceThatHangsUntilItAnswers) {
    const ProgressDelay delay = ProgressDelay::none();
    std::promise<void> answer;
    QString shown;
    QTimer timer;
    // The place answers once the panel has been seen.
    timer.callOnTimeout([&] {
        const auto* const panel = qobject_cast<CVProgressPanel*>(QApplication::activeModalWidget());
        if (!panel || !shown.isEmpty())
            return;
        shown = panel->labelText();
        answer.set_value();
    });
    timer.start(0);
    EXPECT_TRUE(CVWaitForPlace("/share/file", [&answer] { answer.get_future().wait(); }));
    EXPECT_TRUE(shown.contains("\n/share/file\n")) << shown.toStdString();
}

TEST(CVWaitForPlace, AnswersWhoeverCancelsAlthoughThePlaceHangs) {
    const ProgressDelay delay = ProgressDelay::none();
    const CancelledPanel cancelled;
    const auto answer = std::make_shared<std::promise<void>>();
    const auto ended = std::make_shared<std::promise<void>>();
    EXPECT_FALSE(CVWaitForPlace("/share/file", [answer, ended] {
        answer->get_future().wait();
        ended->set_value();
    }));
    // The thread is gone before the test's process is.
    answer->set_value();
    ended->get_future().wait();
}

} // namespace
