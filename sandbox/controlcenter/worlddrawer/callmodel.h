#pragma once

#include <QAbstractListModel>
#include <QList>
#include <QTimer>
#include <QVector>

namespace controlcenter {

/**
 * The latest calls to all services in the order in which they came. However many come, what is
 * shown changes at most ten times a second.
 */
class CallModel : public QAbstractListModel
{
    Q_OBJECT

public:
    enum Role {
        ServiceRole = Qt::UserRole + 10, ///< short name
        LineRole,                        ///< all of the call in one line
    };

    /** The oldest make room for new ones. */
    static constexpr int mostCalls = 500;

    explicit CallModel(QObject *parent = nullptr);

    /** Takes a call to @p service or what has become of it, as the control interface writes it. */
    void take(const QString &service, const QString &record);

    /** Takes what came before, as it is now, and shows it at once. */
    void takeEarlier(const QString &service, const QStringList &records);

    /** Forgets all calls; what becomes of them later is not shown either. */
    void clear();

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

private:
    struct Call
    {
        QString service;
        qint64 time; ///< ms since 1970
        int number;  ///< of the service
        QString interface;
        QString text; ///< member and arguments
        QStringList outcome;
    };
    struct Record
    {
        QString service;
        QString text;
    };

    static Call read(const Record &record);
    void showRecords();
    void show(const Call &call);

    QVector<Call> m_calls;
    QList<Record> m_records; ///< not shown yet
    QTimer m_pause;
    qint64 m_cleared = 0; ///< ms since 1970
};

} // namespace controlcenter
