#include "model/CVDocumentText.h"

#include "kit/Printers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <thread>
#include <vector>

namespace {

constexpr qsizetype kMegabyte = qsizetype(1) << 20;

CVTextSlice add(CVTextArena& arena, const QByteArray& text, qsizetype room = 0) {
    return arena.add(text.size() + room, [&text](char* out) { return std::copy(text.begin(), text.end(), out); });
}

/// A text whose bytes depend on the position and on `first`, so that misplaced pieces are noticed.
QByteArray patterned(qsizetype length, char first) {
    QByteArray text(length, Qt::Uninitialized);
    for (qsizetype i = 0; i < length; ++i)
        text[i] = static_cast<char>(first + i % 23);
    return text;
}

TEST(CVTextSlice, IsNullUntilSomethingWasRendered) {
    EXPECT_TRUE(CVTextSlice().isNull());
    EXPECT_TRUE(CVTextSlice().bytes().isEmpty());
    CVTextArena arena;
    const CVTextSlice empty = add(arena, "");
    EXPECT_FALSE(empty.isNull());
    EXPECT_TRUE(empty.bytes().isEmpty());
}

TEST(CVTextArena, KeepsOnlyWhatWasWritten) {
    CVTextArena arena;
    const CVTextSlice first = add(arena, "abc", 1000);
    const CVTextSlice second = add(arena, "de", 1000);
    EXPECT_EQ(first.bytes(), "abc");
    EXPECT_EQ(second.bytes(), "de");
    EXPECT_EQ(second.block, first.block);
    EXPECT_EQ(second.offset, first.offset + first.length) << "neighbours lie side by side";
}

TEST(CVTextArena, KeepsTextsOfAllLengthsAcrossItsBlocks) {
    CVTextArena arena;
    std::vector<QByteArray> texts;
    std::vector<CVTextSlice> slices;
    for (const qsizetype length :
         {qsizetype(1), qsizetype(511), qsizetype(512), qsizetype(513), qsizetype(100'000), kMegabyte - 1, kMegabyte,
          kMegabyte + 1, qsizetype(7), 3 * kMegabyte, qsizetype(9)}) {
        texts.push_back(patterned(length, static_cast<char>('A' + texts.size())));
        slices.push_back(add(arena, texts.back(), length / 3));
    }
    for (std::size_t i = 0; i < texts.size(); ++i)
        ASSERT_TRUE(slices[i].bytes() == texts[i]) << i;
}

TEST(CVTextArena, FillsBlocksOfAMegabyte) {
    CVTextArena arena;
    CVDocumentText text;
    const QByteArray line = patterned(1000, 'a');
    for (int i = 0; i < 5'000; ++i)
        text.append(add(arena, line));
    EXPECT_EQ(text.size(), 5'000'000);
    EXPECT_GE(text.pieces().size(), 5U);
    EXPECT_LE(text.pieces().size(), 6U);
}

TEST(CVTextArena, TakesLittleForASingleLine) {
    CVTextArena arena;
    const CVTextSlice slice = add(arena, "<Transaction/>");
    EXPECT_LE(slice.block->bytes.capacity(), 4096);
}

TEST(CVTextArena, LeavesItsTextsBehind) {
    CVTextSlice slice;
    {
        CVTextArena arena;
        slice = add(arena, "kept");
        (void)add(arena, patterned(2 * kMegabyte, 'a'));
    }
    // Another thread reads the text, as a save does.
    QByteArray read;
    std::thread([&] { read = slice.bytes().toByteArray(); }).join();
    EXPECT_EQ(read, "kept");
}

TEST(CVDocumentText, IsEmptyAtFirst) {
    const CVDocumentText text;
    EXPECT_EQ(text.size(), 0);
    EXPECT_TRUE(text.pieces().empty());
    EXPECT_EQ(text.joined(), "");
}

TEST(CVDocumentText, JoinsItsSlicesInOrder) {
    CVTextArena one;
    CVTextArena other;
    const CVTextSlice a = add(one, "a,");
    const CVTextSlice b = add(one, "b,");
    const CVTextSlice c = add(other, "c,");
    CVDocumentText text;
    for (const CVTextSlice& slice : {b, a, c, CVTextSlice(), a, add(one, ""), a, b})
        text.append(slice);
    EXPECT_EQ(text.joined(), "b,a,c,a,a,b,");
    EXPECT_EQ(text.size(), 12);
}

TEST(CVDocumentText, MakesOnePieceOfNeighboursInOrder) {
    CVTextArena arena;
    const CVTextSlice a = add(arena, "a");
    const CVTextSlice b = add(arena, "b");
    const CVTextSlice c = add(arena, "c");
    CVDocumentText inOrder;
    for (const CVTextSlice& slice : {a, b, c})
        inOrder.append(slice);
    EXPECT_EQ(inOrder.pieces().size(), 1U);
    EXPECT_EQ(inOrder.joined(), "abc");

    CVDocumentText withAGap;
    withAGap.append(a);
    withAGap.append(c);
    EXPECT_EQ(withAGap.pieces().size(), 2U);
    EXPECT_EQ(withAGap.joined(), "ac");

    CVDocumentText backwards;
    backwards.append(b);
    backwards.append(a);
    EXPECT_EQ(backwards.pieces().size(), 2U);
    EXPECT_EQ(backwards.joined(), "ba");
}

TEST(CVDocumentText, OfACopyStaysAsItWas) {
    CVTextArena arena;
    CVDocumentText text;
    text.append(add(arena, "a"));
    const CVDocumentText copy = text;
    text.append(add(arena, "b"));
    EXPECT_EQ(copy.joined(), "a");
    EXPECT_EQ(text.joined(), "ab");
}

TEST(CVDocumentText, TellsNeighboursInDifferentBlocksApart) {
    CVTextArena one;
    CVTextArena other;
    const CVTextSlice a = add(one, "aa");
    (void)add(other, "xx");
    const CVTextSlice b = add(other, "bb");
    ASSERT_EQ(b.offset, a.offset + a.length);
    CVDocumentText text;
    text.append(a);
    text.append(b);
    EXPECT_EQ(text.joined(), "aabb");
    EXPECT_EQ(text.pieces().size(), 2U);
}

} // namespace
