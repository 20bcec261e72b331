#pragma once

#include <QPointer>
#include <QVector>
#include <QWidget>

class QVBoxLayout;
namespace controlcenter {

class ServiceWatch;

/**
 * Switches what the module lives in while it runs: how its services fail, what its microphone
 * hears, whether there is a network and an icon in the dock. It waits for none of them.
 */
class WorldDrawer : public QWidget
{
    Q_OBJECT

public:
    /** Steers the services of @p watches, which may go before the drawer does. */
    explicit WorldDrawer(const QVector<ServiceWatch *> &watches, QWidget *parent = nullptr);

    /** Whether every fault that was chosen has come about. */
    bool isSettled() const;

    /** As wide as it needs to be; its height is what there is. */
    QSize sizeHint() const override;

Q_SIGNALS:
    void closeRequested();

protected:
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QWidget *buildHead();
    QWidget *buildBody();
    void addServices(QVBoxLayout *body);
    void addSurroundings(QVBoxLayout *body);
    ServiceWatch *watch(const QString &service) const;
    void setFollowing(bool following);

    QVector<QPointer<ServiceWatch>> m_watches;
    QWidget *m_body = nullptr;
    bool m_following = false;
};

} // namespace controlcenter
