#include "pages/assistantsettingwidget.h"
#include "proxy/assistantstateproxy.h"
#include "tests/support/testprogram.h"
#include "tests/support/widgets.h"

#include <ztk/zcommandlinkbutton.h>

#include <QApplication>
#include <QProcess>
#include <QtTest>

using Ztk::Widget::ZCommandLinkButton;

/**
 * What the panel says in each state of the real NetworkManager. The launcher provides the daemon
 * and $NETWORK_STATE_COMMAND; where it could not, only the absence of the daemon is tested.
 */
class NetworkCheckTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void panelAnswersToEachState_data();
    void panelAnswersToEachState();
};

void NetworkCheckTest::panelAnswersToEachState_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<bool>("online");

    if (qEnvironmentVariableIsSet("NETWORK_STATE_COMMAND")) {
        QTest::newRow("global connectivity, 70") << "70" << true;
        QTest::newRow("site connectivity, 60") << "60" << false;
        QTest::newRow("local connectivity, 50") << "50" << false;
        QTest::newRow("disconnected, 20") << "20" << false;
        QTest::newRow("asleep, 10") << "10" << false;
        QTest::newRow("global connectivity again, 70") << "70" << true;
    }
    QTest::newRow("the daemon is not there") << "stopped" << false;
}

void NetworkCheckTest::panelAnswersToEachState()
{
    QFETCH(QString, state);
    QFETCH(bool, online);

    const QString command = qEnvironmentVariable("NETWORK_STATE_COMMAND");
    if (!command.isEmpty())
        QCOMPARE(QProcess::execute(command, {QStringLiteral("--set"), state}), 0);
    if (state == QLatin1String("stopped"))
        QTest::ignoreMessage(QtCriticalMsg, "dbus call network manager state failed");
    QCOMPARE(AssistantStateProxy::checkNetworkState(), online);

    if (state == QLatin1String("stopped"))
        QTest::ignoreMessage(QtCriticalMsg, "dbus call network manager state failed");
    AssistantSettingWidget page;
    page.show();
    auto *link = page.findChild<ZCommandLinkButton *>();
    QTRY_VERIFY(link->isVisible());
    QTest::mouseClick(link, Qt::LeftButton);
    const bool refused = testsupport::labelWithText(&page, QStringLiteral("Network unavailable"));
    QCOMPARE(refused, !online);
    const bool running = testsupport::labelContaining(&page, QStringLiteral("现在请说"));
    QCOMPARE(running, online);
}

TEST_CLASS(QApplication, NetworkCheckTest)
#include "networkcheck.moc"
