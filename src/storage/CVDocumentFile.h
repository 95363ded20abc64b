#pragma once

#include "base/CVFileResult.h"
#include "model/CVDocumentSaver.h"
#include "storage/CVSaveQueue.h"
#include "storage/CVStandardDataFile.h"

#include <QCoreApplication>

#include <functional>
#include <optional>

class CVDocument;
class CVDocumentParserDelegate;
class QBUserDefaults;
class QIODevice;

/// The outcome of reading the data file.
struct CVLoadReport {
    enum class Outcome {
        NoFile,
        Loaded,
        /// The file is XML of another kind, which reads as an empty budget. It is kept before it is written over,
        /// because it may matter to somebody.
        NoBudget,
        /// The file holds something that is no budget or a damaged one. A damaged file is kept beside and replaced.
        Unreadable,
        /// The file could not be opened, or not be read to its end, which says nothing about what it holds. The
        /// document is empty; nothing was saved.
        NotRead,
        /// The user cancelled the reading; the document is empty.
        Cancelled
    };

    Outcome outcome = Outcome::NoFile;
    QString path;
    /// Why the file could not be read; empty otherwise.
    QString reason;
};

/// Finds, reads and saves the data file of a document. References the user defaults; owns the save queue.
class CVDocumentFile final : public CVDocumentSaver {
    Q_DECLARE_TR_FUNCTIONS(CVDocumentFile)

public:
    static constexpr const char* kDocumentType = "com.quenbylabs.corvella.document";
    static constexpr const char* kXMLDocumentType = "com.quenbylabs.corvella.xml";

    CVDocumentFile(CVStandardFolders folders, QBUserDefaults& defaults);

    /// Sets a function that is called with 0 when the reading of a file begins, and then from time to time with the
    /// part that has been read, up to 1. Answering false cancels the reading. There is no function at first.
    void setReadingProgress(std::function<bool(double part)> progress) { mReadingProgress = std::move(progress); }

    /// Fills a new document from the user's data file, or with the defaults when there is no readable file.
    CVLoadReport initWithStandardUserFile(CVDocument& document);
    /// Reads the file or pipe at `path` into a new document.
    CVLoadReport readFromURL(CVDocument& document, const QString& path);
    /// Reads an open file or pipe from its position to its end; saving never writes over it.
    CVLoadReport readFromOpenFile(CVDocument& document, QIODevice& file);
    /// False for another type than the two above, for too few or too many bytes, for encrypted bytes and for malformed
    /// XML.
    bool readFromData(CVDocument& document, QByteArray bytes, const QString& type);
    /// The document's text; absent for another type than the two above (an unknown file-write error, code 512).
    [[nodiscard]] static std::optional<CVDocumentText> dataOfType(const CVDocument& document, const QString& type);

    /// Does `CVRecoverInterruptedSaves` for the user's data file, before it is first read.
    [[nodiscard]] CVFileResult recoverInterruptedSaves() const;
    bool workbookSave(CVDocument& document) override;
    [[nodiscard]] QStringList dataFiles() const override { return CVOwnDataFiles(mFolders, mDefaults); }
    [[nodiscard]] CVSaveQueue& saves() { return mSaves; }

private:
    [[nodiscard]] CVLoadReport reportObstacle() const;
    [[nodiscard]] bool parse(CVDocumentParserDelegate& parser, bool isPrepared);

    CVStandardFolders mFolders;
    QBUserDefaults& mDefaults;
    /// Why the last read gave no budget; empty when it gave one.
    QString mReason;
    bool mReadWhole = false;
    bool mWasCancelled = false;
    bool mWasBrokenOff = false;
    std::function<bool(double part)> mReadingProgress;
    CVSaveQueue mSaves;
};
