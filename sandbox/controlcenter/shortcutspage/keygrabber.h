#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

namespace controlcenter {

/**
 * The key combination in the keybinding daemon's form, such as "<Control><Alt>T"; @p key is a
 * Qt::Key. Empty when it cannot be a shortcut: a modifier alone, a key that has no name there, or
 * one that would be missing when typing because it is pressed without Control, Alt or Super.
 */
QString accelerator(int key, Qt::KeyboardModifiers modifiers);

} // namespace controlcenter

class QPoint;
class QWidget;

namespace controlcenter {

/**
 * Grabs the next key combination in the whole program, its own shortcuts included.
 *
 * Ends by itself: with grabbed() at the first combination that can be a shortcut, with cancelled()
 * at Escape, at a click anywhere, or when the widget that asked is hidden or its window is left.
 */
class KeyGrabber : public QObject
{
    Q_OBJECT

public:
    explicit KeyGrabber(QObject *parent = nullptr);
    ~KeyGrabber() override;

    /**
     * Begins to wait for @p requester, which is shown. A click on the requester counts only when
     * the button is released, so that it has handled the click when cancelled() arrives.
     */
    void start(QWidget *requester);

    /** Ends the wait without a signal. */
    void stop();

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /** @p accelerator is in the keybinding daemon's form. */
    void grabbed(const QString &accelerator);
    void cancelled();

private:
    bool isOnRequester(const QPoint &globalPosition) const;
    void cancel();
    void cancelLater();
    void handleKey(int key, Qt::KeyboardModifiers modifiers);

    bool m_active = false;
    QPointer<QWidget> m_requester;
};

} // namespace controlcenter
