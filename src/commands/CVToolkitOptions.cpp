#include "commands/CVToolkitOptions.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::array kWithValue{"platform",
                                "platformpluginpath",
                                "platformtheme",
                                "plugin",
                                "qwindowgeometry",
                                "geometry",
                                "qwindowicon",
                                "icon",
                                "session",
                                "qwindowtitle",
                                "title",
                                "style",
                                "stylesheet",
                                "display",
                                "name",
                                "fontengine"};
constexpr std::array kAlone{"reverse", "testability", "widgetcount", "nograb", "dograb"};
constexpr std::array kWithEquals{"style=", "stylesheet=", "qmljsdebugger="};

/// The name of an option without its one or two dashes.
QString nameOf(const QString& argument) {
    return argument.mid(argument.startsWith(QLatin1String("--")) ? 2 : 1);
}

template <typename Names>
bool contains(const Names& names, const QString& name) {
    return std::any_of(names.begin(), names.end(), [&name](const char* one) { return name == QLatin1String(one); });
}

bool beginsWithOne(const QString& name) {
    return std::any_of(kWithEquals.begin(), kWithEquals.end(),
                       [&name](const char* one) { return name.startsWith(QLatin1String(one)); });
}

} // namespace

CVToolkitOptions CVToolkitOptions::take(const QStringList& arguments) {
    CVToolkitOptions options{{}, qEnvironmentVariable("QT_QPA_PLATFORM"), false};
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString name = arguments.at(i).startsWith(u'-') ? nameOf(arguments.at(i)) : QString();
        if (contains(kWithValue, name) && i + 1 < arguments.size()) {
            ++i;
            if (name == QLatin1String("platform"))
                options.platform = arguments.at(i);
            options.namesDisplay = options.namesDisplay || name == QLatin1String("display");
        } else if (!contains(kAlone, name) && !beginsWithOne(name)) {
            options.rest.append(arguments.at(i));
        }
    }
    return options;
}

bool CVToolkitOptions::hasDisplay() const {
    const bool isUsual = platform.isEmpty() || platform.startsWith(QLatin1String("xcb"));
    return !isUsual || namesDisplay || !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}
