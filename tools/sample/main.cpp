#include "CVSampleOptions.h"
#include "generator/CVHouseholdBudget.h"
#include "model/CVDetachedDocument.h"
#include "storage/CVDocumentXML.h"
#include "storage/CVWriteDocumentText.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <cstdio>

namespace {

constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

void print(std::FILE* stream, const QString& line) {
    std::fputs(qUtf8Printable(line), stream);
    std::fputc('\n', stream);
}

CVReplaceResult make(const CVSampleOptions& options) {
    CVDetachedDocument document;
    if (options.scale)
        CVFillScaleBudget(*document, *options.scale);
    else
        CVFillHouseholdBudget(*document, options.today);
    const QString folder = QFileInfo(options.output).absolutePath();
    if (!QDir().mkpath(folder))
        return {{CVSampleOptions::tr("the folder \"%1\" could not be made").arg(folder)}, {}};
    return CVWriteDocumentText(options.output, CVDocumentXMLRepresentation(*document),
                               CVFileSignature::of(options.output), CVFormerFile::Dropped);
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const CVSampleOptions options = CVSampleOptions::parse(QCoreApplication::arguments());
    if (options.wish == CVSampleOptions::Wish::Help) {
        print(stdout, options.message);
        return 0;
    }
    if (options.wish == CVSampleOptions::Wish::Wrong) {
        print(stderr, CVSampleOptions::tr("corvella-sample: %1 See --help.").arg(options.message));
        return kWrongUsage;
    }
    const CVReplaceResult result = make(options);
    if (!result.ok()) {
        print(
            stderr,
            CVSampleOptions::tr("corvella-sample: \"%1\" could not be written: %2.").arg(options.output, result.error));
        return kFailed;
    }
    return 0;
}
