#pragma once

#include "contracts/contract.h"
#include "sandbox/services/common/publishedobject.h"

#include <QDBusAbstractAdaptor>
#include <QHash>
#include <QJsonObject>
#include <QMetaMethod>
#include <QObject>
#include <QString>
#include <QVariant>

#include <functional>

namespace sandbox {

/**
 * What a service remembers: values by key, each of one fixed type.
 *
 * A service declares its keys once and afterwards reads and writes them from its bus methods; the
 * control interface reads and writes the same keys. Every change is written to the state file
 * before set() returns, so a service that is killed loses nothing. Values are bool, int, uint,
 * QString or QStringList.
 */
class StateStore : public QObject
{
    Q_OBJECT

public:
    enum Lifetime {
        Kept,    ///< Survives a restart.
        ThisRun, ///< Starts at its initial value every time.
    };

    /** Reads @p file; a missing or unreadable one counts as empty. Without a name nothing is kept.
     */
    explicit StateStore(const QString &file, QObject *parent = nullptr);

    /** Introduces @p key. Its type is the type of @p initial. */
    void declare(const QString &key, const QVariant &initial, Lifetime lifetime = Kept);

    /** Introduces @p key, which lives somewhere else and is read and written through functions. */
    void declareElsewhere(const QString &key, std::function<QVariant()> read,
                          std::function<void(const QVariant &)> write);

    /** Lets @p key have only values of which @p check finds nothing to say. */
    void restrict(const QString &key, std::function<QString(const QVariant &)> check);

    /** What is wrong with @p value for @p key, in words; empty when it can be set. */
    QString problem(const QString &key, const QVariant &value) const;

    bool contains(const QString &key) const;
    QStringList keys() const;

    /** The value of @p key; invalid when the key was not declared. */
    QVariant value(const QString &key) const;

    /** The same, as a T. */
    template <typename T>
    T get(const QString &key) const
    {
        return value(key).template value<T>();
    }

    /**
     * Stores @p value and, if it is another one, emits changed(). Returns false, and changes
     * nothing, when there is a problem.
     */
    bool set(const QString &key, const QVariant &value);

Q_SIGNALS:
    /** @p key has got another value, whoever set it. It is stored already. */
    void changed(const QString &key, const QVariant &value);

private:
    struct Entry
    {
        std::function<QVariant()> read;
        std::function<void(const QVariant &)> write;
        int type; // QMetaType id
        std::function<QString(const QVariant &)> check = {};
    };

    void save(const QString &key, const QVariant &value);

    QString m_file;
    QJsonObject m_kept;
    QHash<QString, QVariant> m_values;
    QHash<QString, Entry> m_entries;
};

/** A method that does nothing but read or write the state. */
struct StoredMethod
{
    Contract::Method method;
    QString key;
    /** What the method writes, if it has no argument to write and is none that reads. */
    QVariant value = QVariant();
};

/**
 * Methods of a service that only read and write its state: a table says which key each one is
 * about. One that has an argument stores that, one with a value of its own stores that, and any
 * other returns what is stored. What a writing method returns is the default value of its type.
 */
class StoredMethods
{
public:
    StoredMethods(StateStore *state, const QList<StoredMethod> &table);

    /** Does the work of @p method of @p interface; @p cells are the arguments of a meta-call. */
    void call(const QString &interface, const QMetaMethod &method, void **cells) const;

private:
    StateStore *m_state;
    QHash<QString, StoredMethod> m_methods; // by interface and name
};

/** An adaptor, generated from a contract, all of whose methods are stored ones. */
template <typename Adaptor>
class StoredAdaptor : public Adaptor
{
public:
    /** Of @p object, which is to be published; @p methods outlives it. */
    StoredAdaptor(QObject *object, const StoredMethods *methods)
        : Adaptor(object)
        , m_methods(methods)
    {
    }

    int qt_metacall(QMetaObject::Call call, int id, void **cells) override
    {
        if (call != QMetaObject::InvokeMetaMethod || id < Adaptor::staticMetaObject.methodOffset())
            return Adaptor::qt_metacall(call, id, cells);
        m_methods->call(interfaceOf(this), Adaptor::staticMetaObject.method(id), cells);
        return -1;
    }

private:
    const StoredMethods *m_methods;
};

} // namespace sandbox
