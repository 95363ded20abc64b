#pragma once

#include <QByteArrayView>

/// Whether bytes are a binary property list that libplist can be asked to read: every length, offset and reference
/// leads to where it may, no list is within itself or deeper than `QBSoundBinaryList::kDeepestLevel`, no text holds a
/// NUL, and what is spelt out several times does not add up to more than `QBSoundBinaryList::kLargestContents`.
/// libplist itself ends the process, runs out of stack or of memory on others. Whatever the top of the list does not
/// lead to is not looked at: nobody reads it.
[[nodiscard]] bool QBIsSoundBinaryList(QByteArrayView bytes);

namespace QBSoundBinaryList {

inline constexpr int kDeepestLevel = 100;
/// In bytes, the room for each item counted with it.
inline constexpr quint64 kLargestContents = quint64(8) << 20;

} // namespace QBSoundBinaryList
