#pragma once

#include "contracts/contract.h"
#include "sandbox/services/common/adaptordispatch.h"

#include <QDBusAbstractAdaptor>
#include <QHash>
#include <QMetaMethod>
#include <QVariant>

namespace sandbox {

class StateStore;

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
