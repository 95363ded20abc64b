#include "storage/CVTextPool.h"

#include "base/QBXMLText.h"

#include <QByteArrayView>
#include <QStringDecoder>

#include <functional>

namespace {

constexpr std::size_t kFirstLength = 256;

/// Null when the bytes are not valid UTF-8. A byte-order mark at the beginning is a character of the text. A carriage
/// return, which only a character reference can give, becomes a line feed at once, because it would not survive the
/// next save.
QString decodedText(std::string_view bytes) {
    using Flag = QStringConverter::Flag;
    QStringDecoder decoder(QStringConverter::Utf8, Flag::Stateless | Flag::ConvertInitialBom);
    const QString text = decoder.decode(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
    return decoder.hasError() ? QString() : xml_storableText(text);
}

} // namespace

CVTextPool::CVTextPool() : mSlots(kFirstLength), mEmpty(QLatin1String("")) {}

QString CVTextPool::text(std::string_view utf8) {
    if (utf8.empty())
        return mEmpty;
    const auto hash = static_cast<quint32>(std::hash<std::string_view>()(utf8));
    Slot& slot = find(hash, utf8);
    if (slot.number != 0)
        return mEntries[slot.number - 1].text;
    mEntries.push_back({std::string(utf8), decodedText(utf8)});
    slot = {hash, static_cast<quint32>(mEntries.size())};
    if (2 * mEntries.size() > mSlots.size())
        grow();
    return mEntries.back().text;
}

/// The slot of these bytes, or the free slot for them.
CVTextPool::Slot& CVTextPool::find(quint32 hash, std::string_view utf8) {
    const std::size_t mask = mSlots.size() - 1;
    std::size_t at = hash & mask;
    while (mSlots[at].number != 0 && (mSlots[at].hash != hash || mEntries[mSlots[at].number - 1].utf8 != utf8))
        at = (at + 1) & mask;
    return mSlots[at];
}

void CVTextPool::grow() {
    std::vector<Slot> old(2 * mSlots.size());
    old.swap(mSlots);
    const std::size_t mask = mSlots.size() - 1;
    for (const Slot& slot : old) {
        std::size_t at = slot.hash & mask;
        while (mSlots[at].number != 0)
            at = (at + 1) & mask;
        mSlots[at] = slot;
    }
}
