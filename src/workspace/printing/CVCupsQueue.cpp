#include "workspace/printing/CVCupsQueue.h"

#include <QLibrary>
#include <QPrintEngine>
#include <QPrinter>

#include <cups/cups.h>

namespace {

/// The functions of CUPS that are used here. The library is loaded when something is first printed, because loading it
/// with the program takes 5 ms and 4 MB of every start, also of the commands.
struct CupsFunctions {
    CupsFunctions();

    QLibrary library{QStringLiteral("cups"), 2};
    decltype(&cupsAddOption) addOption = nullptr;
    decltype(&cupsFreeOptions) freeOptions = nullptr;
    decltype(&cupsLastErrorString) lastErrorString = nullptr;
    decltype(&cupsPrintFile) printFile = nullptr;

    [[nodiscard]] bool areLoaded() const { return addOption && freeOptions && lastErrorString && printFile; }
};

template <typename Function>
void resolve(QLibrary& library, const char* name, Function& function) {
    function = reinterpret_cast<Function>(library.resolve(name));
}

CupsFunctions::CupsFunctions() {
    resolve(library, "cupsAddOption", addOption);
    resolve(library, "cupsFreeOptions", freeOptions);
    resolve(library, "cupsLastErrorString", lastErrorString);
    resolve(library, "cupsPrintFile", printFile);
}

/// The settings of a print job. A setting replaces an earlier one of the same name.
class JobOptions final {
public:
    explicit JobOptions(const CupsFunctions& cups) : mCups(cups) {}
    ~JobOptions() { mCups.freeOptions(mCount, mOptions); }
    JobOptions(const JobOptions&) = delete;
    JobOptions& operator=(const JobOptions&) = delete;

    void add(const QString& name, const QString& value) {
        mCount = mCups.addOption(name.toUtf8().constData(), value.toUtf8().constData(), mCount, &mOptions);
    }

    [[nodiscard]] int count() const { return mCount; }
    [[nodiscard]] cups_option_t* options() const { return mOptions; }

private:
    const CupsFunctions& mCups;
    int mCount = 0;
    cups_option_t* mOptions = nullptr;
};

QString sidesOf(const QPrinter& printer) {
    switch (printer.duplex()) {
    case QPrinter::DuplexNone:
        return QStringLiteral("one-sided");
    case QPrinter::DuplexShortSide:
        return QStringLiteral("two-sided-short-edge");
    case QPrinter::DuplexLongSide:
        return QStringLiteral("two-sided-long-edge");
    case QPrinter::DuplexAuto:
        break;
    }
    return printer.pageLayout().orientation() == QPageLayout::Landscape ? QStringLiteral("two-sided-short-edge")
                                                                        : QStringLiteral("two-sided-long-edge");
}

/// Adds the options that the toolkit's dialog set beyond the QPrinter settings: pages per sheet, cover pages, options
/// of the printer model. The toolkit keeps them as a list of alternating names and values, under a property number that
/// its public headers do not name.
void addOptionsOfTheDialog(JobOptions& options, const QPrinter& printer) {
    constexpr auto kCupsOptions = static_cast<QPrintEngine::PrintEnginePropertyKey>(0xfe00);
    const QStringList chosen = printer.printEngine()->property(kCupsOptions).toStringList();
    for (qsizetype i = 0; i + 1 < chosen.size(); i += 2)
        options.add(chosen[i], chosen[i + 1]);
}

} // namespace

std::optional<QString> CVCupsQueue::print(const QString& path, const QPageSize& paper, const QPrinter& printer) {
    const CupsFunctions cups;
    if (!cups.areLoaded())
        return cups.library.errorString();
    JobOptions options(cups);
    options.add(QStringLiteral("media"), paper.key());
    options.add(QStringLiteral("sides"), sidesOf(printer));
    options.add(QStringLiteral("copies"), QString::number(printer.copyCount()));
    options.add(QStringLiteral("Collate"), printer.collateCopies() ? QStringLiteral("True") : QStringLiteral("False"));
    if (printer.pageOrder() == QPrinter::LastPageFirst)
        options.add(QStringLiteral("outputorder"), QStringLiteral("reverse"));
    if (printer.colorMode() == QPrinter::GrayScale)
        options.add(QStringLiteral("print-color-mode"), QStringLiteral("monochrome"));
    addOptionsOfTheDialog(options, printer);
    // The part after a slash names an instance of the queue, whose settings the dialog has already read.
    const QByteArray queue = printer.printerName().section(u'/', 0, 0).toUtf8();
    const int job = cups.printFile(queue.constData(), path.toLocal8Bit().constData(),
                                   printer.docName().toUtf8().constData(), options.count(), options.options());
    return job != 0 ? std::nullopt : std::optional(QString::fromUtf8(cups.lastErrorString()));
}
