#include "sandbox/controlcenter/worlddrawer/callmodel.h"

#include "sandbox/controlcenter/servicespage/servicespage.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <algorithm>

namespace controlcenter {
namespace {

constexpr int updatePauseMs = 100;
constexpr int longestArguments = 120; // characters
const QChar leftToRightMark(0x200e);

// As JSON writes them, but texts as they are.
QString argumentText(const QJsonArray &values)
{
    QStringList texts;
    for (const QJsonValue &value : values) {
        const QString json =
            QString::fromUtf8(QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact));
        texts += value.isString() ? QLatin1Char('"') + value.toString() + QLatin1Char('"')
                                  : json.mid(1, json.size() - 2);
    }
    const QString text = texts.join(QStringLiteral(", "));
    return text.size() > longestArguments ? text.left(longestArguments) + QChar(0x2026) : text;
}

// Signs stay in their places in it, also where texts run to the left.
QString leftToRight(const QString &text)
{
    return leftToRightMark + text + leftToRightMark;
}

// With places at which a line may be broken inside what has no blanks.
QString breakable(const QString &text)
{
    static const QRegularExpression signs(QStringLiteral("([^\\w\\s])(?=\\w)"));
    return QString(text).replace(signs, QStringLiteral("\\1") + QChar(0x200b));
}

QStringList outcomeOf(const QJsonObject &record)
{
    if (!record.value(QLatin1String("replyExpected")).toBool())
        return {CallModel::tr("no reply expected")};
    QStringList outcome{CallModel::tr("reply expected")};
    const QJsonObject answer = record.value(QLatin1String("answer")).toObject();
    const QString values = argumentText(answer.value(QLatin1String("arguments")).toArray());
    if (!record.contains(QLatin1String("answer")))
        outcome += CallModel::tr("no answer yet");
    else if (answer.contains(QLatin1String("error")))
        outcome += CallModel::tr("error: %1")
                       .arg(leftToRight(answer.value(QLatin1String("error")).toString()));
    else
        outcome += values.isEmpty() ? CallModel::tr("answered")
                                    : CallModel::tr("answer: %1").arg(leftToRight(values));
    return outcome;
}

} // namespace

CallModel::CallModel(QObject *parent)
    : QAbstractListModel(parent)
{
    m_pause.setSingleShot(true);
    m_pause.setInterval(updatePauseMs);
    connect(&m_pause, &QTimer::timeout, this, &CallModel::showRecords);
}

void CallModel::take(const QString &service, const QString &record)
{
    m_records.append({service, record});
    // Each call has one record when it comes and one when it is answered.
    if (m_records.size() > 2 * mostCalls)
        m_records.removeFirst();
    if (!m_pause.isActive())
        m_pause.start();
}

void CallModel::takeEarlier(const QString &service, const QStringList &records)
{
    for (const QString &record : records.mid(records.size() - mostCalls))
        show(read({service, record}));
}

void CallModel::clear()
{
    m_cleared = QDateTime::currentMSecsSinceEpoch();
    beginResetModel();
    m_calls.clear();
    endResetModel();
}

int CallModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_calls.size();
}

QVariant CallModel::data(const QModelIndex &index, int role) const
{
    const Call &call = m_calls.at(index.row());
    const QString service = ServicesPage::titleOf(call.service);
    const QStringList outcome = QStringList(service) + call.outcome;
    const QString comma = QStringLiteral(", ");
    switch (role) {
    case Qt::DisplayRole:
        return breakable(leftToRight(call.text) + QLatin1Char('\n') +
                         outcome.join(QStringLiteral(" · ")));
    case Qt::AccessibleTextRole:
        return QString(call.text + comma + outcome.join(comma)).remove(leftToRightMark);
    case ServiceRole:
        return call.service;
    case LineRole:
        return QStringLiteral("%1 %2: %3.%4: %5")
            .arg(QDateTime::fromMSecsSinceEpoch(call.time).toString(QStringLiteral("HH:mm:ss.zzz")),
                 service, call.interface, call.text, call.outcome.join(comma))
            .remove(leftToRightMark);
    default:
        return QVariant();
    }
}

CallModel::Call CallModel::read(const Record &record)
{
    const QJsonObject fields = QJsonDocument::fromJson(record.text.toUtf8()).object();
    const auto text = [&](const char *name) {
        return fields.value(QLatin1String(name)).toString();
    };
    const QString arguments = argumentText(fields.value(QLatin1String("arguments")).toArray());
    return {record.service,
            qint64(fields.value(QLatin1String("time")).toDouble()),
            fields.value(QLatin1String("number")).toInt(),
            text("interface"),
            text("member") + QLatin1Char('(') + arguments + QLatin1Char(')'),
            outcomeOf(fields)};
}

void CallModel::showRecords()
{
    for (const Record &record : qAsConst(m_records))
        show(read(record));
    m_records.clear();
}

// Calls of one service come in their order, those of several may not.
void CallModel::show(const Call &call)
{
    if (call.time < m_cleared)
        return;
    const auto later = std::upper_bound(
        m_calls.begin(), m_calls.end(), call,
        [](const Call &added, const Call &other) { return added.time < other.time; });
    for (auto known = later; known != m_calls.begin() && (known - 1)->time == call.time; --known) {
        if ((known - 1)->service != call.service || (known - 1)->number != call.number)
            continue;
        *(known - 1) = call;
        const QModelIndex changed = index(int(known - 1 - m_calls.begin()));
        Q_EMIT dataChanged(changed, changed);
        return;
    }
    int row = int(later - m_calls.begin());
    if (m_calls.size() == mostCalls) {
        if (row == 0)
            return; // it is older than all that are kept
        beginRemoveRows(QModelIndex(), 0, 0);
        m_calls.removeFirst();
        endRemoveRows();
        --row;
    }
    beginInsertRows(QModelIndex(), row, row);
    m_calls.insert(row, call);
    endInsertRows();
}

} // namespace controlcenter
