#include "storage/CVTextPool.h"

#include "base/QBXMLText.h"

#include <QByteArrayView>
#include <QStringDecoder>

#include <utility>

namespace {

/// Null when the bytes are not valid UTF-8. A byte-order mark at the beginning is a character of the text. A carriage
/// return, which only a character reference can give, becomes a line feed at once, because it would not survive the
/// next save.
CVTextPool::Text decodedText(std::string_view bytes) {
    using Flag = QStringConverter::Flag;
    QStringDecoder decoder(QStringConverter::Utf8, Flag::Stateless | Flag::ConvertInitialBom);
    const QString text = decoder.decode(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
    if (decoder.hasError())
        return {QString(), false};
    QString storable = xml_storableText(text);
    const bool isWhole = storable == text;
    return {std::move(storable), isWhole};
}

} // namespace

const CVTextPool::Text& CVTextPool::text(std::string_view utf8) {
    if (utf8.empty())
        return mEmpty;
    if (const auto known = mTexts.find(utf8); known != mTexts.end())
        return known->second;
    return mTexts.emplace(utf8, decodedText(utf8)).first->second;
}
