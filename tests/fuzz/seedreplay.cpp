// Gives each target its seeds, so that neither rots where nobody fuzzes. A line of a target's file
// is the name of a seed, a space, and the input, in which \n, \\ and \xHH stand for bytes, as they
// do for printf's %b.

#include "tests/fuzz/target.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QDir>
#include <QFile>

namespace {

QByteArray unescaped(const QByteArray &text)
{
    QByteArray bytes;
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i) != '\\') {
            bytes += text.at(i);
        } else if (text.at(++i) == 'x') {
            bytes += QByteArray::fromHex(text.mid(i + 1, 2));
            i += 2;
        } else {
            bytes += text.at(i) == 'n' ? '\n' : text.at(i);
        }
    }
    return bytes;
}

} // namespace

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
    QList<QByteArray> files;
    for (const QString &name : m_folder.entryList(QDir::Files, QDir::Name))
        files.append(name.toLatin1());
    QCOMPARE(files, fuzz::targets().keys());
}

void FuzzSeedsTest::seeds_data()
{
    QTest::addColumn<QByteArray>("target");
    QTest::addColumn<QByteArray>("input");
    for (const QByteArray &target : fuzz::targets().keys()) {
        QFile file(m_folder.filePath(QString::fromLatin1(target)));
        QVERIFY(file.open(QIODevice::ReadOnly) && !file.atEnd());
        while (!file.atEnd()) {
            const QByteArray line = file.readLine().trimmed();
            const int space = line.indexOf(' ');
            QTest::newRow(qPrintable(target + '/' + line.left(space)))
                << target << unescaped(line.mid(space + 1));
        }
    }
}

void FuzzSeedsTest::seeds()
{
    QFETCH(QByteArray, target);
    QFETCH(QByteArray, input);
    fuzz::targets().value(target)(input); // ends the program when it finds fault
}

TEST_CLASS(QApplication, FuzzSeedsTest)
#include "seedreplay.moc"
