#include "sandbox/services/common/storedmethods.h"

#include "sandbox/services/common/statestore.h"

namespace sandbox {

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
