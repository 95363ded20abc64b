#pragma once

#include "model/CVDocumentSaver.h"
#include "storage/CVSaveQueue.h"
#include "storage/CVStandardDataFile.h"

#include <QCoreApplication>

#include <functional>
#include <optional>

class QBUserDefaults;
class QFile;

/// How the reading of the data file went.
struct CVLoadReport {
    enum class Outcome {
        NoFile,
        Loaded,
        /// XML of another kind, which reads as an empty budget. It is somebody's file: kept before it is written over.
        NoBudget,
        /// Nothing was read; the file is untouched, or, when it is damaged, being replaced after a copy was kept.
        Unreadable,
        /// The user did not want to wait; the document is of no use.
        Cancelled
    };

    Outcome outcome = Outcome::NoFile;
    QString path;
    /// Why the file could not be read; empty otherwise.
    QString reason;
};

/// The one data file of a document: finds it, reads it, saves it. References the user defaults; owns the save queue.
class CVDocumentFile final : public CVDocumentSaver {
    Q_DECLARE_TR_FUNCTIONS(CVDocumentFile)

public:
    static constexpr const char* kDocumentType = "com.quenbylabs.corvella.document";
    static constexpr const char* kXMLDocumentType = "com.quenbylabs.corvella.xml";

    CVDocumentFile(CVStandardFolders folders, QBUserDefaults& defaults);

    /// Hears 0 when the reading of a file begins and then now and again which part of it has been read, up to 1, by an
    /// estimate; it cancels the reading by answering false. None at first.
    void setReadingProgress(std::function<bool(double part)> progress) { mReadingProgress = std::move(progress); }

    /// Fills a new document from the user's data file, or with the defaults when there is none to be read.
    CVLoadReport initWithStandardUserFile(CVDocument& document);
    /// Reads the file at `path`, or what a pipe there brings, into a new document.
    CVLoadReport readFromURL(CVDocument& document, const QString& path);
    /// Reads what is open from where it stands to its end; it is never written over.
    CVLoadReport readFromOpenFile(CVDocument& document, QFile& file);
    /// False for another type than the two above, for too few or too many bytes, encrypted ones and malformed XML.
    bool readFromData(CVDocument& document, QByteArray bytes, const QString& type);
    /// The document's text; absent for another type than the two above (an unknown file-write error, code 512).
    [[nodiscard]] static std::optional<CVDocumentText> dataOfType(const CVDocument& document, const QString& type);

    bool workbookSave(CVDocument& document) override;
    [[nodiscard]] QStringList dataFiles() const override { return CVOwnDataFiles(mFolders, mDefaults); }
    [[nodiscard]] CVSaveQueue& saves() { return mSaves; }

private:
    [[nodiscard]] CVLoadReport reportObstacle() const;
    /// Everything that comes, as long as it is not too long to be parsed; absent, with the reason, when it is or cannot
    /// be read.
    [[nodiscard]] static std::optional<QByteArray> readBytes(QFile& file, QString& reason);

    CVStandardFolders mFolders;
    QBUserDefaults& mDefaults;
    /// Why nothing came out of the last read; empty when something did.
    QString mReason;
    bool mReadWhole = false;
    bool mWasCancelled = false;
    std::function<bool(double part)> mReadingProgress;
    CVSaveQueue mSaves;
};
