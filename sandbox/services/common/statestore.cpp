#include "sandbox/services/common/statestore.h"

#include <QDebug>
#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QSaveFile>

namespace sandbox {

namespace {

QJsonObject readObject(const QString &fileName)
{
    QFile file(fileName);
    if (fileName.isEmpty() || !file.open(QIODevice::ReadOnly))
        return {};
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    if (error.error != QJsonParseError::NoError || !document.isObject())
        qWarning("%s is not a JSON object; starting with the default state", qPrintable(fileName));
    return document.object();
}

} // namespace

StateStore::StateStore(const QString &file, QObject *parent)
    : QObject(parent)
    , m_file(file)
    , m_kept(readObject(file))
{
}

void StateStore::declare(const QString &key, const QVariant &initial, Lifetime lifetime)
{
    QVariant start = initial;
    const QJsonValue kept = m_kept.value(key);
    if (lifetime == Kept && kept.type() == QJsonValue::fromVariant(initial).type()) {
        start = kept.toVariant();
        start.convert(initial.userType());
    }
    m_values.insert(key, start);
    m_entries.insert(key, {[this, key] { return m_values.value(key); },
                           [this, key, lifetime](const QVariant &value) {
                               m_values.insert(key, value);
                               if (lifetime == Kept)
                                   save(key, value);
                           },
                           initial.userType()});
}

void StateStore::declareElsewhere(const QString &key, std::function<QVariant()> read,
                                  std::function<void(const QVariant &)> write)
{
    const int type = read().userType();
    m_entries.insert(key, {std::move(read), std::move(write), type});
}

void StateStore::restrict(const QString &key, std::function<QString(const QVariant &)> check)
{
    m_entries[key].check = std::move(check);
}

QString StateStore::problem(const QString &key, const QVariant &value) const
{
    const auto entry = m_entries.constFind(key);
    if (entry == m_entries.constEnd())
        return QStringLiteral("there is no key \"%1\"").arg(key);
    if (value.userType() != entry->type)
        return QStringLiteral("\"%1\" holds a value of another type").arg(key);
    return entry->check ? entry->check(value) : QString();
}

bool StateStore::contains(const QString &key) const
{
    return m_entries.contains(key);
}

QStringList StateStore::keys() const
{
    QStringList keys = m_entries.keys();
    keys.sort();
    return keys;
}

QVariant StateStore::value(const QString &key) const
{
    const auto entry = m_entries.constFind(key);
    return entry == m_entries.constEnd() ? QVariant() : entry->read();
}

bool StateStore::set(const QString &key, const QVariant &value)
{
    if (!problem(key, value).isEmpty())
        return false;
    const auto entry = m_entries.constFind(key);
    if (entry->read() != value) {
        entry->write(value);
        Q_EMIT changed(key, value);
    }
    return true;
}

void StateStore::save(const QString &key, const QVariant &value)
{
    m_kept.insert(key, QJsonValue::fromVariant(value));
    if (m_file.isEmpty())
        return;
    QDir().mkpath(QFileInfo(m_file).absolutePath());
    QSaveFile file(m_file);
    const bool written = file.open(QIODevice::WriteOnly) &&
                         file.write(QJsonDocument(m_kept).toJson()) >= 0 && file.commit();
    if (!written) {
        qWarning("the state cannot be kept in %s: %s", qPrintable(m_file),
                 qPrintable(file.errorString()));
    }
}

StoredMethods::StoredMethods(StateStore *state, const QList<StoredMethod> &table)
    : m_state(state)
{
    for (const StoredMethod &row : table)
        m_methods.insert(row.method.object.interface + QLatin1Char('.') + row.method.name, row);
}

void StoredMethods::call(const QString &interface, const QMetaMethod &method, void **cells) const
{
    const QString name = interface + QLatin1Char('.') + QLatin1String(method.name());
    Q_ASSERT(m_methods.contains(name));
    const StoredMethod row = m_methods.value(name);
    if (row.value.isValid()) {
        m_state->set(row.key, row.value);
    } else if (method.parameterCount() > 0) {
        m_state->set(row.key, QVariant(method.parameterType(0), cells[1]));
    } else {
        const QVariant stored = m_state->value(row.key);
        Q_ASSERT(stored.userType() == method.returnType());
        QMetaType::destruct(method.returnType(), cells[0]);
        QMetaType::construct(method.returnType(), cells[0], stored.constData());
    }
}

} // namespace sandbox
