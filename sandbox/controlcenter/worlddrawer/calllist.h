#pragma once

#include <QPointer>
#include <QWidget>

#include <memory>

class QSortFilterProxyModel;

namespace controlcenter {

class CallModel;
class ServiceWatch;
class ServiceWatches;

/**
 * The calls that the services received, what the caller expects and how they were answered: live
 * while it is seen. While it is not, nothing is followed; what came meanwhile is caught up with.
 */
class CallList : public QWidget
{
    Q_OBJECT

public:
    /** Follows the services of @p watches, which may go before. */
    explicit CallList(ServiceWatches *watches, QWidget *parent = nullptr);

    /** The calls that are shown, a line for each. */
    QString text() const;

    /** Its list takes what height there is, though a title above may wrap. */
    bool hasHeightForWidth() const override { return false; }

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    QWidget *buildHead();
    QWidget *buildFilter();
    QWidget *buildList();
    void follow(const ServiceWatch *watch);

    QPointer<ServiceWatches> m_watches;
    CallModel *m_calls;
    QSortFilterProxyModel *m_shown;
    std::unique_ptr<QObject> m_listener; ///< while it is seen
};

} // namespace controlcenter
