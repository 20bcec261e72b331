#include "sandbox/controlcenter/looks/contactsheet.h"

#include "sandbox/controlcenter/looks/lookpictures.h"
#include "sandbox/controlcenter/moduleloader.h"
#include "sandbox/controlcenter/options.h"

#include <QCoreApplication>
#include <QDir>
#include <QPainter>
#include <QProcess>
#include <QThread>

namespace controlcenter {
namespace {

constexpr QSize cell(440, 288); // px
constexpr int captionHeight = 26;
constexpr int tileGap = 8;
constexpr QSize step(cell.width() + tileGap, cell.height() + captionHeight + tileGap);

} // namespace

ContactSheet::~ContactSheet()
{
    giveUp();
}

void ContactSheet::draw(const QStringList &places)
{
    giveUp();
    m_places = places;
    m_failures.clear();
    m_waiting = locales();
    for (const QString &locale : locales()) {
        QDir(m_folder.filePath(locale)).removeRecursively();
        QDir(m_folder.path()).mkdir(locale);
    }
    for (int i = 0; i < qMax(1, QThread::idealThreadCount()); ++i)
        startNext();
}

int ContactSheet::drawn() const
{
    return all() - m_waiting.size() - m_running.size();
}

int ContactSheet::all() const
{
    return locales().size();
}

QImage ContactSheet::sheet(const QString &place) const
{
    const QVector<Look> looks = allLooks();
    QImage sheet(looks.size() * step.width() + tileGap, all() * step.height() + tileGap,
                 QImage::Format_RGB32);
    sheet.fill(Qt::darkGray);
    QPainter painter(&sheet);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    for (int row = 0; row < all(); ++row) {
        for (int column = 0; column < looks.size(); ++column) {
            const QString &locale = locales().at(row);
            const QPoint corner(tileGap + column * step.width(), tileGap + row * step.height());
            const QImage image = picture(place, locale, column);
            painter.setPen(image.isNull() || !problemsOf(image).isEmpty() ? Qt::red : Qt::white);
            painter.drawText(QRect(corner, QSize(cell.width(), captionHeight)), Qt::AlignVCenter,
                             locale + QStringLiteral("  ") + nameOf(looks.at(column)));
            painter.drawImage(QRect(corner + QPoint(0, captionHeight), cell), image);
        }
    }
    return sheet;
}

QStringList ContactSheet::problems(const QString &place) const
{
    const QVector<Look> looks = allLooks();
    QStringList all = m_failures;
    for (const QString &locale : locales()) {
        for (int look = 0; look < looks.size(); ++look) {
            const QImage image = picture(place, locale, look);
            const QStringList found = image.isNull()
                                          ? QStringList(QStringLiteral("there is no picture"))
                                          : problemsOf(image);
            for (const QString &problem : found)
                all.append(locale + ' ' + nameOf(looks.at(look)) + QStringLiteral(": ") + problem);
        }
    }
    return all;
}

void ContactSheet::startNext()
{
    if (m_waiting.isEmpty())
        return;
    const QString locale = m_waiting.takeFirst();
    auto *process = new QProcess(this);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    process->setProcessEnvironment(environment);
    process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    QStringList arguments{QStringLiteral("--plugin"), loadedModuleFile(),
                          QStringLiteral("--locale"), locale,
                          QStringLiteral("--looks"),  m_folder.filePath(locale)};
    for (const QString &place : qAsConst(m_places))
        arguments << QStringLiteral("--place") << place;
    const auto end = [this, process, locale] {
        if (!m_running.removeOne(process))
            return;
        if (process->exitStatus() != QProcess::NormalExit || process->exitCode() != 0)
            m_failures.append(locale + QStringLiteral(": the window ended before its time"));
        process->deleteLater();
        startNext();
        Q_EMIT progressed();
    };
    connect(process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this, end);
    connect(process, &QProcess::errorOccurred, this, end);
    m_running.append(process);
    process->start(QCoreApplication::applicationFilePath(), arguments);
}

void ContactSheet::giveUp()
{
    for (QProcess *process : qAsConst(m_running)) {
        process->disconnect(this);
        process->kill();
        process->waitForFinished();
        process->deleteLater();
    }
    m_running.clear();
    m_waiting.clear();
}

QImage ContactSheet::picture(const QString &place, const QString &locale, int look) const
{
    return QImage(QDir(m_folder.filePath(locale)).filePath(lookFile(place, allLooks().at(look))));
}

} // namespace controlcenter
