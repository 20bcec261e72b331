#include "tests/support/isolatedhome.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace testsupport {

namespace {

const struct
{
    const char *variable;
    const char *folder;
} places[] = {
    {"HOME", ""},
    {"XDG_CONFIG_HOME", "config"},
    {"XDG_DATA_HOME", "data"},
    {"XDG_CACHE_HOME", "cache"},
};

} // namespace

IsolatedHome::IsolatedHome()
{
    for (const auto &place : places) {
        m_before.insert(place.variable, qgetenv(place.variable));
        qputenv(place.variable, QFile::encodeName(m_folder.filePath(QLatin1String(place.folder))));
    }
    makeFolders();
}

IsolatedHome::~IsolatedHome()
{
    for (auto variable = m_before.constBegin(); variable != m_before.constEnd(); ++variable)
        if (variable.value().isNull())
            qunsetenv(variable.key().constData());
        else
            qputenv(variable.key().constData(), variable.value());
}

QString IsolatedHome::configFile(const QString &relativePath) const
{
    return m_folder.filePath(QStringLiteral("config/") + relativePath);
}

QString IsolatedHome::dataFile(const QString &relativePath) const
{
    return m_folder.filePath(QStringLiteral("data/") + relativePath);
}

QString IsolatedHome::wakeupSettingsFile() const
{
    return configFile(QStringLiteral("corvane/TavrenVoiceWakeuper.conf"));
}

bool IsolatedHome::writeWakeupSettings(const QByteArray &contents) const
{
    QDir().mkpath(QFileInfo(wakeupSettingsFile()).absolutePath());
    QFile file(wakeupSettingsFile());
    return file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size();
}

void IsolatedHome::clear()
{
    QDir home(m_folder.path());
    const QFileInfoList entries =
        home.entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QFileInfo &entry : entries)
        if (entry.isDir() && !entry.isSymLink())
            QDir(entry.filePath()).removeRecursively();
        else
            QFile::remove(entry.filePath());
    makeFolders();
}

void IsolatedHome::makeFolders() const
{
    for (const auto &place : places)
        QDir().mkpath(m_folder.filePath(QLatin1String(place.folder)));
}

} // namespace testsupport
