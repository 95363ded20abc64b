#pragma once

#include <QTemporaryDir>
#include <QUrl>

#include <memory>
#include <optional>

class QHelpEngine;

/// The help book: one compiled file with contents, index and search. The collection file that the help engine needs is
/// made for each opening in a scratch folder, so that it is never out of date and nothing is left behind.
class CVHelpBook final {
public:
    static constexpr const char* kStartPage = "index.html";

    /// The book's file for a program in `folder`, in a build or in an installation; absent when there is none.
    [[nodiscard]] static std::optional<QString> fileForProgramIn(const QString& folder);

    explicit CVHelpBook(const QString& file);
    ~CVHelpBook();
    CVHelpBook(const CVHelpBook&) = delete;
    CVHelpBook& operator=(const CVHelpBook&) = delete;

    /// Why the book cannot be read; empty when it can. No other function may be called on an unreadable book.
    [[nodiscard]] const QString& problem() const { return mProblem; }

    /// The address of the page with a file name such as "Categories.html"; the address of the start page when there is
    /// no such page.
    [[nodiscard]] QUrl page(const QString& name) const;
    /// The bytes at an address of the book; empty when there are none.
    [[nodiscard]] QByteArray bytesAt(const QUrl& address) const;
    /// Whether an address has the book's namespace, even when no such page exists.
    [[nodiscard]] static bool isInside(const QUrl& address);

    /// The help engine with its widgets and models, which the engine owns until they get a parent.
    [[nodiscard]] QHelpEngine& engine() const { return *mEngine; }

private:
    [[nodiscard]] QString open(const QString& file);

    /// The scratch folder, which must outlive the engine.
    QTemporaryDir mScratch;
    std::unique_ptr<QHelpEngine> mEngine;
    QString mProblem;
};
