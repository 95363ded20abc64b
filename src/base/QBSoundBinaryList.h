#pragma once

#include <QByteArrayView>

/// Whether bytes are a binary property list that libplist can read safely: every length, offset and reference stays
/// within its bounds, no list contains itself or is nested deeper than `QBSoundBinaryList::kDeepestLevel`, no text
/// holds a NUL, and the contents, counted anew for each reference to them, are no larger than
/// `QBSoundBinaryList::kLargestContents`. On other bytes libplist ends the process or runs out of stack or memory.
/// Items to which the top item does not lead are not checked, because nobody reads them.
[[nodiscard]] bool QBIsSoundBinaryList(QByteArrayView bytes);

namespace QBSoundBinaryList {

inline constexpr int kDeepestLevel = 100;
/// In bytes, including the memory that each item itself takes.
inline constexpr quint64 kLargestContents = quint64(8) << 20;

} // namespace QBSoundBinaryList
