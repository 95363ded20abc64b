#include "widgets/CVFileDialogs.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>

namespace {

QString filterOf(const CVFileKind& kind) {
    return QStringLiteral("%1 (*.%2)").arg(kind.name, kind.suffix);
}

qsizetype kindOfFilter(const QString& filter, const QList<CVFileKind>& kinds) {
    const auto found = std::find_if(kinds.begin(), kinds.end(),
                                    [&filter](const CVFileKind& kind) { return filterOf(kind) == filter; });
    return found == kinds.end() ? 0 : found - kinds.begin();
}

/// The first kind with the suffix, or -1. Case means nothing.
qsizetype kindOfSuffix(const QString& suffix, const QList<CVFileKind>& kinds) {
    const auto found = std::find_if(kinds.begin(), kinds.end(), [&suffix](const CVFileKind& kind) {
        return kind.suffix.compare(suffix, Qt::CaseInsensitive) == 0;
    });
    return found == kinds.end() ? -1 : found - kinds.begin();
}

/// Gives the name in the dialog the suffix of the kind, where it has that of another one. The toolkit's own dialog does
/// so by itself, those of desktops do not.
void followKind(QFileDialog& dialog, const CVFileKind& kind, const QList<CVFileKind>& kinds) {
    dialog.setDefaultSuffix(kind.suffix);
    const QStringList files = dialog.selectedFiles();
    const QFileInfo file(files.value(0));
    if (files.size() == 1 && kindOfSuffix(file.suffix(), kinds) >= 0 && file.suffix() != kind.suffix)
        dialog.selectFile(file.completeBaseName() + QLatin1Char('.') + kind.suffix);
}

/// The first kind is the one that nobody may have chosen.
CVSaveLocation locationOf(const QString& path, qsizetype chosen, const QList<CVFileKind>& kinds) {
    const qsizetype named = kindOfSuffix(QFileInfo(path).suffix(), kinds);
    return {path, chosen == 0 && named > 0 ? named : chosen};
}

} // namespace

std::optional<CVSaveLocation> CVFileDialogs::chooseSaveLocation(QWidget& window, const CVSavePanelRequest& request) {
    QFileDialog dialog(&window, request.title);
    dialog.setWindowModality(Qt::WindowModal);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setLabelText(QFileDialog::Accept, request.prompt);
    QStringList filters;
    for (const CVFileKind& kind : request.kinds)
        filters.append(filterOf(kind));
    dialog.setNameFilters(filters);
    dialog.setDefaultSuffix(request.kinds.constFirst().suffix);
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&dialog, &request](const QString& filter) {
        followKind(dialog, request.kinds[kindOfFilter(filter, request.kinds)], request.kinds);
    });
    dialog.setDirectory(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    dialog.selectFile(request.proposedName + QLatin1Char('.') + request.kinds.constFirst().suffix);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return locationOf(dialog.selectedFiles().constFirst(), kindOfFilter(dialog.selectedNameFilter(), request.kinds),
                      request.kinds);
}

std::optional<QString> CVFileDialogs::chooseFolder(QWidget& window, const CVFolderPanelRequest& request) {
    QFileDialog dialog(&window, request.title);
    dialog.setWindowModality(Qt::WindowModal);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    dialog.setLabelText(QFileDialog::Accept, request.prompt);
    dialog.setDirectory(request.startFolder.isEmpty()
                            ? QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)
                            : request.startFolder);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return dialog.selectedFiles().constFirst();
}

std::optional<QString> CVFileDialogs::chooseFile(QWidget& window, const CVOpenPanelRequest& request) {
    QFileDialog dialog(&window, request.title);
    dialog.setWindowModality(Qt::WindowModal);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setLabelText(QFileDialog::Accept, request.prompt);
    QStringList patterns;
    for (const QString& suffix : request.suffixes)
        patterns.append(QStringLiteral("*.%1 *.%2").arg(suffix, suffix.toUpper()));
    dialog.setNameFilters({QStringLiteral("%1 (%2)").arg(request.kind, patterns.join(u' ')), tr("All files (*)")});
    dialog.setDirectory(QStandardPaths::writableLocation(QStandardPaths::DownloadLocation));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return dialog.selectedFiles().constFirst();
}
