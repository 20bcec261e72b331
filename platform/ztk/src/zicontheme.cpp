#include "zicontheme.h"

#include "zthemepalettes.h"

#include <QDebug>
#include <QDir>
#include <QEvent>
#include <QFile>
#include <QGuiApplication>
#include <QIcon>
#include <QPointer>
#include <QRegularExpression>
#include <QResource>
#include <QTemporaryDir>
#include <QTextStream>

namespace Ztk {
namespace Gui {

namespace {

QPointer<ZIconTheme> s_theme;

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

bool writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

/** The description of a theme with one folder per icon size; Qt takes the size that is nearest. */
QByteArray themeDescription(const QString &inherited, const QList<int> &sizes)
{
    QString text;
    QTextStream out(&text);
    out << "[Icon Theme]\nName=tavren\nInherits=" << inherited << "\nDirectories=";
    for (const int size : sizes)
        out << size << ',';
    out << '\n';
    for (const int size : sizes) {
        out << "\n[" << size << "]\nSize=" << size << "\nMinSize=" << size << "\nMaxSize=" << size
            << "\nType=Scalable\n";
    }
    out.flush();
    return text.toUtf8();
}

} // namespace

ZIconTheme::ZIconTheme(QObject *parent)
    : QObject(parent)
    , m_folder(new QTemporaryDir(QDir::tempPath() + QStringLiteral("/ztk-icons")))
    , m_fallbackTheme(QIcon::themeName())
    , m_textColor(lightPalette().color(QPalette::WindowText))
{
    if (!m_folder->isValid()) {
        qWarning() << "ztk: no folder for the icon theme:" << m_folder->errorString();
        return;
    }
    QIcon::setThemeSearchPaths(QStringList(m_folder->path()) + QIcon::themeSearchPaths());
    activate();
    parent->installEventFilter(this);
}

ZIconTheme::~ZIconTheme() = default;

void ZIconTheme::install()
{
    if (!s_theme && qobject_cast<QGuiApplication *>(QCoreApplication::instance()))
        s_theme = new ZIconTheme(QCoreApplication::instance());
}

void ZIconTheme::setTextColor(const QColor &textColor)
{
    install();
    if (!s_theme || s_theme->m_textColor == textColor)
        return;
    s_theme->m_textColor = textColor;
    s_theme->activate();
}

void ZIconTheme::refresh()
{
    install();
    if (s_theme && s_theme->m_fileCount != builtinFileCount())
        s_theme->activate();
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

/** A name of its own for every writing: the new name makes Qt look all icons up again. */
void ZIconTheme::activate()
{
    const QString previous = m_folder->path() + QStringLiteral("/tavren-%1").arg(m_generation);
    const QString name = QStringLiteral("tavren-%1").arg(++m_generation);
    write(m_folder->path() + QLatin1Char('/') + name);
    QIcon::setThemeName(name);
    QDir(previous).removeRecursively();
}

void ZIconTheme::write(const QString &folder)
{
    static const QRegularExpression pattern(QStringLiteral("^(.+)_(\\d+)px\\.svg$"));
    QList<int> sizes;
    m_fileCount = builtinFileCount();
    const QStringList files = QDir(builtinFolder()).entryList(QDir::Files);
    for (const QString &fileName : files) {
        const QRegularExpressionMatch match = pattern.match(fileName);
        QFile source(builtinFolder() + QLatin1Char('/') + fileName);
        if (!match.hasMatch() || !source.open(QIODevice::ReadOnly))
            continue;
        const QString size = match.captured(2);
        if (!sizes.contains(size.toInt())) {
            sizes.append(size.toInt());
            QDir().mkpath(folder + QLatin1Char('/') + size);
        }
        QByteArray svg = source.readAll();
        svg.replace(symbolColor, m_textColor.name().toLatin1());
        if (!writeFile(folder + QLatin1Char('/') + size + QLatin1Char('/') + match.captured(1) +
                           QStringLiteral(".svg"),
                       svg))
            qWarning() << "ztk: cannot write the icon" << fileName;
    }
    QDir().mkpath(folder);
    writeFile(folder + QStringLiteral("/index.theme"), themeDescription(m_fallbackTheme, sizes));
}

} // namespace Gui
} // namespace Ztk
