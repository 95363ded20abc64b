#include "storage/CVTextPool.h"

#include "base/QBXMLText.h"

#include <QByteArrayView>
#include <QStringDecoder>

namespace {

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

QString CVTextPool::text(std::string_view utf8) {
    if (utf8.empty())
        return QLatin1String("");
    if (const auto known = mTexts.find(utf8); known != mTexts.end())
        return known->second;
    return mTexts.emplace(utf8, decodedText(utf8)).first->second;
}
