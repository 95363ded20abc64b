#pragma once

#include <QObject>
#include <QString>

#include <vector>

class QBNotificationCenter;

/// Notes every notification that a centre posts while this object lives.
class NotificationCounter final {
public:
    explicit NotificationCounter(QBNotificationCenter& center);

    [[nodiscard]] int count(const char* name) const;
    [[nodiscard]] int total() const { return static_cast<int>(mNames.size()); }
    /// The names in the order of posting.
    [[nodiscard]] const std::vector<QString>& names() const { return mNames; }
    /// Starts counting anew.
    void reset() { mNames.clear(); }

private:
    std::vector<QString> mNames;
    QObject mObserver;
};
