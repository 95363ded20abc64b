#pragma once

#include "base/QBDate.h"
#include "model/CVParsing.h"
#include "model/CVTransactionBlocks.h"
#include "storage/CVTextPool.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class CVDocument;

/// Why a file could not be read: one of the codes below, the file, and a sentence for a person.
struct CVReadError {
    static constexpr int kNoSuchFile = 260;
    static constexpr int kCorruptFile = 259;
    static constexpr int kUnknownRead = 256;

    int code = 0;
    QString path;
    QString message;
};

/// Turns the bytes of a data file into the records of a document: one parser for one read. Handles the root, the
/// counters and the creation of records; what lies inside a record the record reads itself, driven by a stack of
/// parsing objects (the parser itself at the bottom, at most one record above). References the document.
class CVDocumentParserDelegate final : public CVParsingDelegate, public CVParsingObject {
    Q_DECLARE_TR_FUNCTIONS(CVDocumentParserDelegate)

public:
    explicit CVDocumentParserDelegate(CVDocument* target = nullptr);
    ~CVDocumentParserDelegate();
    CVDocumentParserDelegate(const CVDocumentParserDelegate&) = delete;
    CVDocumentParserDelegate& operator=(const CVDocumentParserDelegate&) = delete;

    /// Hears now and then which part of the bytes has been read, by an estimate from 0 to 1, and cancels the reading by
    /// answering false.
    void setProgress(std::function<bool(double part)> progress) { mProgress = std::move(progress); }
    /// Whether it did: then the document holds a part of the file, and is of no use.
    [[nodiscard]] bool wasCancelled() const { return mWasCancelled; }

    /// Examines the bytes and keeps them: as plain XML, or, when they are encrypted, their salt, vector and cipher.
    /// False, with nothing kept and a message, when there are fewer than 64 bytes or more than 2 GiB less one.
    bool prepareFromData(QByteArray bytes);
    /// The same for a file of any length up to that limit; false, with `error` (if any) filled, when it cannot be read
    /// or its cipher has no end.
    bool prepareFromFile(const QString& path, CVReadError* error);
    [[nodiscard]] bool isEncrypted() const { return _co_encrypted; }
    /// Decrypts nothing: tells whether plain bytes are present.
    [[nodiscard]] bool decryptWithKey(const QString& key) const;
    /// Parses the kept bytes into the document. Without any it resets the document to its defaults and succeeds;
    /// malformed XML also resets it (both save) and fails with a message, and so does a parser without a document.
    bool parseDocumentData();
    /// What went wrong, for a person, with the line number where there is one; empty when nothing did.
    [[nodiscard]] const QString& errorMessage() const { return mErrorMessage; }
    /// Whether every byte was understood: no error was met on the way, not even one that libxml2 got over, and no NUL,
    /// at which it ends quietly. A budget that was not read whole must not be written over unseen.
    [[nodiscard]] bool readWhole() const { return mErrorCount == 0 && !mHoldsNul; }
    /// Whether the file had the root element of a budget; without it nothing was read.
    [[nodiscard]] bool foundRoot() const { return mFoundRoot; }

    void pushParsingObject(CVParsingObject* object);
    void popParsingObjectForEndingElement(const char* name) override;
    /// Null when the stack is empty.
    [[nodiscard]] CVParsingObject* currentParsingObject() const;

    [[nodiscard]] bool isStoringCharacters() const { return _co_storing_characters; }
    void setStoringCharacters(bool storing) override { _co_storing_characters = storing; }
    void appendCharacters(const char* bytes, qsizetype length);
    [[nodiscard]] QString tempParsingString() override;
    /// The collected characters as a number (leading-number conversion), which are then forgotten.
    [[nodiscard]] double tempParsingStringDoubleValue();

    [[nodiscard]] bool isWorkingOnUnknownTag() const { return _co_is_parsing_unknown; }
    void setWorkingOnUnknownTag(bool unknown) override { _co_is_parsing_unknown = unknown; }
    [[nodiscard]] const QByteArray& unknownTag() const { return _co_unknown_tag; }
    void setUnknownTag(const char* name) override { _co_unknown_tag = name; }

    /// The root's xmlns value; absent when it has none.
    [[nodiscard]] const std::optional<QString>& file_version() const { return _co_file_version; }
    [[nodiscard]] const std::optional<QByteArray>& saltData() const { return _co_salt_data; }
    [[nodiscard]] const std::optional<QByteArray>& ivData() const { return _co_iv_data; }
    [[nodiscard]] const std::optional<QByteArray>& encryptedData() const { return _co_encrypted_data; }

    void startElement(const char* name, CVXMLAttributes attributes);
    void endElement(const char* name);
    void parsingDelegateStartElement(CVParsingDelegate& delegate, const char* name,
                                     CVXMLAttributes attributes) override;
    void parsingDelegateEndElement(CVParsingDelegate& delegate, const char* name) override;

private:
    bool keepPlainBytes(QByteArray bytes);
    [[nodiscard]] QString malformedMessage() const;
    [[nodiscard]] int parsePlainBytes();
    void reportProgress();
    bool readEncryptedParts(QByteArrayView text);
    template <typename Record>
    void begin(Record& record, const char* name, CVXMLAttributes attributes);
    void readMiscInfo(CVXMLAttributes attributes);
    friend struct CVDocumentParserCallbacks;
    void noteError(const char* message, int line);

    std::vector<CVParsingObject*> _co_parsing_object_stack;
    bool _co_encrypted = false;
    std::optional<QByteArray> _co_salt_data;
    std::optional<QByteArray> _co_iv_data;
    std::optional<QByteArray> _co_encrypted_data;
    std::optional<QByteArray> _co_decrypted_data;
    std::string _co_character_buffer;
    bool _co_storing_characters = false;
    QByteArray _co_unknown_tag;
    bool _co_is_parsing_unknown = false;
    CVDocument* document;
    std::optional<QString> _co_file_version;

    /// Each text once, whatever the number of records that hold it.
    CVTextPool mTexts;
    CVTransactionBlocks mTransactions;
    /// Asked for once: the clock looks up the time zone each time.
    QBDate mToday = QBDate::date();
    bool mFoundRoot = false;
    bool mHoldsNul = false;
    bool mIsUtf32 = false;
    /// A callback ran out of memory, or the reading was cancelled: what was read is incomplete.
    bool mGaveUp = false;
    bool mWasCancelled = false;
    std::function<bool(double part)> mProgress;
    double mExpectedTransactions = 0;
    int mErrorCount = 0;
    int mErrorLine = 0;
    QString mFirstError;
    QString mErrorMessage;
};
