#include "ParserProperty.h"

#include "base/QBNotificationCenter.h"
#include "base/QBUserDefaults.h"
#include "model/CVCategory.h"
#include "model/CVDocument.h"
#include "storage/CVDocumentParserDelegate.h"
#include "storage/CVDocumentXML.h"

#include <QSettings>

namespace {

struct Surroundings {
    QBNotificationCenter center;
    QBUserDefaults defaults{std::make_unique<QSettings>(QStringLiteral("corvella-fuzz-unused"), QSettings::IniFormat),
                            QBUserDefaults::Changes::Forgotten};
};

enum class Reading { Refused, Encrypted, Malformed, Read };

Reading read(CVDocument& document, const QByteArray& bytes, QString& message) {
    CVDocumentParserDelegate parser(&document);
    const bool prepared = parser.prepareFromData(bytes);
    message = parser.errorMessage();
    if (!prepared)
        return Reading::Refused;
    if (parser.isEncrypted())
        return Reading::Encrypted;
    const bool parsed = parser.parseDocumentData();
    message = parser.errorMessage();
    return parsed ? Reading::Read : Reading::Malformed;
}

bool holdsNothing(const CVDocument& document) {
    return document.transactions().empty() && document.transactionSets().empty() && document.categories().empty() &&
           document.uniqueID() == 0;
}

bool holdsDefaults(const CVDocument& document) {
    const auto names = CVCategory::standardCategoryNames();
    return document.transactions().empty() && names && !names->isEmpty() &&
           document.countOfCategories() == static_cast<std::size_t>(names->size()) &&
           document.uniqueID() == document.countOfCategories();
}

QString brokenOutcome(Reading outcome, const CVDocument& document, const QString& message) {
    const bool failed = outcome != Reading::Read;
    if (failed == message.isEmpty())
        return failed ? QStringLiteral("a reading failed without a message")
                      : QStringLiteral("a reading succeeded with the message: ") + message;
    if (outcome == Reading::Malformed && !holdsDefaults(document))
        return QStringLiteral("malformed bytes left something other than the defaults");
    if ((outcome == Reading::Refused || outcome == Reading::Encrypted) && !holdsNothing(document))
        return QStringLiteral("bytes that were not parsed left records");
    return {};
}

QString brokenRoundTrip(const CVDocument& document, Surroundings& surroundings) {
    const QByteArray text = CVDocumentXMLRepresentation(document).joined();
    CVDocument again(surroundings.center, surroundings.defaults);
    QString message;
    if (read(again, text, message) != Reading::Read)
        return QStringLiteral("the written text cannot be read: ") + message;
    const QByteArray textAgain = CVDocumentXMLRepresentation(again).joined();
    if (textAgain == text)
        return {};
    return QStringLiteral("the written text reads back as another one:\n%1\nbecame\n%2")
        .arg(QString::fromUtf8(text), QString::fromUtf8(textAgain));
}

} // namespace

QString brokenParserProperty(const QByteArray& bytes) {
    // Kept from call to call: a fuzzer makes thousands of them in a second.
    static Surroundings surroundings;
    CVDocument document(surroundings.center, surroundings.defaults);
    QString message;
    const Reading outcome = read(document, bytes, message);
    QString broken = brokenOutcome(outcome, document, message);
    if (!broken.isNull())
        return broken;
    // The sets of malformed bytes stay, and with them those that share an ID, until the next reading.
    if (outcome == Reading::Malformed)
        document.finishedParsingData();
    document.sortTransactionsByDate();
    document.updateDates();
    return brokenRoundTrip(document, surroundings);
}
