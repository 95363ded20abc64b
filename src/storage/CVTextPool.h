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
    [[nodiscard]] QString text(std::string_view utf8);

private:
    struct Entry {
        std::string utf8;
        QString text;
    };
    /// What the table holds of an entry: its hash, and its number from 1 on, 0 while the slot is free.
    struct Slot {
        quint32 hash = 0;
        quint32 number = 0;
    };

    [[nodiscard]] Slot& find(quint32 hash, std::string_view utf8);
    void grow();

    /// Their number is a power of two, at most half of them are taken. They are small, and lie apart from the entries,
    /// so that a file of few texts touches little memory.
    std::vector<Slot> mSlots;
    std::vector<Entry> mEntries;
    QString mEmpty;
};
