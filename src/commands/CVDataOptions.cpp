#include "commands/CVDataOptions.h"

#include <QCoreApplication>

#include <array>

namespace {

constexpr QLatin1StringView kHelp("help");

struct DataOptionsText {
    Q_DECLARE_TR_FUNCTIONS(CVDataOptions)
};

QString readData(const QString& value, CVDataOptions& options) {
    options.dataFile = value;
    return value.isEmpty() ? DataOptionsText::tr("--data needs the name of a file") : QString();
}

constexpr std::array<CVOption<CVDataOptions>, 1> kDataFileOptions{{{"data", readData}}};

} // namespace

std::optional<CVDataOptions> CVDataOptions::parse(const QStringList& arguments, QString& problem) {
    QCommandLineParser parser;
    declare(parser);
    CVDataOptions options;
    if (!parser.parse(arguments)) {
        problem = parser.errorText();
        return std::nullopt;
    }
    if (asksForHelp(parser)) {
        options.help = true;
        return options;
    }
    if (!parser.positionalArguments().isEmpty())
        problem = DataOptionsText::tr("%1 takes no argument \"%2\"")
                      .arg(arguments.constFirst(), parser.positionalArguments().constFirst());
    else
        problem = options.read(parser);
    return problem.isEmpty() ? std::optional(options) : std::nullopt;
}

void CVDataOptions::declare(QCommandLineParser& parser) {
    parser.addOption(QCommandLineOption(QStringList{QStringLiteral("h"), kHelp}));
    CVDeclareOptions<CVDataOptions>(parser, kDataFileOptions);
}

QString CVDataOptions::read(const QCommandLineParser& parser) {
    return CVReadOptions<CVDataOptions>(parser, kDataFileOptions, *this);
}

bool CVDataOptions::asksForHelp(const QCommandLineParser& parser) {
    return parser.isSet(kHelp);
}
