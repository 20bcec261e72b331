#include "zicontheme.h"

#include "zthemepalettes.h"

#include <QCryptographicHash>
#include <QDebug>
#include <QDir>
#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QIcon>
#include <QList>
#include <QPointer>
#include <QRegularExpression>
#include <QResource>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTextStream>

#include <sys/stat.h>
#include <unistd.h>

namespace Ztk {
namespace Gui {

namespace {

QPointer<ZIconTheme> currentTheme;

/** What artists paint in where the theme's text colour is meant. */
const char symbolColor[] = "#000000";

QString builtinFolder()
{
    return QStringLiteral(":/icons/tavren/builtin/actions");
}

/** The folder as the resource system sees it: cheaper to ask than a QDir, as it is asked often. */
class BuiltinFolder : public QResource
{
public:
    BuiltinFolder()
        : QResource(builtinFolder())
    {
    }
    int fileCount() const { return children().size(); }
};

int builtinFileCount()
{
    return BuiltinFolder().fileCount();
}

struct BuiltinIcon
{
    QString name;
    int size; ///< The size in pixels that it was drawn for.
    QByteArray svg;
};

/** The compiled-in icons, drawn in @p textColor. */
QList<BuiltinIcon> builtinIcons(const QColor &textColor)
{
    static const QRegularExpression pattern(QStringLiteral("^(.+)_(\\d+)px\\.svg$"));
    QList<BuiltinIcon> icons;
    const QStringList fileNames = QDir(builtinFolder()).entryList(QDir::Files, QDir::Name);
    for (const QString &fileName : fileNames) {
        const QRegularExpressionMatch match = pattern.match(fileName);
        QFile file(builtinFolder() + QLatin1Char('/') + fileName);
        if (!match.hasMatch() || !file.open(QIODevice::ReadOnly))
            continue;
        const QByteArray svg = file.readAll().replace(symbolColor, textColor.name().toLatin1());
        icons.append({match.captured(1), match.captured(2).toInt(), svg});
    }
    return icons;
}

/** The description of a theme with one folder per icon size; Qt takes the size that is nearest. */
QByteArray themeDescription(const QString &inherited, const QList<BuiltinIcon> &icons)
{
    QList<int> sizes;
    for (const BuiltinIcon &icon : icons)
        if (!sizes.contains(icon.size))
            sizes.append(icon.size);
    QString text;
    QTextStream out(&text);
    out << "[Icon Theme]\nName=tavren\nInherits=" << inherited << "\nDirectories=";
    for (const int size : qAsConst(sizes))
        out << size << ',';
    out << '\n';
    for (const int size : qAsConst(sizes)) {
        out << "\n[" << size << "]\nSize=" << size << "\nMinSize=" << size << "\nMaxSize=" << size
            << "\nType=Scalable\n";
    }
    out.flush();
    return text.toUtf8();
}

QString contentName(const QByteArray &description, const QList<BuiltinIcon> &icons)
{
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(description);
    for (const BuiltinIcon &icon : icons) {
        hash.addData(icon.name.toUtf8());
        hash.addData(icon.svg);
    }
    return QStringLiteral("tavren-") + QString::fromLatin1(hash.result().toHex());
}

bool writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

bool writeTheme(const QString &folder, const QByteArray &description,
                const QList<BuiltinIcon> &icons)
{
    bool ok = writeFile(folder + QStringLiteral("/index.theme"), description);
    for (const BuiltinIcon &icon : icons) {
        const QString sizeFolder = folder + QLatin1Char('/') + QString::number(icon.size);
        ok =
            ok && QDir().mkpath(sizeFolder) &&
            writeFile(sizeFolder + QLatin1Char('/') + icon.name + QStringLiteral(".svg"), icon.svg);
    }
    return ok;
}

/** Makes @p folder for this user alone. True also where it is there, private and no link. */
bool makePrivate(const QString &folder)
{
    const QByteArray path = QFile::encodeName(folder);
    struct stat status = {};
    return mkdir(path.constData(), 0700) == 0 ||
           (lstat(path.constData(), &status) == 0 && S_ISDIR(status.st_mode) &&
            status.st_uid == geteuid() && (status.st_mode & 0777) == 0700);
}

} // namespace

ZIconTheme::ZIconTheme(QObject *parent)
    : QObject(parent)
    , m_folder(themesFolder())
    , m_fallbackTheme(QIcon::themeName())
    , m_textColor(themePalette(ZGuiApplicationHelper::LightType).color(QPalette::WindowText))
{
    if (m_folder.isEmpty()) {
        qWarning() << "ztk: no folder for the icon theme; built-in icons stay empty";
        return;
    }
    QIcon::setThemeSearchPaths(QStringList(m_folder) + QIcon::themeSearchPaths());
    activate();
    parent->installEventFilter(this);
}

/** Where themes may be written; empty if nowhere. */
QString ZIconTheme::themesFolder()
{
    QString cache = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
                    QStringLiteral("/ztk/icons");
    if (QDir().mkpath(cache) && QFileInfo(cache).isWritable())
        return cache;
    // What stands in the temporary folder may have been put there by anybody.
    QString usual = QDir::tempPath() + QStringLiteral("/ztk-icons-%1").arg(geteuid());
    if (makePrivate(usual))
        return usual;
    m_ownFolder.reset(new QTemporaryDir(QDir::tempPath() + QStringLiteral("/ztk-icons")));
    return m_ownFolder->isValid() ? m_ownFolder->path() : QString();
}

void ZIconTheme::install()
{
    if (!currentTheme && qobject_cast<QGuiApplication *>(QCoreApplication::instance()))
        currentTheme = new ZIconTheme(QCoreApplication::instance());
}

void ZIconTheme::setTextColor(const QColor &textColor)
{
    install();
    if (!currentTheme || currentTheme->m_textColor == textColor)
        return;
    currentTheme->m_textColor = textColor;
    currentTheme->activate();
}

void ZIconTheme::refresh()
{
    install();
    if (currentTheme && currentTheme->m_fileCount != builtinFileCount())
        currentTheme->activate();
}

bool ZIconTheme::eventFilter(QObject *watched, QEvent *event)
{
    // Both come before a widget's first picture: one when it is made ready, one when its window is
    // about to be painted.
    if (event->type() == QEvent::Polish || event->type() == QEvent::UpdateRequest) {
        refresh();
        checkRendering();
    }
    return QObject::eventFilter(watched, event);
}

/** Without Qt's SVG plugins every icon is empty, and nothing else would say so. */
void ZIconTheme::checkRendering()
{
    if (m_checked)
        return;
    m_checked = true;
    if (QIcon::fromTheme(QStringLiteral("ztk_check")).pixmap(16).isNull())
        qWarning() << "ztk: Qt cannot render SVG icons. Debian package: libqt5svg5";
}

void ZIconTheme::activate()
{
    if (m_folder.isEmpty())
        return;
    m_fileCount = builtinFileCount();
    const QList<BuiltinIcon> icons = builtinIcons(m_textColor);
    const QByteArray description = themeDescription(m_fallbackTheme, icons);
    const QString name = contentName(description, icons);
    const QString folder = m_folder + QLatin1Char('/') + name;
    if (!QFileInfo::exists(folder)) {
        // Written aside and renamed, so that no process ever sees half a theme. Where another one
        // was faster, the renaming fails and its theme is as good.
        QTemporaryDir fresh(m_folder + QStringLiteral("/new"));
        if (!writeTheme(fresh.path(), description, icons))
            qWarning() << "ztk: cannot write the icon theme" << folder;
        fresh.setAutoRemove(!QDir().rename(fresh.path(), folder));
    }
    QIcon::setThemeName(name);
}

} // namespace Gui
} // namespace Ztk
