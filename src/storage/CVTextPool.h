#pragma once

#include <QString>

#include <string>
#include <string_view>
#include <vector>

/// The texts of a file, each decoded and kept once however often it occurs: equal ones share their characters.
/// A hash table by linear probing, because it is asked for two texts of every transaction.
class CVTextPool final {
public:
    CVTextPool();

    /// The text that these bytes stand for, empty for none. Null when they are not valid UTF-8.
    [[nodiscard]] const QString& text(std::string_view utf8);

private:
    /// Free while it has no bytes.
    struct Entry {
        std::size_t hash = 0;
        std::string utf8;
        QString text;
    };

    [[nodiscard]] Entry& find(std::size_t hash, std::string_view utf8);
    void grow();

    /// Their number is a power of two, at most half of them are taken.
    std::vector<Entry> mEntries;
    std::size_t mTaken = 0;
    QString mEmpty;
};
