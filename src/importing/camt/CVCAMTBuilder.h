#pragma once

#include "importing/camt/CVCAMTEntry.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QHash>
#include <QString>

#include <cstddef>
#include <vector>

/// What a message holds.
struct CVCAMTFile {
    /// Those with entries, in the order of the file.
    std::vector<CVCAMTAccount> accounts = {};
    /// "CAMT.053"; empty where the file is no such message.
    QString message = {};
    /// 0: not known.
    int version = 0;
    /// Whether there are more lines than are read.
    bool isTooLong = false;
};

/// Makes lines of the elements of a message as they come, so that the elements themselves are not kept.
class CVCAMTBuilder final {
public:
    /// More lines than these no statement has.
    static constexpr std::size_t kMostLines = 200'000;

    /// `name` is without a prefix, `currency` what the element has as such, `line` where it begins.
    void begin(QByteArrayView name, const QString& currency, int line);
    void addText(QByteArrayView text);
    void end();
    /// The name of the schema that the document names.
    void takeSchema(const QString& name);

    CVCAMTFile file;

private:
    /// Where a container begins in the path; 0: outside of it.
    struct Container {
        qsizetype end = 0;
        [[nodiscard]] bool isOpen() const { return end > 0; }
    };

    [[nodiscard]] QByteArrayView below(const Container& container) const;
    void beginStatement(QByteArrayView parent);
    void beginPart();
    void takeValue(const QString& value);
    void takeOfStatement(QByteArrayView path, const QString& value);
    void takeOfEntry(QByteArrayView path, const QString& value);
    void takeOfPart(QByteArrayView path, const QString& value);
    void finishEntry();
    CVCAMTAccount& accountOfEntry();

    /// "/Document/BkToCstmrStmt/Stmt"
    QByteArray mPath;
    /// Of the path before each open element.
    std::vector<qsizetype> mLengths;
    QByteArray mText;
    QString mCurrency;
    Container mStatement;
    Container mEntry;
    Container mPart;
    /// Of the statement that is open.
    CVCAMTAccount mAccount;
    CVCAMTEntry mBooked;
    std::size_t mLines = 0;
    QHash<QString, std::size_t> mPlaces;
};
