#include "base/QBSoundBinaryList.h"

#include "base/QBPropertyList.h"
#include "kit/Printers.h"

#include <gtest/gtest.h>

#include <ostream>
#include <vector>

namespace {

using Items = std::vector<QByteArray>;

QByteArray number(quint64 value, int width) {
    QByteArray bytes;
    for (int shift = 8 * (width - 1); shift >= 0; shift -= 8)
        bytes += static_cast<char>(value >> shift);
    return bytes;
}

/// The trailer of a binary list, field by field.
QByteArray trailer(int offsetWidth, int referenceWidth, quint64 count, quint64 top, quint64 tableAt) {
    return QByteArray(6, '\0') + static_cast<char>(offsetWidth) + static_cast<char>(referenceWidth) + number(count, 8) +
           number(top, 8) + number(tableAt, 8);
}

/// A list of these items, of which the first is the top item. References take one byte, offsets four.
QByteArray listOf(const Items& items) {
    QByteArray bytes = "bplist00";
    QByteArray table;
    for (const QByteArray& item : items) {
        table += number(static_cast<quint64>(bytes.size()), 4);
        bytes += item;
    }
    const auto tableAt = static_cast<quint64>(bytes.size());
    return bytes + table + trailer(4, 1, items.size(), 0, tableAt);
}

QByteArray bytes(const char* text, qsizetype size) {
    return {text, size};
}

struct SoundRow {
    const char* behaviour;
    QByteArray list;
    QVariant value;
};

void PrintTo(const SoundRow& row, std::ostream* out) {
    *out << row.behaviour;
}

class SoundBinaryList : public testing::TestWithParam<SoundRow> {};

TEST_P(SoundBinaryList, isRead) {
    EXPECT_TRUE(QBIsSoundBinaryList(GetParam().list));
    EXPECT_EQ(QBPropertyListFromData(GetParam().list), GetParam().value);
}

const SoundRow kSound[]{
    {"false", listOf({"\x08"}), false},
    {"true", listOf({"\x09"}), true},
    {"an integer", listOf({"\x10\x2A"}), QVariant::fromValue<qulonglong>(42)},
    {"an integer of sixteen bytes", listOf({'\x14' + number(0, 8) + number(42, 8)}),
     QVariant::fromValue<qulonglong>(42)},
    {"a real", listOf({'\x23' + number(0x3FF8000000000000, 8)}), 1.5},
    {"data with a NUL", listOf({bytes("\x42\0\x01", 3)}), bytes("\0\x01", 2)},
    {"a text", listOf({"\x52hi"}), QStringLiteral("hi")},
    {"an empty text", listOf({"\x50"}), QString(QLatin1String(""))},
    {"a text of sixteen letters", listOf({"\x5F\x10\x10" + QByteArray(16, 'a')}), QString(16, u'a')},
    {"a text in UTF-16", listOf({bytes("\x62\0h\x20\xAC", 5)}), QString(u'h' + QChar(0x20AC))},
    {"an empty list", listOf({"\xA0"}), QVariantList()},
    {"a list that holds one item twice", listOf({"\xA2\x01\x01", "\x51x"}), QVariantList({"x", "x"})},
    {"a dictionary", listOf({"\xD1\x01\x02", "\x51k", "\x09"}), QVariantMap({{"k", true}})},
    {"an item that nothing leads to is not looked at", listOf({"\x09", "\xF7"}), true},
};

INSTANTIATE_TEST_SUITE_P(kinds, SoundBinaryList, testing::ValuesIn(kSound));

/// Nested lists, each contained twice in the next one.
QByteArray doubled(int levels) {
    Items items;
    for (int i = 1; i <= levels; ++i)
        items.push_back('\xA2' + QByteArray(2, static_cast<char>(i)));
    items.emplace_back("\x51x");
    return listOf(items);
}

QByteArray nested(int levels) {
    Items items;
    for (int i = 1; i <= levels; ++i)
        items.push_back('\xA1' + QByteArray(1, static_cast<char>(i)));
    items.emplace_back("\x51x");
    return listOf(items);
}

/// A list that refers 250 times to one text of 60,000 letters.
QByteArray repeated() {
    return listOf({"\xAF\x11" + number(250, 2) + QByteArray(250, '\x01'),
                   "\x5F\x11" + number(60'000, 2) + QByteArray(60'000, 'a')});
}

struct UnsoundRow {
    const char* behaviour;
    QByteArray list;
};

void PrintTo(const UnsoundRow& row, std::ostream* out) {
    *out << row.behaviour;
}

class UnsoundBinaryList : public testing::TestWithParam<UnsoundRow> {};

TEST_P(UnsoundBinaryList, isRefusedBeforeTheLibraryIsAsked) {
    EXPECT_FALSE(QBIsSoundBinaryList(GetParam().list));
    EXPECT_EQ(QBPropertyListFromData(GetParam().list), QVariant());
}

const UnsoundRow kUnsound[]{
    {"a NUL in a text of UTF-16", listOf({bytes("\x62\0a\0\0", 5)})},
    {"a NUL in a text of ASCII", listOf({bytes("\x53"
                                               "a\0b",
                                               4)})},
    {"a NUL in a key of UTF-16", listOf({"\xD1\x01\x02", bytes("\x62\0a\0\0", 5), "\x09"})},
    {"a NUL in a key of ASCII", listOf({"\xD1\x01\x02", bytes("\x51\0", 2), "\x09"})},
    {"a key that is a number", listOf({"\xD1\x01\x02", "\x10\x01", "\x09"})},
    {"a list within itself", listOf({bytes("\xA1\0", 2)})},
    {"two lists within each other", listOf({"\xA1\x01", bytes("\xA1\0", 2)})},
    {"2^60 items by reference", doubled(60)},
    {"lists too deep", nested(101)},
    {"a text too often", repeated()},
    {"a reference beyond the items", listOf({"\xA1\x02", "\x09"})},
    {"a text longer than the bytes", listOf({"\x5F\x12" + number(0x7FFFFFFF, 4)})},
    {"a text of 2^63 letters", listOf({"\x5F\x13" + number(quint64(1) << 63, 8)})},
    {"a text in UTF-16 of 2^63 letters", listOf({"\x6F\x13" + number(quint64(1) << 63, 8)})},
    {"a dictionary of 2^63 items", listOf({"\xDF\x13" + number(quint64(1) << 63, 8)})},
    {"a length that is no integer", listOf({"\x5F\x51x"})},
    {"a length of sixteen bytes", listOf({"\x5F\x14" + QByteArray(16, '\x01')})},
    {"a length without its bytes", listOf({"\x5F"})},
    {"an integer of 32 bytes", listOf({'\x15' + QByteArray(32, '\x01')})},
    {"a real of one byte", listOf({"\x20\x01"})},
    {"a date of one byte", listOf({"\x30\x01"})},
    {"an unknown kind", listOf({"\x70"})},
    {"an unknown simple item", listOf({bytes("\0", 1)})},
    {"another version", QByteArray(listOf({"\x09"})).replace("bplist00", "bplist15")},
    {"nothing but a beginning", "bplist00"},
    {"no items", "bplist00" + trailer(1, 1, 0, 0, 8)},
    {"a top beyond the items", bytes("bplist00\x09\x08", 10) + trailer(1, 1, 1, 1, 9)},
    {"offsets without width", bytes("bplist00\x09\x08", 10) + trailer(0, 1, 1, 0, 9)},
    {"offsets too wide", bytes("bplist00\x09\x08", 10) + trailer(9, 1, 1, 0, 9)},
    {"references without width", bytes("bplist00\x09\x08", 10) + trailer(1, 0, 1, 0, 9)},
    {"a table beyond the end", bytes("bplist00\x09\x08", 10) + trailer(1, 1, 1, 0, 11)},
    {"a table of 2^63 items", bytes("bplist00\x09\x08", 10) + trailer(2, 1, quint64(1) << 63, 0, 9)},
    {"an offset into the beginning", bytes("bplist00\x09\x07", 10) + trailer(1, 1, 1, 0, 9)},
    {"an offset into the table", bytes("bplist00\x09\x09", 10) + trailer(1, 1, 1, 0, 9)},
};

INSTANTIATE_TEST_SUITE_P(kinds, UnsoundBinaryList, testing::ValuesIn(kUnsound));

TEST(SoundBinaryListLevels, areAHundredAtMost) {
    EXPECT_TRUE(QBIsSoundBinaryList(nested(100)));
    EXPECT_TRUE(QBIsSoundBinaryList(doubled(10)));
}

} // namespace
