#include "tests/support/testprogram.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QtTest>

#include <algorithm>

namespace {

QString textOf(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

struct Literal
{
    QString text;
    int position;
};

// The string literals of @p code, which loses them and its comments: spaces are left.
QVector<Literal> takeLiterals(QString *code)
{
    static const QRegularExpression token(
        QStringLiteral("//[^\\n]*|/\\*.*?\\*/|'(?:[^'\\\\]|\\\\.)'"
                       "|\"((?:[^\"\\\\\\n]|\\\\.)*)\""),
        QRegularExpression::DotMatchesEverythingOption);
    QVector<Literal> literals;
    auto match = token.globalMatch(QString(*code));
    while (match.hasNext()) {
        const QRegularExpressionMatch found = match.next();
        if (found.capturedStart(1) >= 0)
            literals.append({found.captured(1), found.capturedStart()});
        code->replace(found.capturedStart(), found.capturedLength(),
                      QString(found.capturedLength(), QLatin1Char(' ')));
    }
    return literals;
}

// The functions in whose argument lists @p position stands.
QStringList callsAround(const QString &code, int position)
{
    static const QRegularExpression lastName(QStringLiteral(R"((\w+)\s*$)"));
    QStringList names;
    int depth = 0;
    for (int i = position - 1; i >= 0; --i) {
        const QChar c = code.at(i);
        if (c == QLatin1Char(')'))
            ++depth;
        else if (c == QLatin1Char('('))
            if (depth == 0)
                names.append(lastName.match(code.left(i)).captured(1));
            else
                --depth;
        else if (depth == 0 && QStringLiteral(";{}").contains(c))
            break;
    }
    return names;
}

bool isNameOnTheBus(const Literal &literal, const QString &code)
{
    static const QRegularExpression interface(QStringLiteral(R"(^[a-z]\w*(\.\w+){2,}$)"));
    static const QRegularExpression path(QStringLiteral(R"(^(?!/proc/)(/\w+)+$)"));
    static const QRegularExpression member(QStringLiteral(R"(^[A-Za-z]\w*$)"));
    static const QStringList senders{QStringLiteral("asyncCall"),
                                     QStringLiteral("asyncCallWithArgumentList"),
                                     QStringLiteral("call"),
                                     QStringLiteral("callWithArgumentList"),
                                     QStringLiteral("callWithCallback"),
                                     QStringLiteral("createMethodCall"),
                                     QStringLiteral("createSignal"),
                                     QStringLiteral("createTargetedSignal"),
                                     QStringLiteral("connect"),
                                     QStringLiteral("disconnect")};
    if (interface.match(literal.text).hasMatch() || path.match(literal.text).hasMatch())
        return true;
    const QStringList around = callsAround(code, literal.position);
    return member.match(literal.text).hasMatch() &&
           std::any_of(around.cbegin(), around.cend(),
                       [&](const QString &name) { return senders.contains(name); });
}

// The names of services, objects, interfaces and members that @p code spells.
QStringList namesOnTheBus(QString code)
{
    QStringList names;
    const QVector<Literal> literals = takeLiterals(&code);
    for (const Literal &literal : literals)
        if (isNameOnTheBus(literal, code))
            names.append(literal.text);
    return names;
}

} // namespace

/**
 * What clients call on the bus has its name from a contract: contract.h, which is generated from
 * all of them, is the only place where it is spelled.
 */
class ContractNamesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void namesAreFound_data();
    void namesAreFound();
    void clientsSpellNoName_data();
    void clientsSpellNoName();
    void everyContractIsInTheHeader_data();
    void everyContractIsInTheHeader();
};

void ContractNamesTest::namesAreFound_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QStringList>("names");
    QTest::newRow("interface") << R"(f("com.corvane.nobody");)"
                               << QStringList{"com.corvane.nobody"};
    QTest::newRow("path") << R"(const char *p = "/aiassistant/iat";)"
                          << QStringList{"/aiassistant/iat"};
    QTest::newRow("member of a message")
        << R"(QDBusMessage::createMethodCall(s, p(), i, QStringLiteral("setNothing"));)"
        << QStringList{"setNothing"};
    QTest::newRow("member called by a proxy")
        << R"(m_proxy->asyncCall(QLatin1String("nothing"), x);)" << QStringList{"nothing"};
    QTest::newRow("signal") << R"(bus.connect(s, p, i, "onNothing", this, SLOT(f()));)"
                            << QStringList{"onNothing"};
    QTest::newRow("comment") << R"(/* "com.corvane.nobody" */ f(); // "com.corvane.nobody")"
                             << QStringList();
    QTest::newRow("after a quoted quote")
        << R"(f('"', "\"", "com.corvane.nobody");)" << QStringList{"com.corvane.nobody"};
    QTest::newRow("other texts") << R"(f("iat", "base/enable", ":/icons/x.svg", "a.b", "/a b");)"
                                 << QStringList();
    QTest::newRow("argument of a call")
        << R"(bus.call(message(method, {"en_us"}));)" << QStringList();
}

void ContractNamesTest::namesAreFound()
{
    QFETCH(QString, code);
    QFETCH(QStringList, names);
    QCOMPARE(namesOnTheBus(code), names);
}

void ContractNamesTest::clientsSpellNoName_data()
{
    QTest::addColumn<QString>("file");
    for (const char *folder :
         {"bus", "proxy", "voice", "pages", "plugin", "doctor", "sandbox/controlcenter", "bench"}) {
        QDirIterator files(QStringLiteral(SOURCE_ROOT "/") + QLatin1String(folder),
                           {QStringLiteral("*.cpp"), QStringLiteral("*.h")}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString file = files.next();
            QTest::newRow(qPrintable(file.mid(int(qstrlen(SOURCE_ROOT)) + 1))) << file;
        }
    }
}

void ContractNamesTest::clientsSpellNoName()
{
    QFETCH(QString, file);
    const QString code = textOf(file);
    QVERIFY(!code.isEmpty());
    QStringList names = namesOnTheBus(code);
    // The bus daemon's own, which it has on every bus, and the one that every object has.
    for (const char *name : {"org.freedesktop.DBus", "/org/freedesktop/DBus", "GetNameOwner",
                             "NameHasOwner", "org.freedesktop.DBus.Introspectable"})
        names.removeAll(QLatin1String(name));
    // The desktop's, which the window asks for its theme, and no service of the module.
    if (file.endsWith(QLatin1String("/themechoice.cpp")))
        for (const char *name :
             {"org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop",
              "org.freedesktop.portal.Settings", "org.freedesktop.appearance", "SettingChanged",
              "Read"})
            names.removeAll(QLatin1String(name));
    QCOMPARE(names.join(QLatin1Char(' ')), QString());
}

void ContractNamesTest::everyContractIsInTheHeader_data()
{
    QTest::addColumn<QString>("file");
    const QFileInfoList contracts =
        QDir(QStringLiteral(SOURCE_ROOT "/contracts")).entryInfoList({QStringLiteral("*.xml")});
    QVERIFY(!contracts.isEmpty());
    for (const QFileInfo &contract : contracts)
        QTest::newRow(qPrintable(contract.completeBaseName())) << contract.filePath();
}

void ContractNamesTest::everyContractIsInTheHeader()
{
    QFETCH(QString, file);
    const QString interface = QFileInfo(file).completeBaseName();
    const QString header = textOf(QStringLiteral(CONTRACT_HEADER));
    const int start = header.indexOf(QLatin1Char('"') + interface + QStringLiteral("\")};"));
    QVERIFY(start >= 0);
    const QString object = header.mid(start, header.indexOf(QStringLiteral("} //"), start) - start);

    static const QRegularExpression generated(
        QStringLiteral("inline (?:Method|Signal) (\\w+)\\(\\)"));
    static const QRegularExpression declared(QStringLiteral("<(?:method|signal) name=\"(\\w+)\""));
    const auto all = [](const QRegularExpression &expression, const QString &text) {
        QStringList names;
        auto match = expression.globalMatch(text);
        while (match.hasNext())
            names.append(match.next().captured(1));
        return names;
    };
    QVERIFY(textOf(file).contains(QStringLiteral("<interface name=\"%1\">").arg(interface)));
    QCOMPARE(all(generated, object), all(declared, textOf(file)));
}

TEST_CLASS(QCoreApplication, ContractNamesTest)

#include "contractnames.moc"
