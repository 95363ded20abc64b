#pragma once

#include "files/CVFileSignature.h"
#include "storage/CVPartlyRead.h"

#include <QCoreApplication>
#include <QString>

#include <functional>
#include <optional>

class CVDocument;
class CVDocumentParserDelegate;
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
    /// What of a loaded file the next save does not write again.
    CVPartlyRead partly = {};
    /// What a loaded file was when its reading began; absent for any other outcome and for a file without a path.
    std::optional<CVFileSignature> signature = {};
    /// Whether the budget is only looked at, so that no save will follow.
    bool isReadOnly = false;

    /// Whether the file holds a budget, be it an empty one.
    [[nodiscard]] bool isBudget() const { return outcome == Outcome::Loaded || outcome == Outcome::NoBudget; }
};

/// Reads data files into new documents, on any thread. A damaged file leaves the document with its defaults, which it
/// then saves if it has a saver.
class CVDocumentReader final {
    Q_DECLARE_TR_FUNCTIONS(CVDocumentReader)

public:
    static constexpr const char* kDocumentType = "com.quenbylabs.corvella.document";
    static constexpr const char* kXMLDocumentType = "com.quenbylabs.corvella.xml";
    [[nodiscard]] static bool isAccepted(const QString& type);

    /// Sets a function that is called with 0 when the reading of a file begins, and then from time to time with the
    /// part that has been read, up to 1. Answering false cancels the reading. There is no function at first.
    void setProgress(std::function<bool(double part)> progress) { mProgress = std::move(progress); }

    /// Reads the file or pipe at `path`.
    CVLoadReport readFromURL(CVDocument& document, const QString& path);
    /// Reads an open file or pipe from its position to its end; the report has no path.
    CVLoadReport readFromOpenFile(CVDocument& document, QIODevice& file);
    /// False for another type than the two above, for too few or too many bytes, for encrypted bytes and for malformed
    /// XML.
    bool readFromData(CVDocument& document, QByteArray bytes, const QString& type);

private:
    [[nodiscard]] bool parse(CVDocumentParserDelegate& parser, bool isPrepared);

    /// Why the last read gave no budget; empty when it gave one.
    QString mReason;
    CVPartlyRead mPartly;
    bool mWasCancelled = false;
    bool mWasBrokenOff = false;
    std::function<bool(double part)> mProgress;
};
