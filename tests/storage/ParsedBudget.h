#pragma once

#include "kit/BudgetBuilder.h"
#include "kit/NotificationCounter.h"
#include "model/CVDocumentSaver.h"
#include "storage/CVDocumentParserDelegate.h"

#include <QByteArray>
#include <QStringList>

/// Counts the saves that a document asks for.
class SaveCounter final : public CVDocumentSaver {
public:
    bool workbookSave(CVDocument& document) override;
    [[nodiscard]] QStringList dataFiles() const override { return {}; }

    [[nodiscard]] int count() const { return mCount; }

private:
    int mCount = 0;
};

/// The result of parsing some bytes: a new document, the outcome, the log and the notifications.
class ParsedBudget final {
public:
    explicit ParsedBudget(const QByteArray& bytes);
    ParsedBudget(const ParsedBudget&) = delete;
    ParsedBudget& operator=(const ParsedBudget&) = delete;

    /// Whether the parser accepted the bytes as plain, well-formed text.
    [[nodiscard]] bool read() const { return mRead; }
    [[nodiscard]] CVDocument& document() { return mBudget.document(); }
    [[nodiscard]] CVDocumentParserDelegate& parser() { return mParser; }
    [[nodiscard]] bool readWhole() const { return mParser.readWhole(); }
    [[nodiscard]] const QString& message() const { return mParser.errorMessage(); }
    [[nodiscard]] const QStringList& log() const { return mLog; }
    [[nodiscard]] const SaveCounter& saves() const { return mSaves; }
    [[nodiscard]] const NotificationCounter& notifications() const { return mNotifications; }
    /// The records in the form of `describe`.
    [[nodiscard]] QStringList records() { return describe(document()); }
    /// Whether the document contains exactly the standard categories, as after a reset.
    [[nodiscard]] bool holdsDefaults();

    /// One short line each for the counters ("M"), sets ("S"), transactions ("T") and categories ("C"), in the order of
    /// the file. Fields that are null, zero or false are left out; "M" is left out when both counters are 0.
    [[nodiscard]] static QStringList describe(const CVDocument& document);

private:
    BudgetBuilder mBudget;
    SaveCounter mSaves;
    NotificationCounter mNotifications;
    CVDocumentParserDelegate mParser;
    bool mRead = false;
    QStringList mLog;
};

/// A complete file with these elements in its root.
[[nodiscard]] QByteArray inRoot(const QByteArray& elements);
