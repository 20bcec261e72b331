#pragma once

#include <QPointer>
#include <QWidget>

#include <memory>

class QComboBox;
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

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    QWidget *buildHead();
    QWidget *buildList();
    void follow(const ServiceWatch *watch);

    QPointer<ServiceWatches> m_watches;
    CallModel *m_calls;
    QSortFilterProxyModel *m_shown;
    QComboBox *m_filter;
    std::unique_ptr<QObject> m_listener; ///< while it is seen
};

} // namespace controlcenter
