#pragma once

#include <QMap>
#include <QPointer>
#include <QSet>
#include <QVector>
#include <QWidget>

class QLabel;
class QPushButton;
class QTimer;
class ShortcutItem;

namespace controlcenter {

class KeyGrabber;
class ShortcutStore;

/**
 * The window's own sample page: the assistant's shortcuts as rows that can be changed.
 *
 * It is the owner that the rows' signals are made for. A click on a row's caps, or its edit button,
 * takes the next key combination and stores it in the keybinding daemon; the remove button clears
 * it. A combination that another row has is taken over when it is pressed twice. What was changed
 * last can be undone. What a row shows is always what the daemon said last. The daemon is asked
 * whenever the page appears; while it does not answer the rows cannot be operated.
 */
class ShortcutsPage : public QWidget
{
    Q_OBJECT

public:
    /** One shortcut of the page. */
    struct Shortcut
    {
        QString id;       ///< the daemon's identifier
        QString title;    ///< for the user
        QString standard; ///< the accelerator that it has at first
    };

    explicit ShortcutsPage(const QVector<Shortcut> &shortcuts, QWidget *parent = nullptr);

    /** The row of shortcut @p id, or null. */
    ShortcutItem *row(const QString &id) const;

    QPushButton *editButton() const;

    /** Shown in edit mode. */
    QPushButton *restoreButton() const;

    /** Shown while there is something to undo. */
    QPushButton *undoButton() const;

    /** What the page says about what it is doing or what went wrong; may be empty. */
    QString message() const;

    /** Whether every shortcut that is shown has been answered for, if only by a failure. */
    bool isComplete() const;

protected:
    void showEvent(QShowEvent *event) override;

private:
    struct Line
    {
        Shortcut shortcut;
        QString accelerator; // as the daemon said last
        ShortcutItem *row;
        bool isAnswered = false;
    };

    void addLine(const Shortcut &shortcut);
    Line *line(const QString &id);
    void showLine(const Line &line);
    void setEditMode(bool on);
    void announce(const QString &text);
    void clearMessage();
    void readAll();
    void edit(const QString &id);
    void await(const QString &id);
    void endWait();
    void store(const QString &accelerator);
    void remove(const QString &id);
    void restore();
    void undo();
    void change(const QMap<QString, QString> &accelerators, const QString &result);
    void onKnown(const QString &id, const QString &accelerator);
    void onFailed(const QString &id, const QString &reason);
    void setOperable(bool operable);

    QVector<Line> m_lines;
    QPushButton *m_edit;
    QPushButton *m_restore;
    QPushButton *m_undo;
    QLabel *m_message;
    ShortcutStore *m_store;
    KeyGrabber *m_grabber;
    QTimer *m_retry;
    QSet<QString> m_failed;          // identifiers of which the daemon has not answered
    QString m_awaited;               // identifier of the shortcut that awaits a key; empty: none
    QString m_offered;               // accelerator that is taken over when it is pressed again
    QPointer<QWidget> m_focusBefore; // of the button that began the wait
    QMap<QString, QString> m_before; // accelerators before the last change, by identifier
    QStringList m_changing;          // identifiers of which the daemon has not said the new one
    QString m_result;                // what to say when it has
};

} // namespace controlcenter
