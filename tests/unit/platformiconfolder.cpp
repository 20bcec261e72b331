#include "tests/support/testprogram.h"

#include <ztk/zapplicationsetup.h>

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QIcon>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

#include <memory>

// Where the icon theme is written when the user's cache cannot be: under the temporary folder,
// where others may write, too. What they have put there must not become this program's icons.

namespace {

/** A GUI application, and with it the toolkit's icon theme. */
struct Program
{
    Program() { Ztk::Widget::ZApplicationSetup::refreshIcons(); }

    /** The folder in which its icons are looked up first. */
    QString iconFolder() const { return QIcon::themeSearchPaths().constFirst(); }

    int argc = 1;
    char name[8] = "program";
    char *argv[2] = {name, nullptr};
    QGuiApplication application{argc, argv};
};

/** Type, owner and permissions as the kernel says, links not followed. */
struct stat statusOf(const QString &path)
{
    struct stat status = {};
    lstat(QFile::encodeName(path).constData(), &status);
    return status;
}

bool isPrivateFolder(const QString &path)
{
    const struct stat status = statusOf(path);
    return status.st_mode == (S_IFDIR | 0700) && status.st_uid == geteuid();
}

} // namespace

class PlatformIconFolderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void isMadePrivate();
    void isSharedByTheUsersPrograms();
    void isNotTrusted_data();
    void isNotTrusted();

private:
    QString path(const QString &name) const { return m_temporary->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_temporary;
    QString m_usual; // where the folder usually stands
    QByteArray m_temporaryBefore;
    mode_t m_maskBefore = 0;
};

void PlatformIconFolderTest::init()
{
    m_temporary = std::make_unique<QTemporaryDir>();
    m_usual = path(QStringLiteral("ztk-icons-%1").arg(getuid()));
    QFile noFolder(path(QStringLiteral("file")));
    QVERIFY(noFolder.open(QIODevice::WriteOnly));
    qputenv("XDG_CACHE_HOME", QFile::encodeName(noFolder.fileName()));
    m_temporaryBefore = qgetenv("TMPDIR");
    qputenv("TMPDIR", QFile::encodeName(m_temporary->path()));
    m_maskBefore = umask(0); // the folder's privacy must not hang on it
}

void PlatformIconFolderTest::cleanup()
{
    umask(m_maskBefore);
    qputenv("TMPDIR", m_temporaryBefore);
    m_temporary.reset();
}

void PlatformIconFolderTest::isMadePrivate()
{
    const Program program;
    QCOMPARE(program.iconFolder(), m_usual);
    QVERIFY(isPrivateFolder(m_usual));
    QVERIFY(QIcon::hasThemeIcon(QStringLiteral("zcc_edit")));
}

void PlatformIconFolderTest::isSharedByTheUsersPrograms()
{
    for (int i = 0; i < 2; ++i) {
        const Program program;
        QCOMPARE(program.iconFolder(), m_usual);
    }
}

void PlatformIconFolderTest::isNotTrusted_data()
{
    QTest::addColumn<QString>("what");
    QTest::newRow("a link to a private folder") << "link";
    QTest::newRow("a folder in which the group may write") << "group";
    QTest::newRow("a folder in which others may read") << "others";
    QTest::newRow("a file") << "file";
    if (geteuid() == 0)
        QTest::newRow("another user's folder") << "owner";
    else
        qInfo("another user's folder can be made by root only");
}

void PlatformIconFolderTest::isNotTrusted()
{
    QFETCH(QString, what);
    const QByteArray usual = QFile::encodeName(m_usual);
    if (what == QLatin1String("file")) {
        QFile file(m_usual);
        QVERIFY(file.open(QIODevice::WriteOnly));
    } else if (what == QLatin1String("link")) {
        QVERIFY(mkdir(QFile::encodeName(path("target")).constData(), 0700) == 0);
        QVERIFY(symlink(QFile::encodeName(path("target")).constData(), usual.constData()) == 0);
    } else {
        QVERIFY(mkdir(usual.constData(), 0700) == 0);
        if (what == QLatin1String("group"))
            QVERIFY(chmod(usual.constData(), 0720) == 0);
        else if (what == QLatin1String("others"))
            QVERIFY(chmod(usual.constData(), 0704) == 0);
        else
            QVERIFY(chown(usual.constData(), 1, getgid()) == 0);
    }
    const struct stat before = statusOf(m_usual);

    QString fresh;
    {
        const Program program;
        fresh = program.iconFolder();
        QVERIFY(fresh != m_usual);
        QCOMPARE(QFileInfo(fresh).path(), m_temporary->path());
        QVERIFY(isPrivateFolder(fresh));
        QVERIFY(QIcon::hasThemeIcon(QStringLiteral("zcc_edit")));
    }
    QVERIFY2(!QFileInfo::exists(fresh), "a folder for one program stays behind");
    const struct stat after = statusOf(m_usual);
    QCOMPARE(after.st_mode, before.st_mode);
    QCOMPARE(after.st_uid, before.st_uid);
    QVERIFY(QDir(m_usual).isEmpty());
}

TEST_CLASS(testsupport::NoApplication, PlatformIconFolderTest)

#include "platformiconfolder.moc"
