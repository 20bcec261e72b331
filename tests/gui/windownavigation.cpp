#include "sandbox/controlcenter/navigationcolumn.h"
#include "tests/support/testprogram.h"

#include <QtTest>

using controlcenter::NavigationColumn;

/** The window's main navigation: where entries stand, and when they open. */
class WindowNavigationTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void anEntryStandsBehindTheOneItFollows();
    void anEntryThatFollowsAnUnknownOneStandsLast();
    void openingIsToldOnce();
    void theArrowKeysOpen();
    void anUnknownEntryOpensNothing();
    void itIsAsWideAsItsLongestEntry();

private:
    QStringList texts() const;

    QScopedPointer<NavigationColumn> m_column;
};

void WindowNavigationTest::init()
{
    m_column.reset(new NavigationColumn);
    m_column->addEntry(QStringLiteral("keyboard"), QStringLiteral("Keyboard"), QIcon());
    m_column->addEntry(QStringLiteral("mouse"), QStringLiteral("Mouse"), QIcon());
}

QStringList WindowNavigationTest::texts() const
{
    QStringList result;
    for (int row = 0; row < m_column->model()->rowCount(); ++row)
        result.append(m_column->model()->index(row, 0).data().toString());
    return result;
}

void WindowNavigationTest::anEntryStandsBehindTheOneItFollows()
{
    m_column->addEntry(QStringLiteral("voice"), QStringLiteral("Voice"), QIcon(),
                       QStringLiteral("keyboard"));
    QCOMPARE(texts(), (QStringList{QStringLiteral("Keyboard"), QStringLiteral("Voice"),
                                   QStringLiteral("Mouse")}));
    QCOMPARE(m_column->entryText(QStringLiteral("voice")), QStringLiteral("Voice"));
}

void WindowNavigationTest::anEntryThatFollowsAnUnknownOneStandsLast()
{
    m_column->addEntry(QStringLiteral("voice"), QStringLiteral("Voice"), QIcon(),
                       QStringLiteral("printer"));
    QCOMPARE(texts().constLast(), QStringLiteral("Voice"));
}

void WindowNavigationTest::openingIsToldOnce()
{
    QSignalSpy opened(m_column.data(), &NavigationColumn::entryOpened);
    m_column->setCurrentEntry(QStringLiteral("mouse"));
    m_column->setCurrentEntry(QStringLiteral("mouse"));
    QCOMPARE(opened.count(), 1);
    QCOMPARE(opened.at(0).at(0).toString(), QStringLiteral("mouse"));
    QCOMPARE(m_column->currentEntry(), QStringLiteral("mouse"));
}

void WindowNavigationTest::theArrowKeysOpen()
{
    m_column->setCurrentEntry(QStringLiteral("keyboard"));
    QSignalSpy opened(m_column.data(), &NavigationColumn::entryOpened);
    QTest::keyClick(m_column.data(), Qt::Key_Down);
    QCOMPARE(opened.count(), 1);
    QCOMPARE(opened.at(0).at(0).toString(), QStringLiteral("mouse"));
}

void WindowNavigationTest::anUnknownEntryOpensNothing()
{
    QSignalSpy opened(m_column.data(), &NavigationColumn::entryOpened);
    m_column->setCurrentEntry(QStringLiteral("printer"));
    QCOMPARE(opened.count(), 0);
    QVERIFY(m_column->currentEntry().isEmpty());
}

void WindowNavigationTest::itIsAsWideAsItsLongestEntry()
{
    const int before = m_column->sizeHint().width();
    const QString text = QStringLiteral("A name that is much longer than the others");
    m_column->addEntry(QStringLiteral("long"), text, QIcon());
    QVERIFY(m_column->sizeHint().width() > before);
    QVERIFY(m_column->sizeHint().width() > m_column->fontMetrics().horizontalAdvance(text));
}

TEST_CLASS(QApplication, WindowNavigationTest)
#include "windownavigation.moc"
