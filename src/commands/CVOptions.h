#pragma once

#include <QCommandLineParser>
#include <QCoreApplication>

#include <span>

/// An option of a command, which takes a value: its name without dashes, and how the value gets into the request.
/// `read` answers with a sentence when it cannot understand the value, else with an empty text.
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

/// Takes the values of the options that are given, in the order of the table; answers as the first that cannot be
/// understood. One that is given twice is: no value is passed over.
template <typename Request>
[[nodiscard]] QString CVReadOptions(const QCommandLineParser& parser, std::span<const CVOption<Request>> options,
                                    Request& request) {
    for (const auto& option : options) {
        const QStringList values = parser.values(QLatin1String(option.name));
        if (values.size() > 1)
            return QCoreApplication::translate("CVOptions", "--%1 is given twice").arg(QLatin1String(option.name));
        if (values.isEmpty())
            continue;
        QString problem = option.read(values.constFirst(), request);
        if (!problem.isEmpty())
            return problem;
    }
    return {};
}
