#include "tests/support/impatientbus.h"

#include <QFile>

namespace testsupport {

ImpatientBus::~ImpatientBus()
{
    m_daemon.kill();
    m_daemon.waitForFinished();
}

bool ImpatientBus::start()
{
    QFile usual(QStringLiteral(BUS_CONFIG));
    QFile config(m_folder.filePath(QStringLiteral("bus.conf")));
    if (!usual.open(QIODevice::ReadOnly) || !config.open(QIODevice::WriteOnly))
        return false;
    QByteArray text = usual.readAll();
    const QByteArray end = "</busconfig>";
    text.replace(end, "<limit name=\"reply_timeout\">1000</limit>" + end);
    config.write(text);
    config.close();
    m_daemon.start(QStringLiteral("dbus-daemon"),
                   {QStringLiteral("--nofork"), QStringLiteral("--print-address"),
                    QStringLiteral("--config-file=") + config.fileName()});
    const QByteArray address = m_daemon.waitForLine(startLimitMs);
    return !address.isEmpty() && qputenv("DBUS_SESSION_BUS_ADDRESS", address);
}

} // namespace testsupport
