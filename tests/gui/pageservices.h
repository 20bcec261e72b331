#pragma once

#include "tests/support/isolatedhome.h"
#include "tests/support/logcapture.h"
#include "tests/support/modulepages.h"
#include "tests/support/newpage.h"
#include "tests/support/serviceprocess.h"

#include <QFile>
#include <QtTest>

#include <memory>

namespace testsupport {

/** The services that a page talks to while it is built, in a home of their own. */
struct PageServices
{
    IsolatedHome home;
    ServiceProcess assistant{QStringLiteral("assistant")};
    ServiceProcess dock{QStringLiteral("dock")};
    ServiceProcess keybinding{QStringLiteral("keybinding")};

    /** False, with a log line, when one does not start. */
    bool start() { return assistant.start() && dock.start() && keybinding.start(); }

    /** Forgets scripts and calls, and the wake-up service's store. */
    void reset()
    {
        for (ServiceProcess *service : {&assistant, &dock, &keybinding})
            service->reset();
        QFile::remove(home.wakeupSettingsFile());
    }
};

/** A page on the screen, ready for keys, and what the assistant's service hears of it. */
struct ShownPage
{
    ServiceProcess assistant{QStringLiteral("assistant")};
    ServiceProcess dock{QStringLiteral("dock")};
    ServiceProcess keybinding{QStringLiteral("keybinding")};
    std::unique_ptr<QWidget> page;

    /** False, with a log line, when a service does not start. */
    bool start() { return assistant.start() && dock.start() && keybinding.start(); }

    /** Everything is off, and each list on its first entry. */
    void reset()
    {
        assistant.reset();
        assistant.joinBus();
        for (const char *key : {"iat.enabled", "tts.enabled", "tts.window", "trans.enabled"})
            assistant.setValue(QLatin1String(key), false);
        assistant.setValue(QStringLiteral("iat.language"), QStringLiteral("zh_cn"));
        assistant.setValue(QStringLiteral("tts.speaker"), QStringLiteral("x_tovali"));
        assistant.setValue(QStringLiteral("trans.language"), QStringLiteral("cn|en"));
    }

    /** Shows the page of that name; no call is recorded yet. False when it does not become active.
     */
    bool open(const QString &name)
    {
        page.reset(newPage(name));
        page->resize(640, 480);
        page->show();
        page->activateWindow();
        const bool active = QTest::qWaitForWindowActive(page.get());
        assistant.reset();
        dock.reset();
        return active;
    }

    /** The one call that the assistant received; fails the test when there is another number. */
    ServiceCall onlyCall(const QString &member)
    {
        ServiceCall call;
        [&] {
            QVERIFY(assistant.waitForCalls(member));
            QCOMPARE(assistant.calls().size(), 1);
            call = assistant.calls().constFirst();
            QVERIFY(!call.replyExpected);
        }();
        assistant.reset();
        return call;
    }
};

/**
 * What the pages and their calls to services have logged, in order. The voice test's recorder lives
 * as long as the process and logs whenever it looks for a microphone.
 */
inline QStringList pageLines(const LogCapture &log)
{
    QStringList lines;
    for (const LogRecord &record : log.records())
        if (record.file.contains(QLatin1String("pages/")) ||
            record.file.contains(QLatin1String("proxy/")))
            lines.append(record.text);
    return lines;
}

} // namespace testsupport
