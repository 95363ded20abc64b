#include "base/QBSoundBinaryList.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace {

constexpr QByteArrayView kMagic("bplist00");
constexpr quint64 kTrailerSize = 32;
/// Where the fields of the trailer begin; the bytes before them mean nothing.
constexpr quint64 kSizesAt = 6;
constexpr quint64 kCountAt = 8;
constexpr quint64 kWidestNumber = 8;
/// About how many bytes of memory libplist takes for each item.
constexpr quint64 kItemCost = 64;

/// The kinds of items, as the upper half of an item's first byte names them.
enum Kind : unsigned {
    Simple = 0x0,
    Integer = 0x1,
    Real = 0x2,
    Date = 0x3,
    Data = 0x4,
    AsciiText = 0x5,
    Utf16Text = 0x6,
    Array = 0xA,
    Dictionary = 0xD
};

constexpr unsigned kFalse = 8;
constexpr unsigned kTrue = 9;
/// This lower half of the first byte says that the length follows as an integer.
constexpr unsigned kLengthFollows = 0xF;

/// An item's first byte and length, and where its contents begin.
struct Head {
    unsigned kind;
    quint64 length;
    quint64 contentsAt;
};

/// Checks the items to which the top item leads, each once however many items refer to it.
class BinaryListCheck final {
public:
    explicit BinaryListCheck(QByteArrayView bytes) : mBytes(bytes) {}

    bool isSound() {
        if (!readTrailer())
            return false;
        const auto cost = costOf(mTop, 0);
        return cost && *cost <= QBSoundBinaryList::kLargestContents;
    }

private:
    struct Item {
        enum class State { New, Open, Done };
        State state = State::New;
        quint64 cost = 0;
        int height = 0;
    };

    /// The big-endian number of that width in bytes; the caller has checked that the bytes exist.
    [[nodiscard]] quint64 numberAt(quint64 at, quint64 width) const {
        quint64 number = 0;
        for (quint64 i = 0; i < width; ++i)
            number = number << 8U | byteAt(at + i);
        return number;
    }
    [[nodiscard]] unsigned byteAt(quint64 at) const {
        return static_cast<unsigned char>(mBytes[static_cast<qsizetype>(at)]);
    }

    bool readTrailer();
    [[nodiscard]] std::optional<Head> headAt(quint64 at) const;
    [[nodiscard]] std::optional<quint64> sizeOf(const Head& head) const;
    [[nodiscard]] bool isPlain(const Head& head, quint64 size) const;
    std::optional<quint64> costOf(quint64 index, int level);
    std::optional<quint64> costOfChildren(const Head& head, Item& item, int level);
    [[nodiscard]] bool isText(quint64 index) const;

    QByteArrayView mBytes;
    /// The offset after the last item.
    quint64 mEnd = 0;
    quint64 mOffsetWidth = 0;
    quint64 mReferenceWidth = 0;
    quint64 mTop = 0;
    std::vector<Item> mItems;
};

bool BinaryListCheck::readTrailer() {
    const auto size = static_cast<quint64>(mBytes.size());
    if (size < static_cast<quint64>(kMagic.size()) + kTrailerSize || !mBytes.startsWith(kMagic))
        return false;
    const quint64 trailer = size - kTrailerSize;
    mOffsetWidth = byteAt(trailer + kSizesAt);
    mReferenceWidth = byteAt(trailer + kSizesAt + 1);
    const quint64 count = numberAt(trailer + kCountAt, kWidestNumber);
    mTop = numberAt(trailer + kCountAt + kWidestNumber, kWidestNumber);
    mEnd = numberAt(trailer + kCountAt + 2 * kWidestNumber, kWidestNumber);
    const auto isWidth = [](quint64 width) { return width >= 1 && width <= kWidestNumber; };
    if (!isWidth(mOffsetWidth) || !isWidth(mReferenceWidth) || mEnd > trailer || mTop >= count ||
        count > (trailer - mEnd) / mOffsetWidth)
        return false;
    mItems.resize(static_cast<std::size_t>(count));
    return true;
}

std::optional<Head> BinaryListCheck::headAt(quint64 at) const {
    if (at < static_cast<quint64>(kMagic.size()) || at >= mEnd)
        return std::nullopt;
    const unsigned first = byteAt(at);
    Head head{first >> 4U, first & 0xFU, at + 1};
    const bool mayBeLong = head.kind == Data || head.kind == AsciiText || head.kind == Utf16Text ||
                           head.kind == Array || head.kind == Dictionary;
    if (!mayBeLong || head.length != kLengthFollows)
        return head;
    if (head.contentsAt >= mEnd)
        return std::nullopt;
    const unsigned lengthByte = byteAt(head.contentsAt++);
    const quint64 width = quint64(1) << (lengthByte & 0xFU);
    if (lengthByte >> 4U != Integer || width > kWidestNumber || width > mEnd - head.contentsAt)
        return std::nullopt;
    head.length = numberAt(head.contentsAt, width);
    head.contentsAt += width;
    return head;
}

/// The size of the contents in bytes; absent for an unknown kind and for a size beyond the end.
std::optional<quint64> BinaryListCheck::sizeOf(const Head& head) const {
    const quint64 room = mEnd - head.contentsAt;
    const auto times = [&](quint64 width) {
        return head.length <= room / width ? std::optional(head.length * width) : std::nullopt;
    };
    const auto fixed = [&](bool isKnown, quint64 size) {
        return isKnown && size <= room ? std::optional(size) : std::nullopt;
    };
    switch (head.kind) {
    case Simple:
        return fixed(head.length == kFalse || head.length == kTrue, 0);
    case Integer:
        return fixed(head.length <= 4, quint64(1) << head.length);
    case Real:
        return fixed(head.length == 2 || head.length == 3, quint64(1) << head.length);
    case Date:
        return fixed(head.length == 3, quint64(1) << head.length);
    case Data:
    case AsciiText:
        return times(1);
    case Utf16Text:
        return times(2);
    case Array:
        return times(mReferenceWidth);
    case Dictionary:
        return times(2 * mReferenceWidth);
    default:
        return std::nullopt;
    }
}

/// False for a text that holds a NUL.
bool BinaryListCheck::isPlain(const Head& head, quint64 size) const {
    const QByteArrayView contents =
        mBytes.sliced(static_cast<qsizetype>(head.contentsAt), static_cast<qsizetype>(size));
    if (head.kind == AsciiText)
        return !contents.contains('\0');
    if (head.kind != Utf16Text)
        return true;
    for (qsizetype i = 0; i + 1 < contents.size(); i += 2) {
        if (contents[i] == '\0' && contents[i + 1] == '\0')
            return false;
    }
    return true;
}

/// The cost in bytes of an item and all items in it; absent when one of them is not sound.
std::optional<quint64> BinaryListCheck::costOf(quint64 index, int level) {
    if (index >= mItems.size())
        return std::nullopt;
    Item& item = mItems[static_cast<std::size_t>(index)];
    // An item that is met while it is open contains itself.
    if (item.state == Item::State::Open || level + item.height > QBSoundBinaryList::kDeepestLevel)
        return std::nullopt;
    if (item.state == Item::State::Done)
        return item.cost;
    const auto head = headAt(numberAt(mEnd + index * mOffsetWidth, mOffsetWidth));
    const auto size = head ? sizeOf(*head) : std::nullopt;
    if (!size || !isPlain(*head, *size))
        return std::nullopt;
    item.cost = kItemCost + *size;
    if (head->kind == Array || head->kind == Dictionary) {
        item.state = Item::State::Open;
        const auto children = costOfChildren(*head, item, level);
        if (!children)
            return std::nullopt;
        item.cost += *children;
    }
    item.state = Item::State::Done;
    return item.cost;
}

std::optional<quint64> BinaryListCheck::costOfChildren(const Head& head, Item& item, int level) {
    const quint64 references = head.kind == Dictionary ? 2 * head.length : head.length;
    quint64 sum = 0;
    for (quint64 i = 0; i < references; ++i) {
        const quint64 child = numberAt(head.contentsAt + i * mReferenceWidth, mReferenceWidth);
        const auto cost = costOf(child, level + 1);
        const bool isKey = head.kind == Dictionary && i < head.length;
        if (!cost || (isKey && !isText(child)))
            return std::nullopt;
        sum += *cost;
        if (sum > QBSoundBinaryList::kLargestContents)
            return std::nullopt;
        item.height = std::max(item.height, mItems[static_cast<std::size_t>(child)].height + 1);
    }
    return sum;
}

/// Requires a sound item.
bool BinaryListCheck::isText(quint64 index) const {
    const unsigned kind = byteAt(numberAt(mEnd + index * mOffsetWidth, mOffsetWidth)) >> 4U;
    return kind == AsciiText || kind == Utf16Text;
}

} // namespace

bool QBIsSoundBinaryList(QByteArrayView bytes) {
    return BinaryListCheck(bytes).isSound();
}
