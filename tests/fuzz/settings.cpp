#include "proxy/assistantstateproxy.h"
#include "tests/fuzz/target.h"

#include <QDir>
#include <QFile>
#include <QRect>
#include <QSettings>
#include <QTemporaryDir>

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cctype>

namespace {

// A damaged serialised value crashes Qt's reader of settings. Who can write this file owns the
// user's account, so such values are kept out here and nothing is done about them in the module.
bool maySerialise(QByteArray text)
{
    for (int i = text.indexOf('\\'); i >= 0; i = text.indexOf('\\', i + 1))
        if (i + 1 < text.size() && QByteArray("x01234567").contains(text.at(i + 1)))
            return true; // a character by its number, perhaps one of the names
    for (const char c : {'\\', '"', '\r', '\n', ' ', '\t'})
        text.replace(c, "");
    return text.contains("Variant(") || text.contains("DateTime(");
}

// As QVariant documents toBool().
bool plainBool(const QVariant &value)
{
    switch (int(value.type())) {
    case QVariant::Bool:
    case QVariant::Int:
    case QVariant::LongLong:
    case QVariant::Double:
        return value.toDouble() != 0;
    case QVariant::String:
    case QVariant::ByteArray: {
        const QByteArray text = value.toByteArray().toLower();
        return !text.isEmpty() && text != "0" && text != "false";
    }
    default:
        return false;
    }
}

QVariant typedValue(char kind, const QByteArray &text)
{
    switch (kind) {
    case 'b':
        return !text.isEmpty();
    case 'i':
        return text.toInt();
    case 'd':
        return text.toDouble();
    case 'a':
        return text;
    case 'l':
        return QVariantList{text, 1};
    case 's': // one of a single text cannot be told from that text
        return QString::fromUtf8(text).split('|') + QStringList(QString());
    case 'm':
        return QVariantMap{{"key", text}};
    case 'r':
        return QRect(1, 2, 3, text.size());
    case '0':
        return QVariant();
    default:
        return QString::fromUtf8(text);
    }
}

class Store
{
public:
    Store()
    {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_home.path());
        QDir(m_home.path()).mkpath("corvane");
    }

    QString file() const { return m_home.filePath("corvane/TavrenVoiceWakeuper.conf"); }

    // Also tells that the file is another one: to Qt's eye two of one size and one millisecond are
    // not.
    void write(const QByteArray &contents)
    {
        QFile stored(file());
        fuzz::expect("written", stored.open(QIODevice::WriteOnly) &&
                                    stored.write(contents) == contents.size());
        stored.close();
        ++m_time;
        const timespec times[] = {{m_time, 0}, {m_time, 0}};
        fuzz::expectEqual("dated", utimensat(AT_FDCWD, QFile::encodeName(file()), times, 0), 0);
    }

    QByteArray contents() const
    {
        QFile stored(file());
        fuzz::expect("readable", stored.open(QIODevice::ReadOnly));
        return stored.readAll();
    }

    QStringList files() const
    {
        return QDir(m_home.filePath("corvane")).entryList(QDir::Files | QDir::Hidden);
    }

private:
    QTemporaryDir m_home;
    time_t m_time = 1;
};

} // namespace

// The first byte says what the rest is: '=', the two values as texts of the file, a line each; 'f',
// the file; otherwise the type of the two values.
FUZZ_TARGET(settings)
{
    static Store store;
    const char kind = input.isEmpty() ? 'f' : input.at(0);
    const QByteArray rest = input.mid(1);
    const QByteArray lines[] = {rest.left(rest.indexOf('\n')),
                                rest.contains('\n') ? rest.mid(rest.indexOf('\n') + 1) : ""};
    AssistantStateProxy::StoredWakeup expected{false, false};
    if (kind == '=') {
        // Letters and digits mean themselves.
        const auto isPlain = [](const QByteArray &text) {
            return std::all_of(text.begin(), text.end(),
                               [](char c) { return std::isalnum(uchar(c)); });
        };
        if (!isPlain(lines[0]) || !isPlain(lines[1]))
            return;
        store.write("[base]\nenable=" + lines[0] + "\nenableOneshot=" + lines[1] + "\n");
        expected = {plainBool(lines[0]), plainBool(lines[1])};
    } else if (kind == 'f') {
        if (maySerialise(rest))
            return;
        store.write(rest);
        const QSettings file(store.file(), QSettings::IniFormat);
        expected = {plainBool(file.value("base/enable")),
                    plainBool(file.value("base/enableOneshot"))};
    } else {
        const QVariant values[] = {typedValue(kind, lines[0]), typedValue(kind, lines[1])};
        store.write("");
        {
            QSettings file(store.file(), QSettings::IniFormat);
            file.setValue("base/enable", values[0]);
            file.setValue("base/enableOneshot", values[1]);
            file.setValue("other", QString::fromUtf8(rest));
        }
        store.write(store.contents());
        expected = {plainBool(values[0]), plainBool(values[1])};
    }

    const QByteArray before = store.contents();
    const AssistantStateProxy::StoredWakeup read = AssistantStateProxy::storedWakeup();
    fuzz::expectEqual("enabled", read.enabled, expected.enabled);
    fuzz::expectEqual("one-shot", read.oneShot, expected.oneShot);
    fuzz::expectEqual("the file", store.contents(), before);
    fuzz::expectEqual("its neighbours", store.files(), QStringList("TavrenVoiceWakeuper.conf"));
}
