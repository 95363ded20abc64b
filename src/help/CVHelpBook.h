#pragma once

#include <QTemporaryDir>
#include <QUrl>

#include <memory>
#include <optional>

class QHelpEngine;

/// The help book: one compiled file, opened with contents, index and search. The collection that the help engine needs
/// is made anew for each book in a scratch folder, so that nothing about a book is ever stale or left behind.
class CVHelpBook final {
public:
    static constexpr const char* kStartPage = "index.html";

    /// The book's file for a program in `folder`: beside it, or where it is installed. Absent when there is none.
    [[nodiscard]] static std::optional<QString> fileForProgramIn(const QString& folder);

    explicit CVHelpBook(const QString& file);
    ~CVHelpBook();
    CVHelpBook(const CVHelpBook&) = delete;
    CVHelpBook& operator=(const CVHelpBook&) = delete;

    /// Why the book cannot be read; empty when it can. Nothing else may be asked of one that cannot.
    [[nodiscard]] const QString& problem() const { return mProblem; }

    /// The address of a page, such as "Categories.html"; that of the start page when there is no such page.
    [[nodiscard]] QUrl page(const QString& name) const;
    /// The bytes at an address of the book; empty when there are none.
    [[nodiscard]] QByteArray bytesAt(const QUrl& address) const;
    /// Whether an address is one of the help book's, be there a page or not.
    [[nodiscard]] static bool isInside(const QUrl& address);

    /// Its widgets and models, owned by the engine until they are given a parent.
    [[nodiscard]] QHelpEngine& engine() const { return *mEngine; }

private:
    [[nodiscard]] QString open(const QString& file);

    /// Outlives the engine.
    QTemporaryDir mScratch;
    std::unique_ptr<QHelpEngine> mEngine;
    QString mProblem;
};
