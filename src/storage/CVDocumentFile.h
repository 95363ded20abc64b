#pragma once

#include "files/CVFileResult.h"
#include "model/CVDocumentSaver.h"
#include "storage/CVDocumentReader.h"
#include "storage/CVSaveQueue.h"
#include "storage/CVStandardDataFile.h"

#include <QCoreApplication>

#include <functional>
#include <optional>

class CVDocument;
class QBUserDefaults;
class QIODevice;

/// Finds, reads and saves the data file of a document. References the user defaults; owns the save queue.
class CVDocumentFile final : public CVDocumentSaver {
    Q_DECLARE_TR_FUNCTIONS(CVDocumentFile)

public:
    static constexpr const char* kDocumentType = CVDocumentReader::kDocumentType;
    static constexpr const char* kXMLDocumentType = CVDocumentReader::kXMLDocumentType;

    CVDocumentFile(CVStandardFolders folders, QBUserDefaults& defaults);

    /// See `CVDocumentReader::setProgress`.
    void setReadingProgress(std::function<bool(double part)> progress) { mReader.setProgress(std::move(progress)); }

    /// Fills a new document from the user's data file, or with the defaults when there is no readable file.
    CVLoadReport initWithStandardUserFile(CVDocument& document);
    /// Fills a new document from that file, which the user has chosen, and saves the document from now on. A file that
    /// holds no budget that can be read leaves the document empty and without a saver, and is not touched.
    CVLoadReport initWithChosenFile(CVDocument& document, const QString& path);
    /// Fills a new document with the defaults, and saves the document from now on.
    void initAsNew(CVDocument& document);
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
    /// Decides whether the budget is only looked at; then nothing is written.
    void setReadOnly(bool isReadOnly) { mIsReadOnly = isReadOnly; }
    [[nodiscard]] bool isReadOnly() const override { return mIsReadOnly; }
    [[nodiscard]] QStringList dataFiles() const override { return CVOwnDataFiles(mFolders, mDefaults); }
    [[nodiscard]] QString placeForSaving() const override {
        return CVPathForSaving(mFolders, mDefaults).value_or(QString());
    }
    [[nodiscard]] CVSaveQueue& saves() { return mSaves; }
    /// What the next saves do with another program's file that cannot be read.
    [[nodiscard]] CVUnreadableFile unreadableFiles() const { return mUnreadableFiles; }
    void setUnreadableFiles(CVUnreadableFile unreadable) { mUnreadableFiles = unreadable; }
    [[nodiscard]] const CVStandardFolders& folders() const { return mFolders; }

private:
    [[nodiscard]] CVLoadReport reportObstacle();
    static void prepare(CVDocument& document, CVLoadReport::Outcome outcome);

    CVStandardFolders mFolders;
    QBUserDefaults& mDefaults;
    CVDocumentReader mReader;
    CVUnreadableFile mUnreadableFiles = CVUnreadableFile::AwaitedIfWatched;
    bool mIsReadOnly = false;
    CVSaveQueue mSaves;
};
