#include "tests/bus/voicescript.h"

#include "qualitycheckadaptor.h"
#include "recognitionadaptor.h"
#include "sandbox/services/common/service.h"
#include "sandbox/services/common/statestore.h"
#include "sessionsadaptor.h"

#include <QCoreApplication>

namespace voicescript {

namespace {

const QString freedKey = QStringLiteral("freed");

QString codeKey(const QString &ability)
{
    return QStringLiteral("code.") + ability;
}

} // namespace

Sessions::Sessions(sandbox::Service *service)
    : m_service(service)
{
    new SessionsAdaptor(this);
    using sandbox::StateStore;
    StateStore *state = m_service->state();
    for (const char *ability : {"tts", "iat", "trans", "record", "aqc"})
        state->declare(codeKey(QLatin1String(ability)), 0, StateStore::ThisRun);
    state->declare(freedKey, QStringList(), StateStore::ThisRun);
    state->declareElsewhere(
        QStringLiteral("parameters"), [this] { return QVariant(m_parameters); },
        [](const QVariant &) {});
    declareSignal(QStringLiteral("notify"), &Sessions::emitNotify);
    declareSignal(QStringLiteral("result"), &Sessions::emitResult);
    declareSignal(QStringLiteral("error"), &Sessions::emitError);
    declareSignal(QStringLiteral("end"), &Sessions::emitEnd);
}

QDBusObjectPath Sessions::createSession(const QString &appId, const QString &ability,
                                        int &errorcode)
{
    Q_UNUSED(appId)
    errorcode = m_service->state()->get<int>(codeKey(ability));
    const QString path = QStringLiteral("/session/%1/%2").arg(ability).arg(++m_created[ability]);
    if (ability == QLatin1String("iat"))
        recognition(path);
    else
        qualityCheck(path);
    return QDBusObjectPath(path);
}

int Sessions::freeSession(const QString &appId, const QString &ability)
{
    Q_UNUSED(appId)
    sandbox::StateStore *state = m_service->state();
    state->set(freedKey, state->get<QStringList>(freedKey) << ability);
    return 0;
}

QualityCheck *Sessions::qualityCheck(const QString &path)
{
    QualityCheck *&check = m_checks[path];
    if (!check) {
        check = new QualityCheck(this);
        m_service->publish(path, check);
        m_service->state()->declareElsewhere(
            QStringLiteral("audio ") + path,
            [check] { return QVariant(QString::fromLatin1(check->audio().toHex())); },
            [](const QVariant &) {});
    }
    return check;
}

Recognition *Sessions::recognition(const QString &path)
{
    Recognition *&recognition = m_recognitions[path];
    if (!recognition) {
        recognition = new Recognition(QStringLiteral("id of ") + path, this);
        m_service->publish(path, recognition);
        m_service->state()->declareElsewhere(
            QStringLiteral("audio ") + path,
            [recognition] { return QVariant(QString::fromLatin1(recognition->audio().toHex())); },
            [](const QVariant &) {});
        connect(recognition, &Recognition::started, this,
                [this](const QStringList &parameters) { m_parameters = parameters; });
    }
    return recognition;
}

void Sessions::declareSignal(const QString &key,
                             void (Sessions::*emitSignal)(const QString &, const QString &))
{
    m_service->state()->declareElsewhere(
        key, [] { return QVariant(QStringList()); },
        [this, emitSignal](const QVariant &value) {
            const QStringList words = value.toStringList();
            (this->*emitSignal)(words.value(0), words.value(1));
        });
}

void Sessions::emitNotify(const QString &path, const QString &text)
{
    Q_EMIT qualityCheck(path)->onNotify(text);
}

void Sessions::emitResult(const QString &path, const QString &text)
{
    Q_EMIT recognition(path)->onResult(text);
}

void Sessions::emitError(const QString &path, const QString &text)
{
    Q_EMIT recognition(path)->onError(text);
}

void Sessions::emitEnd(const QString &path, const QString &text)
{
    Q_UNUSED(text)
    Q_EMIT recognition(path)->onEnd();
}

QualityCheck::QualityCheck(QObject *parent)
    : QObject(parent)
{
    new QualityCheckAdaptor(this);
}

QString QualityCheck::startAqc()
{
    return QStringLiteral("started");
}

QString QualityCheck::stopAqc()
{
    return QStringLiteral("stopped");
}

void QualityCheck::putAudio(const QByteArray &audio, bool finish)
{
    Q_UNUSED(finish)
    m_audio += audio;
}

Recognition::Recognition(const QString &sessionId, QObject *parent)
    : QObject(parent)
    , m_sessionId(sessionId)
{
    new RecognitionAdaptor(this);
}

QString Recognition::startIat(const QVariantMap &params)
{
    QStringList parameters;
    for (auto entry = params.cbegin(); entry != params.cend(); ++entry)
        parameters << QStringLiteral("%1 %2 %3")
                          .arg(entry.key(), QLatin1String(entry.value().typeName()),
                               entry.value().toString());
    Q_EMIT started(parameters);
    return QStringLiteral(R"({"status":0,"session_id":"%1"})").arg(m_sessionId);
}

void Recognition::stopIat() {}

void Recognition::putAudio(const QByteArray &data, bool finish)
{
    Q_UNUSED(finish)
    m_audio += data;
}

} // namespace voicescript

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    sandbox::Service service({QStringLiteral("voicescript"),
                              QStringLiteral("com.corvane.aiservice"), QDBusConnection::SessionBus,
                              QStringLiteral("An AI service that follows a test's script.")});
    voicescript::Sessions sessions(&service);
    service.publish(QStringLiteral("/"), &sessions);
    return service.run();
}
