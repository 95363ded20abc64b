#include "CVSampleOptions.h"

#include <QCommandLineParser>

#include <array>
#include <limits>

namespace {

struct Number {
    const char* name;
    const char* description;
    quint64 least;
    quint64 most;
    void (*set)(CVScaleBudget&, quint64);
};

/// The options with a number. The first one sets the size of the budget; the others are allowed only together with it.
constexpr auto kNumbers = std::to_array<Number>({
    {"transactions", QT_TRANSLATE_NOOP("CVSampleOptions", "Make a budget of N transactions."), 0, 10'000'000,
     [](CVScaleBudget& budget, quint64 value) { budget.transactions = value; }},
    {"categories", QT_TRANSLATE_NOOP("CVSampleOptions", "Number of its categories (40)."), 1, 10'000,
     [](CVScaleBudget& budget, quint64 value) { budget.categories = value; }},
    {"sets", QT_TRANSLATE_NOOP("CVSampleOptions", "Number of its transaction sets (2)."), 0, 10'000,
     [](CVScaleBudget& budget, quint64 value) { budget.sets = value; }},
    {"years", QT_TRANSLATE_NOOP("CVSampleOptions", "Number of years that it covers (10)."), 1, 1'000,
     [](CVScaleBudget& budget, quint64 value) { budget.years = static_cast<int>(value); }},
    {"seed", QT_TRANSLATE_NOOP("CVSampleOptions", "Another number makes another budget (1)."), 0,
     std::numeric_limits<quint64>::max(), [](CVScaleBudget& budget, quint64 value) { budget.seed = value; }},
});

constexpr const char* kTransactions = kNumbers.front().name;

void describe(QCommandLineParser& parser) {
    parser.setApplicationDescription(CVSampleOptions::tr("Writes a made-up Corvella data file."));
    parser.addOption({QStringLiteral("sample"), CVSampleOptions::tr("Make two years of a family's budget.")});
    for (const Number& number : kNumbers)
        parser.addOption({QLatin1String(number.name), CVSampleOptions::tr(number.description), QStringLiteral("N")});
    parser.addOption({QStringLiteral("today"), CVSampleOptions::tr("The last day of the budget (today)."),
                      QStringLiteral("YYYY/MM/DD")});
    parser.addOption({QStringLiteral("output"), CVSampleOptions::tr("The file to write; missing folders are made."),
                      QStringLiteral("FILE")});
    parser.addOption({{QStringLiteral("h"), QStringLiteral("help")}, CVSampleOptions::tr("Show this help.")});
}

/// Says which options contradict each other; empty when none do.
QString contradiction(const QCommandLineParser& parser) {
    if (!parser.positionalArguments().isEmpty())
        return CVSampleOptions::tr("Unexpected argument '%1'.").arg(parser.positionalArguments().first());
    if (parser.value(QStringLiteral("output")).isEmpty())
        return CVSampleOptions::tr("Option 'output' is missing.");
    const bool sample = parser.isSet(QStringLiteral("sample"));
    if (sample == parser.isSet(QLatin1String(kTransactions)))
        return CVSampleOptions::tr("One of the options 'sample' and 'transactions' is needed.");
    for (const Number& number : kNumbers) {
        if (sample && parser.isSet(QLatin1String(number.name)))
            return CVSampleOptions::tr("Option '%1' does not go with 'sample'.").arg(QLatin1String(number.name));
    }
    return {};
}

/// Reads the numbers into `budget`. Returns what is wrong with the first invalid one; empty when all are valid.
QString readNumbers(const QCommandLineParser& parser, CVScaleBudget& budget) {
    for (const Number& number : kNumbers) {
        const QLatin1String name(number.name);
        if (!parser.isSet(name))
            continue;
        bool valid = false;
        const quint64 value = parser.value(name).toULongLong(&valid);
        if (!valid || value < number.least || value > number.most) {
            return CVSampleOptions::tr("Option '%1' needs a whole number from %2 to %3.")
                .arg(name)
                .arg(number.least)
                .arg(number.most);
        }
        number.set(budget, value);
    }
    return {};
}

CVSampleOptions withMessage(CVSampleOptions::Wish wish, const QString& message) {
    CVSampleOptions options;
    options.wish = wish;
    options.message = message;
    return options;
}

} // namespace

CVSampleOptions CVSampleOptions::parse(const QStringList& arguments) {
    QCommandLineParser parser;
    describe(parser);
    if (!parser.parse(arguments))
        return withMessage(Wish::Wrong, parser.errorText());
    if (parser.isSet(QStringLiteral("help")))
        return withMessage(Wish::Help, parser.helpText());
    if (const QString wrong = contradiction(parser); !wrong.isEmpty())
        return withMessage(Wish::Wrong, wrong);

    CVSampleOptions options;
    options.output = parser.value(QStringLiteral("output"));
    if (parser.isSet(QStringLiteral("today"))) {
        const auto day = QBDate::optimizedDateWithCStringXMLFormat(parser.value(QStringLiteral("today")).toStdString());
        if (!day)
            return withMessage(Wish::Wrong, tr("Option 'today' needs a day of the form YYYY/MM/DD."));
        options.today = *day;
    }
    if (parser.isSet(QLatin1String(kTransactions))) {
        CVScaleBudget budget;
        budget.lastDay = options.today;
        if (const QString wrong = readNumbers(parser, budget); !wrong.isEmpty())
            return withMessage(Wish::Wrong, wrong);
        options.scale = budget;
    }
    return options;
}
