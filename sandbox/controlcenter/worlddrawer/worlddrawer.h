#pragma once

#include <QPointer>
#include <QWidget>

class QBoxLayout;
class QVBoxLayout;

namespace controlcenter {

class CallList;
class ChoiceRow;
class ServiceWatches;
class ThemeChoice;
struct Appearance;

/**
 * Switches what the module lives in while it runs: how its services fail, what its microphone
 * hears, whether there is a network and an icon in the dock, how the window looks. It waits for
 * none of them. Below or beside that are the calls that the services receive.
 */
class WorldDrawer : public QWidget
{
    Q_OBJECT

public:
    /** Steers @p theme and the services of @p watches, which may go before the drawer does. */
    WorldDrawer(ServiceWatches *watches, ThemeChoice *theme, QWidget *parent = nullptr);

    /** Whether every fault that was chosen has come about. */
    bool isSettled() const;

    /** As wide as it needs to be with its parts above each other; its height is what there is. */
    QSize sizeHint() const override;

    /** Whether its parts stand beside each other, in twice the width. */
    void setWide(bool wide);

    /** The row with the focus of those for how the window looks, and giving it the focus. */
    QString focusedRow() const;
    void focusRow(const QString &name);

Q_SIGNALS:
    /** The user wants the window to look so. */
    void appearanceWanted(const controlcenter::Appearance &wanted);

    void closeRequested();

protected:
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QWidget *buildHead();
    QWidget *buildRows();
    void addServices(QVBoxLayout *body);
    void addSurroundings(QVBoxLayout *body);
    void addAppearance(QVBoxLayout *body);
    void setFollowing(bool following);

    QPointer<ServiceWatches> m_watches;
    ThemeChoice *m_theme;
    CallList *m_calls;
    QBoxLayout *m_parts; ///< rows and calls
    bool m_following = false;
};

} // namespace controlcenter
