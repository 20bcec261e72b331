#pragma once

#include <QPointer>
#include <QVector>
#include <QWidget>

class QLabel;
class QPushButton;
class ShortcutItem;

namespace controlcenter {

class KeyGrabber;
class ShortcutStore;

/**
 * The window's own sample page: the assistant's shortcuts as rows that can be changed.
 *
 * It is the owner that the rows' signals are made for. A click on a row's caps, or its edit button,
 * takes the next key combination and stores it in the keybinding daemon; the remove button clears
 * it. What a row shows is always what the daemon said last. The daemon is asked whenever the page
 * appears.
 */
class ShortcutsPage : public QWidget
{
    Q_OBJECT

public:
    /** One shortcut of the page. */
    struct Shortcut
    {
        QString id;    ///< the daemon's identifier
        QString title; ///< for the user
    };

    explicit ShortcutsPage(const QVector<Shortcut> &shortcuts, QWidget *parent = nullptr);

    /** The row of shortcut @p id, or null. */
    ShortcutItem *row(const QString &id) const;

    QPushButton *editButton() const;

    /** What the page says about what it is doing or what went wrong; may be empty. */
    QString message() const;

protected:
    void showEvent(QShowEvent *event) override;

private:
    struct Line
    {
        Shortcut shortcut;
        QString accelerator; // as the daemon said last
        ShortcutItem *row;
    };

    void addLine(const Shortcut &shortcut);
    Line *line(const QString &id);
    void showLine(const Line &line);
    void setEditMode(bool on);
    void announce(const QString &text);
    void await(const QString &id);
    void endWait();
    void store(const QString &accelerator);
    void onKnown(const QString &id, const QString &accelerator);
    void onFailed(const QString &id, const QString &reason);

    QVector<Line> m_lines;
    QPushButton *m_edit;
    QLabel *m_message;
    ShortcutStore *m_store;
    KeyGrabber *m_grabber;
    QString m_awaited; // identifier of the shortcut that awaits a key; empty: none does
};

} // namespace controlcenter
