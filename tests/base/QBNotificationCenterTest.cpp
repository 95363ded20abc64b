#include "base/QBNotificationCenter.h"

#include "kit/NotificationCounter.h"
#include "kit/Printers.h"

#include <QCoreApplication>
#include <QThread>

#include <gmock/gmock.h>

#include <memory>
#include <thread>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(QBNotificationCenter, CallsOnlyObserversOfThatName) {
    QBNotificationCenter center;
    QObject observer;
    std::vector<QString> seen;
    const auto note = [&seen](const QBNotification& notification) { seen.push_back(notification.name); };
    center.addObserver("added", &observer, note);
    center.addObserver("removed", &observer, note);

    center.postNotification("added");
    center.postNotification("Added");
    center.postNotification("add");
    center.postNotification("removed");

    EXPECT_THAT(seen, ElementsAre("added", "removed"));
}

TEST(QBNotificationCenter, CallsObserversInTheOrderOfRegistration) {
    QBNotificationCenter center;
    QObject early;
    QObject late;
    std::vector<int> order;
    center.addObserver("name", &late, [&order](const QBNotification&) { order.push_back(1); });
    center.addObserver("name", &early, [&order](const QBNotification&) { order.push_back(2); });
    center.addObserver("name", &late, [&order](const QBNotification&) { order.push_back(3); });

    center.postNotification("name");

    EXPECT_THAT(order, ElementsAre(1, 2, 3));
}

TEST(QBNotificationCenter, HandsOverTheObjectOrNone) {
    QBNotificationCenter center;
    QObject observer;
    std::vector<std::any> objects;
    center.addObserver("name", &observer,
                       [&objects](const QBNotification& notification) { objects.push_back(notification.object); });

    const auto object = std::make_shared<int>(5);
    center.postNotification("name", object);
    center.postNotification("name");

    ASSERT_EQ(objects.size(), 2U);
    EXPECT_EQ(std::any_cast<std::shared_ptr<int>>(objects[0]), object);
    EXPECT_FALSE(objects[1].has_value());
}

TEST(QBNotificationCenter, ForgetsAnObserverThatIsDestroyed) {
    QBNotificationCenter center;
    QObject survivor;
    auto observer = std::make_unique<QObject>();
    int calls = 0;
    int survivorCalls = 0;
    center.addObserver("name", observer.get(), [&calls](const QBNotification&) { ++calls; });
    center.addObserver("name", &survivor, [&survivorCalls](const QBNotification&) { ++survivorCalls; });
    center.postNotification("name");
    observer.reset();
    center.postNotification("name");

    EXPECT_EQ(calls, 1);
    EXPECT_EQ(survivorCalls, 2);
}

TEST(QBNotificationCenter, AllowsAnObserverToBeDestroyedByAnEarlierHandler) {
    QBNotificationCenter center;
    QObject first;
    auto second = std::make_unique<QObject>();
    int calls = 0;
    center.addObserver("name", &first, [&second](const QBNotification&) { second.reset(); });
    center.addObserver("name", second.get(), [&calls](const QBNotification&) { ++calls; });

    center.postNotification("name");

    EXPECT_EQ(calls, 0);
}

TEST(QBNotificationCenter, AllowsAHandlerToPost) {
    QBNotificationCenter center;
    QObject observer;
    std::vector<QString> seen;
    center.addObserver("outer", &observer, [&](const QBNotification&) {
        center.postNotification("inner");
        seen.emplace_back("outer");
    });
    center.addObserver("inner", &observer, [&](const QBNotification&) { seen.emplace_back("inner"); });

    center.postNotification("outer");

    EXPECT_THAT(seen, ElementsAre("inner", "outer"));
}

TEST(QBNotificationCenter, DeliversFromAnotherThreadInTheObserversEventLoop) {
    QBNotificationCenter center;
    QObject observer;
    std::vector<int> objects;
    const QThread* handledIn = nullptr;
    center.addObserver("name", &observer, [&](const QBNotification& notification) {
        objects.push_back(std::any_cast<int>(notification.object));
        handledIn = QThread::currentThread();
    });

    std::thread([&center] {
        center.postNotification("name", 1);
        center.postNotification("name", 2);
    }).join();

    EXPECT_THAT(objects, IsEmpty()) << "handled in the posting thread";
    QCoreApplication::processEvents();
    EXPECT_THAT(objects, ElementsAre(1, 2));
    EXPECT_EQ(handledIn, QThread::currentThread());
}

TEST(QBNotificationCenter, ForgetsWhatIsOnItsWayToAnObserverThatIsDestroyed) {
    QBNotificationCenter center;
    auto observer = std::make_unique<QObject>();
    int calls = 0;
    center.addObserver("name", observer.get(), [&calls](const QBNotification&) { ++calls; });
    std::thread([&center] { center.postNotification("name"); }).join();
    observer.reset();
    QCoreApplication::processEvents();

    EXPECT_EQ(calls, 0);
}

TEST(QBNotificationCenter, MayGoBeforeItsObservers) {
    QObject observer;
    auto center = std::make_unique<QBNotificationCenter>();
    center->addObserver("name", &observer, [](const QBNotification&) {});
    center.reset();
    EXPECT_EQ(observer.parent(), nullptr);
}

TEST(NotificationCounter, CountsByName) {
    QBNotificationCenter center;
    center.postNotification("before");
    NotificationCounter counter(center);
    center.postNotification("a");
    center.postNotification("b");
    center.postNotification("a");

    EXPECT_EQ(counter.count("a"), 2);
    EXPECT_EQ(counter.count("b"), 1);
    EXPECT_EQ(counter.count("before"), 0);
    EXPECT_THAT(counter.names(), ElementsAre("a", "b", "a"));
    counter.reset();
    EXPECT_EQ(counter.total(), 0);
}

} // namespace
