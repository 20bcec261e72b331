#pragma once

#include <QHash>
#include <QJsonObject>
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

} // namespace sandbox
