#pragma once

#include <QObject>
#include <QString>

#include <vector>

class QBNotificationCenter;

/// Records every notification that a centre posts while this object lives.
class NotificationCounter final {
public:
    explicit NotificationCounter(QBNotificationCenter& center);

    [[nodiscard]] int count(const char* name) const;
    [[nodiscard]] int total() const { return static_cast<int>(mNames.size()); }
    /// The names in the order of posting.
    [[nodiscard]] const std::vector<QString>& names() const { return mNames; }
    /// Forgets the notifications so far.
    void reset() { mNames.clear(); }

private:
    std::vector<QString> mNames;
    QObject mObserver;
};
