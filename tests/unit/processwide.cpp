#include "voice/processwide.h"

#include "tests/support/testprogram.h"

#include <QSemaphore>
#include <QtTest>

#include <thread>

namespace {

QSemaphore beingBuilt; // signals of Slow
QSemaphore mayBeBuilt;
int alive = 0;

/** Takes its time to be built. */
class Slow : public QObject
{
public:
    Slow()
    {
        beingBuilt.release();
        mayBeBuilt.acquire();
        ++alive;
    }
    ~Slow() override { --alive; }
};

/** Asks for itself while it goes. */
class Returning : public QObject
{
public:
    ~Returning() override
    {
        if (m_first)
            ProcessWide<Returning>::instance();
    }

private:
    const bool m_first = alive++ == 0;
};

} // namespace

class ProcessWideTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void disposesOfWhatIsBeingBuilt();
    void leadsBackToItself();
};

void ProcessWideTest::disposesOfWhatIsBeingBuilt()
{
    std::thread builder([] { ProcessWide<Slow>::instance(); });
    beingBuilt.acquire();
    QSemaphore disposed;
    std::thread disposer([&disposed] {
        ProcessWide<Slow>::dispose();
        disposed.release();
    });
    const bool waits = !disposed.tryAcquire(1, 200);
    mayBeBuilt.release();
    builder.join();
    disposer.join();
    QVERIFY(waits);
    QCOMPARE(alive, 0);
}

void ProcessWideTest::leadsBackToItself()
{
    ProcessWide<Returning>::instance();
    ProcessWide<Returning>::dispose();
    QCOMPARE(alive, 2);
    ProcessWide<Returning>::dispose();
}

TEST_CLASS(QCoreApplication, ProcessWideTest)
#include "processwide.moc"
