#pragma once

#include <QCommandLineParser>
#include <QCoreApplication>

#include <span>

struct CVOptionsText {
    Q_DECLARE_TR_FUNCTIONS(CVOptions)
};

/// An option with a value: its name without dashes, and the function that puts the value into the request. `read`
/// returns a sentence when it does not understand the value, else an empty text.
template <typename Request>
struct CVOption {
    const char* name;
    QString (*read)(const QString& value, Request& request);
};

template <typename Request>
void CVDeclareOptions(QCommandLineParser& parser, std::span<const CVOption<Request>> options) {
    for (const auto& option : options)
        parser.addOption({QLatin1String(option.name), QString(), QStringLiteral("VALUE")});
}

/// Reads the values of the given options, in the order of the table. Returns the sentence for the first value that is
/// not understood or the first option that is given twice, else an empty text.
template <typename Request>
[[nodiscard]] QString CVReadOptions(const QCommandLineParser& parser, std::span<const CVOption<Request>> options,
                                    Request& request) {
    for (const auto& option : options) {
        const QStringList values = parser.values(QLatin1String(option.name));
        if (values.size() > 1)
            return CVOptionsText::tr("--%1 is given twice").arg(QLatin1String(option.name));
        if (values.isEmpty())
            continue;
        QString problem = option.read(values.constFirst(), request);
        if (!problem.isEmpty())
            return problem;
    }
    return {};
}
