#include "pages/voicetestverdict.h"
#include "tests/fuzz/target.h"
#include "voice/iatwapper.h"

#include <QDBusObjectPath>
#include <QJsonDocument>

#include <climits>
#include <cmath>
#include <utility>

namespace {

// What a client has reported, or should.
using Report = QList<QVariantList>;

QVariantMap mapOf(const QByteArray &json)
{
    return QJsonDocument::fromJson(json).toVariant().toMap();
}

QString textOf(const QVariant &value)
{
    return value.type() == QVariant::String ? value.toString() : QString();
}

bool boolOf(const QVariant &value)
{
    return value.type() == QVariant::Bool && value.toBool();
}

int intOf(const QVariant &value)
{
    const bool number = value.type() == QVariant::Double || value.type() == QVariant::LongLong;
    const double real = number ? value.toDouble() : 0;
    return real >= INT_MIN && real <= INT_MAX && std::floor(real) == real ? int(real) : 0;
}

QVariantList listOf(const QVariant &value)
{
    return value.type() == QVariant::List ? value.toList() : QVariantList();
}

QVariantMap objectOf(const QVariant &value)
{
    return value.type() == QVariant::Map ? value.toMap() : QVariantMap();
}

// The running text: "fixed" stands, "pending" may still be restated.
struct PlainMerge
{
    QString session;
    QString fixed = QString();
    QString pending = QString();

    bool isOurs(const QVariantMap &message) const
    {
        return textOf(message.value(QStringLiteral("session_id"))) == session;
    }

    Report result(const QVariantMap &message)
    {
        if (!isOurs(message))
            return {};
        // The hypothesis is handed on as a C string.
        const QVariantMap hypothesis =
            mapOf(textOf(message.value(QStringLiteral("text"))).toUtf8().constData());
        if (!hypothesis.contains(QStringLiteral("pgs")))
            return {};
        QString piece;
        for (const QVariant &slot : listOf(hypothesis.value(QStringLiteral("ws")))) {
            const QVariantList candidates = listOf(objectOf(slot).value(QStringLiteral("cw")));
            piece += textOf(objectOf(candidates.value(0)).value(QStringLiteral("w")));
        }

        const bool finish = boolOf(message.value(QStringLiteral("finish")));
        if (textOf(hypothesis.value(QStringLiteral("pgs"))) == "rpl") {
            pending = piece;
            return {{fixed + piece, 1, finish}};
        }
        fixed = fixed + pending;
        pending.clear();
        return {{fixed + piece, 2, finish}};
    }

    Report error(const QVariantMap &message) const
    {
        const int code = intOf(message.value(QStringLiteral("errCode")));
        if (!isOurs(message) || code == 0)
            return {};
        return {{code, textOf(message.value(QStringLiteral("errInfo")))}};
    }
};

// Collects what a client reports.
class Heard : public QObject
{
public:
    explicit Heard(IatWapper *client)
    {
        connect(client, &IatWapper::onIatResult, this,
                [this](const QString &text, IatWapper::IatResultType type, bool finish) {
                    m_report.append({text, int(type), finish});
                });
        connect(client, &IatWapper::onIatError, this, [this](long code, const QString &info) {
            m_report.append({int(code), info});
        });
    }

    Report take() { return std::exchange(m_report, {}); }

private:
    Report m_report;
};

QByteArray resultMessage(const QString &session, QByteArray hypothesis, bool finish)
{
    hypothesis.replace('\\', "\\\\").replace('"', "\\\"");
    return R"({"session_id":")" + session.toUtf8() + R"(","text":")" + hypothesis +
           R"(","finish":)" + (finish ? "true}" : "false}");
}

// "r", "a" or another mark, and the words after it.
QByteArray plainHypothesis(const QByteArray &line)
{
    QByteArray json = "{";
    if (line.startsWith('r') || line.startsWith('a'))
        json += line.startsWith('r') ? R"("pgs":"rpl",)" : R"("pgs":"apd",)";
    json += R"("ws":[{"cw":[{"w":")";
    json += line.mid(1).replace('|', R"("},{"w":"second"}]},{"cw":[{"w":")");
    return json + R"("}]}]})";
}

// Each of the first lines is a message: its first character says which.
void sendLines(IatWapper *client, PlainMerge *plain, const QList<QByteArray> &lines)
{
    constexpr int most = 4; // more of them do nothing new, and take their time
    Heard heard(client);
    fuzz::takeCriticals();
    for (const QByteArray &line : lines.mid(0, most)) {
        const char kind = line.isEmpty() ? ' ' : line.at(0);
        QByteArray text = line.mid(1);
        if (kind == 'h' || kind == 'f')
            text = resultMessage(plain->session, text, kind == 'f');
        else if (kind == 'p')
            text = resultMessage(plain->session, plainHypothesis(text), false);
        else if (kind == 'o')
            text = resultMessage(plain->session + 'x', text, false);
        const QString sent = QString::fromUtf8(text); // a text on the bus
        const QVariantMap message = mapOf(sent.toUtf8());
        if (kind == 'e') {
            client->handleError(sent);
            fuzz::expectEqual("error", heard.take(), plain->error(message));
        } else {
            client->handleResult(sent);
            fuzz::expectEqual("result", heard.take(), plain->result(message));
        }
        fuzz::expectEqual("critical lines", fuzz::takeCriticals(),
                          kind == 'e' || plain->isOurs(message) ? 0 : 1);
    }
}

// The answer to createSession, and the code that comes with it.
QPair<QDBusMessage, int> creation(char kind)
{
    const QVariant path = QVariant::fromValue(QDBusObjectPath("/session/1"));
    switch (kind) {
    case 'c':
        return {fuzz::reply({path, 5}), 5};
    case 'n':
        return {fuzz::reply({path, -1}), -1};
    case 'p': // a code is missing or not the last: none
        return {fuzz::reply({path}), 0};
    case '3':
        return {fuzz::reply({path, 5, 6}), 0};
    case 's':
        return {fuzz::reply({"/session/1", 0}), 0};
    case '-':
        return {fuzz::reply({}), 0};
    case 'e':
        return {fuzz::errorReply(), 0};
    default:
        return {fuzz::reply({path, 0}), 0};
    }
}

// The answer to startIat, and what of it is a text.
QPair<QDBusMessage, QByteArray> start(char kind, const QByteArray &text)
{
    switch (kind) {
    case 'i':
        return {fuzz::reply({5}), {}};
    case 'b':
        return {fuzz::reply({text}), {}};
    case '-':
        return {fuzz::reply({}), {}};
    case 'e':
        return {fuzz::errorReply(), {}};
    default:
        return {fuzz::reply({QString::fromUtf8(text)}), text};
    }
}

} // namespace

FUZZ_TARGET(recogniser)
{
    IatWapper client;
    PlainMerge plain{QString()};
    sendLines(&client, &plain, input.split('\n'));
}

// How createSession and startIat are answered, a character each; to the end of the line, what
// startIat is answered. Further lines are messages.
FUZZ_TARGET(sessionstart)
{
    QList<QByteArray> lines = input.split('\n');
    const QByteArray first = lines.takeFirst().leftJustified(2, ' ');
    const auto [created, code] = creation(first.at(0));
    const auto [started, text] = start(first.at(1), QString::fromUtf8(first.mid(2)).toUtf8());
    fuzz::setAnswers({created, started});

    const QVariantMap answer = mapOf(code == 0 ? text : QByteArray());
    IatWapper client;
    fuzz::expectEqual("started", client.startIat(),
                      code == 0 && intOf(answer.value(QStringLiteral("status"))) == 0);
    PlainMerge plain{textOf(answer.value(QStringLiteral("session_id")))};
    sendLines(&client, &plain, lines);
    fuzz::expectEqual("stopped", client.stopIat(), 0);
}

namespace {

// By what the text holds, from the strongest code down.
VoiceTestVerdict plainVerdict(const QString &result, bool words)
{
    using V = VoiceTestVerdict;
    if (result.indexOf("1003") >= 0)
        return words ? V::TooQuiet : V::NoSound;
    if (result.indexOf("1008") >= 0)
        return V::TooNoisy;
    if (result.indexOf("1005") >= 0)
        return V::TooQuiet;
    if (result.indexOf("1004") >= 0)
        return V::TooLoud;
    if (!words)
        return V::TooQuiet;
    return result.indexOf("1000") >= 0 ? V::Good : V::None;
}

} // namespace

// The service's text, and in further lines the words.
FUZZ_TARGET(verdict)
{
    const QString text = QString::fromUtf8(input);
    const QString result = text.section('\n', 0, 0);
    const QString words = text.section('\n', 1);
    fuzz::expectEqual("verdict", int(voiceTestVerdict(result, words)),
                      int(plainVerdict(result, !words.isEmpty())));
}
