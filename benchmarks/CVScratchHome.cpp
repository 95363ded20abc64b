#include "CVScratchHome.h"

#include "storage/CVDocumentXML.h"
#include "storage/CVWriteDocumentText.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>

CVScratchHome::CVScratchHome(std::size_t transactions) {
    QDir().mkpath(QFileInfo(dataFile()).path());
    CVBudgetFixture fixture(transactions);
    if (!CVWriteDocumentText(dataFile(), CVDocumentXMLRepresentation(fixture.document()), std::nullopt,
                             CVFormerFile::Dropped)
             .ok())
        qFatal("The budget could not be written to %s", qUtf8Printable(dataFile()));
}

CVStandardFolders CVScratchHome::folders() const {
    return {mFolder.file("data"), mFolder.file("documents")};
}

std::unique_ptr<QSettings> CVScratchHome::settings() const {
    return std::make_unique<QSettings>(mFolder.file("settings.ini"), QSettings::IniFormat);
}

QProcessEnvironment CVScratchHome::environment() const {
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOME"), mFolder.file("home"));
    environment.insert(QStringLiteral("XDG_DATA_HOME"), mFolder.file("data"));
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), mFolder.file("config"));
    environment.insert(QStringLiteral("XDG_CACHE_HOME"), mFolder.file("cache"));
    return environment;
}

QString CVScratchHome::dataFile() const {
    return mFolder.file("data/Quenby Labs/Corvella/Corvella Data.corvella");
}

QByteArray CVScratchHome::text() const {
    QFile file(dataFile());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
