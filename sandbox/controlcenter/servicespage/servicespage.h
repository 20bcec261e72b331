#pragma once

#include "sandbox/controlcenter/pagearea.h"

namespace controlcenter {

class ServiceWatches;

/**
 * The services that the module talks to, and their values while the user changes them. It takes the
 * focus so that the arrow keys scroll it.
 */
class ServicesPage : public PageArea
{
    Q_OBJECT

public:
    /** Shows the services of @p watches, which outlive the page, once they are known. */
    explicit ServicesPage(ServiceWatches *watches, QWidget *parent = nullptr);

    /** What people call the service with the short name @p name. */
    static QString titleOf(const QString &name);

Q_SIGNALS:
    /** The drawer that steers the services is asked for. */
    void worldRequested();

protected:
    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void setFollowing(bool following);

    ServiceWatches *m_watches;
    QWidget *m_focusRing;
    bool m_following = false;
};

} // namespace controlcenter
