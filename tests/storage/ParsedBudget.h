#pragma once

#include "kit/BudgetBuilder.h"
#include "kit/NotificationCounter.h"
#include "model/CVDocumentSaver.h"
#include "storage/CVDocumentParserDelegate.h"

#include <QByteArray>
#include <QStringList>

/// Counts the saves that a document asks for..
class SaveCounter final : public CVDocumentSaver {
public:
    bool workbookSave(CVDocument& document) override;
    [[nodiscard]] QStringList dataFiles() const override { return {}; }

    [[nodiscard]] int count() const { return mCount; }

private:
    int mCount = 0;
};

/// What the parser makes of some bytes: a document of its own, the outcome, and what was logged and announced
/// meanwhile.
class ParsedBudget final {
public:
    explicit ParsedBudget(const QByteArray& bytes);
    ParsedBudget(const ParsedBudget&) = delete;
    ParsedBudget& operator=(const ParsedBudget&) = delete;

    /// Whether the bytes were accepted, plain and well-formed.
    [[nodiscard]] bool read() const { return mRead; }
    [[nodiscard]] CVDocument& document() { return mBudget.document(); }
    [[nodiscard]] CVDocumentParserDelegate& parser() { return mParser; }
    [[nodiscard]] bool readWhole() const { return mParser.readWhole(); }
    [[nodiscard]] const QString& message() const { return mParser.errorMessage(); }
    [[nodiscard]] const QStringList& log() const { return mLog; }
    [[nodiscard]] const SaveCounter& saves() const { return mSaves; }
    [[nodiscard]] const NotificationCounter& notifications() const { return mNotifications; }
    /// The records as `describe` puts them.
    [[nodiscard]] QStringList records() { return describe(document()); }
    /// Whether the document holds the standard categories and nothing else, as after a reset.
    [[nodiscard]] bool holdsDefaults();

    /// One short line for the counters ("M"), each set ("S"), transaction ("T") and category ("C"), in the order of the
    /// file; fields that are null, zero or false are left out, and so is "M" when both counters are 0.
    [[nodiscard]] static QStringList describe(const CVDocument& document);

private:
    BudgetBuilder mBudget;
    SaveCounter mSaves;
    NotificationCounter mNotifications;
    CVDocumentParserDelegate mParser;
    bool mRead = false;
    QStringList mLog;
};

/// A whole file with these elements in its root.
[[nodiscard]] QByteArray inRoot(const QByteArray& elements);
