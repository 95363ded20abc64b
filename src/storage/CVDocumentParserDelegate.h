#pragma once

#include "base/QBDate.h"
#include "model/CVParsing.h"
#include "model/CVTransactionBlocks.h"
#include "storage/CVPartlyNotes.h"
#include "storage/CVTextPool.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

class CVDocument;
class CVExaminedSource;
class QIODevice;

/// Why a file could not be read: one of the codes below, the file, and a reason that a person can read.
struct CVReadError {
    static constexpr int kNoSuchFile = 260;
    static constexpr int kCorruptFile = 259;
    static constexpr int kUnknownRead = 256;

    int code = 0;
    QString path;
    QString message;
};

/// Turns the bytes of a data file into the records of a document; a parser serves one read. Handles the root, the
/// counters and the creation of records. Each record reads its own elements: a stack of parsing objects (the parser at
/// the bottom, at most one record above) says which object reads. References the document.
class CVDocumentParserDelegate final : public CVParsingDelegate, public CVParsingObject {
    Q_DECLARE_TR_FUNCTIONS(CVDocumentParserDelegate)

public:
    explicit CVDocumentParserDelegate(CVDocument* target = nullptr);
    ~CVDocumentParserDelegate();
    CVDocumentParserDelegate(const CVDocumentParserDelegate&) = delete;
    CVDocumentParserDelegate& operator=(const CVDocumentParserDelegate&) = delete;

    /// Sets a function that is called from time to time with the part of the bytes that has been read, from 0 to 1.
    /// Answering false cancels the reading. To be set before the bytes are prepared.
    void setProgress(std::function<bool(double part)> progress) { mProgress = std::move(progress); }
    /// Whether the progress function cancelled the reading; the document is then empty.
    [[nodiscard]] bool wasCancelled() const { return mWasCancelled; }
    /// Whether the reading broke off: a read error, no memory, or cancelled.
    [[nodiscard]] bool wasBrokenOff() const { return mWasBrokenOff; }

    /// Examines the bytes and keeps them: as plain XML, or, when they are encrypted, their salt, vector and cipher.
    /// False, with nothing kept and a message, when there are fewer than 64 bytes or more than 2 GiB less one.
    bool prepareFromData(QByteArray bytes);
    /// Does the same with a file, which may be shorter than 64 bytes; false, with `error` (unless null) filled, when it
    /// cannot be read or its cipher has no end.
    bool prepareFromFile(const QString& path, CVReadError* error);
    /// Does the same with the bytes of an open device from its position on. Plain bytes are read while they are parsed:
    /// the device must stay open until then. False also when the device fails or the reading is cancelled.
    bool prepareFromDevice(QIODevice& device);
    [[nodiscard]] bool isEncrypted() const { return _co_encrypted; }
    /// Decrypts nothing: tells whether plain bytes are present.
    [[nodiscard]] bool decryptWithKey(const QString& key) const;
    /// Parses the prepared bytes into the document. Without bytes it resets the document to its defaults, which saves
    /// it, and succeeds. Malformed XML also resets and saves the document, but fails with a message. A reading that
    /// breaks off (a read error, no memory, or cancelled) says nothing about the file: it fails with a message, leaves
    /// the document empty and saves nothing. A parser without a document fails.
    bool parseDocumentData();
    /// The reason of a failure that a person can read, with the line number where there is one; empty without failure.
    [[nodiscard]] const QString& errorMessage() const { return mErrorMessage; }
    /// Whether every byte was understood: libxml2 met no error, not even one from which it recovered, and no NUL, at
    /// which it stops silently. A file that was not read whole must not be written over before it is kept.
    [[nodiscard]] bool readWhole() const { return mErrorCount == 0 && !mHoldsNul; }
    /// What of the file will not be written again.
    [[nodiscard]] const CVPartlyRead& partlyRead() const { return mPartly.read(); }
    /// Whether the file had the root element of a budget; without it nothing was read.
    [[nodiscard]] bool foundRoot() const { return mFoundRoot; }

    void pushParsingObject(CVParsingObject* object);
    void popParsingObjectForEndingElement(const char* name) override;
    /// Null when the stack is empty.
    [[nodiscard]] CVParsingObject* currentParsingObject() const;

    [[nodiscard]] bool isStoringCharacters() const { return _co_storing_characters; }
    void setStoringCharacters(bool storing) override;
    void appendCharacters(const char* bytes, qsizetype length);
    [[nodiscard]] QString tempParsingString() override;
    /// The collected characters as a number (leading-number conversion), which are then forgotten.
    [[nodiscard]] double tempParsingStringDoubleValue();

    [[nodiscard]] bool isWorkingOnUnknownTag() const { return _co_is_parsing_unknown; }
    void setWorkingOnUnknownTag(bool unknown) override { _co_is_parsing_unknown = unknown; }
    [[nodiscard]] const QByteArray& unknownTag() const { return _co_unknown_tag; }
    void setUnknownTag(const char* name) override;
    void notePartly(CVPartly what, const char* name, const char* value) override;

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
    [[nodiscard]] bool breakOff(const CVExaminedSource& source);
    [[nodiscard]] QString malformedMessage() const;
    [[nodiscard]] int parse(CVExaminedSource& source);
    bool readEncryptedParts(QByteArrayView text);
    template <typename Record>
    void begin(Record& record, const char* name, CVXMLAttributes attributes);
    void readMiscInfo(CVXMLAttributes attributes);
    template <typename Record>
    void noteRepeatedID(const Record& record, const char* name, std::unordered_set<quint32>& known);
    void noteText(std::string_view text);
    /// The line of the file that is being read.
    [[nodiscard]] int line() const;
    friend struct CVDocumentParserCallbacks;
    void noteError(const char* message, int line);

    std::vector<CVParsingObject*> _co_parsing_object_stack;
    bool _co_encrypted = false;
    std::optional<QByteArray> _co_salt_data;
    std::optional<QByteArray> _co_iv_data;
    std::optional<QByteArray> _co_encrypted_data;
    std::optional<QByteArray> _co_decrypted_data;
    /// The plain bytes that are read while they are parsed; null when they are kept or there are none.
    std::unique_ptr<CVExaminedSource> mSource;
    std::string _co_character_buffer;
    bool _co_storing_characters = false;
    QByteArray _co_unknown_tag;
    bool _co_is_parsing_unknown = false;
    CVDocument* document;
    std::optional<QString> _co_file_version;

    /// Holds each text once, whatever the number of records with that text.
    CVTextPool mTexts;
    CVTransactionBlocks mTransactions;
    /// Read once, because the clock looks up the time zone each time.
    QBDate mToday = QBDate::date();
    CVPartlyNotes mPartly;
    /// libxml2's parser while it runs; null otherwise.
    void* mContext = nullptr;
    bool mFoundRoot = false;
    bool mFoundMiscInfo = false;
    /// Whether text between the present tags has been noted, which comes in pieces.
    bool mHasNotedText = false;
    std::unordered_set<quint32> mSetIDs;
    std::unordered_set<quint32> mCategoryIDs;
    bool mHoldsNul = false;
    bool mIsUtf32 = false;
    /// A callback ran out of memory, or the source stopped: the document is incomplete.
    bool mGaveUp = false;
    bool mWasCancelled = false;
    bool mWasBrokenOff = false;
    std::function<bool(double part)> mProgress;
    int mErrorCount = 0;
    int mErrorLine = 0;
    QString mFirstError;
    QString mErrorMessage;
};
