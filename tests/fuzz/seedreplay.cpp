// Gives each target its seeds, so that neither rots where nobody fuzzes.

#include "tests/fuzz/target.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QDir>
#include <QFile>

class FuzzSeedsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { fuzz::prepare(); }
    void everyTargetHasSeeds();
    void seeds_data();
    void seeds();

private:
    const QDir m_folder{QStringLiteral(SEEDS)};
};

void FuzzSeedsTest::everyTargetHasSeeds()
{
    QList<QByteArray> folders;
    for (const QString &name : m_folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name))
        folders.append(name.toLatin1());
    QCOMPARE(folders, fuzz::targets().keys());
}

void FuzzSeedsTest::seeds_data()
{
    QTest::addColumn<QByteArray>("target");
    QTest::addColumn<QString>("file");
    for (const QByteArray &target : fuzz::targets().keys()) {
        const QFileInfoList files =
            QDir(m_folder.filePath(QString::fromLatin1(target))).entryInfoList(QDir::Files);
        QVERIFY(!files.isEmpty());
        for (const QFileInfo &file : files)
            QTest::newRow(qPrintable(target + '/' + file.fileName())) << target << file.filePath();
    }
}

void FuzzSeedsTest::seeds()
{
    QFETCH(QByteArray, target);
    QFETCH(QString, file);
    QFile seed(file);
    QVERIFY(seed.open(QIODevice::ReadOnly));
    fuzz::targets().value(target)(seed.readAll()); // ends the program when it finds fault
}

TEST_CLASS(QApplication, FuzzSeedsTest)
#include "seedreplay.moc"
