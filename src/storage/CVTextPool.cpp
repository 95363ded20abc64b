#include "storage/CVTextPool.h"

#include "shared/base/QBXMLText.h"

#include <QByteArrayView>
#include <QStringDecoder>

#include <functional>
#include <utility>

namespace {

constexpr std::size_t kFirstLength = 256;

/// Null when the bytes are not valid UTF-8. A byte-order mark at the beginning is a character of the text. A carriage
/// return, which only a character reference can bring here, would not survive the next save and is a line feed at once.
QString decodedText(std::string_view bytes) {
    using Flag = QStringConverter::Flag;
    QStringDecoder decoder(QStringConverter::Utf8, Flag::Stateless | Flag::ConvertInitialBom);
    const QString text = decoder.decode(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
    return decoder.hasError() ? QString() : xml_storableText(text);
}

} // namespace

CVTextPool::CVTextPool() : mEntries(kFirstLength), mEmpty(QLatin1String("")) {}

const QString& CVTextPool::text(std::string_view utf8) {
    if (utf8.empty())
        return mEmpty;
    const std::size_t hash = std::hash<std::string_view>()(utf8);
    if (const Entry& known = find(hash, utf8); !known.utf8.empty())
        return known.text;
    if (2 * ++mTaken > mEntries.size())
        grow();
    Entry& entry = find(hash, utf8);
    entry = {hash, std::string(utf8), decodedText(utf8)};
    return entry.text;
}

/// The entry of these bytes, or the free one in which they belong.
CVTextPool::Entry& CVTextPool::find(std::size_t hash, std::string_view utf8) {
    const std::size_t mask = mEntries.size() - 1;
    std::size_t at = hash & mask;
    while (!mEntries[at].utf8.empty() && (mEntries[at].hash != hash || mEntries[at].utf8 != utf8))
        at = (at + 1) & mask;
    return mEntries[at];
}

void CVTextPool::grow() {
    std::vector<Entry> old(2 * mEntries.size());
    old.swap(mEntries);
    for (Entry& entry : old) {
        if (!entry.utf8.empty())
            find(entry.hash, entry.utf8) = std::move(entry);
    }
}
