#pragma once

#include <zcc/widgets/settingsitem.h>

class QLabel;
class QLineEdit;
class ShortcutKey;

namespace Ztk {
namespace Widget {
class ZIconButton;
}
} // namespace Ztk

/**
 * A settings row with a title and a keyboard shortcut that the user can change.
 *
 * The row is in one of three states: it shows the shortcut as key caps; it is in edit mode, with an
 * edit and a remove button in place of the caps; or it awaits a new shortcut, with a line edit in
 * place of the caps. It stores nothing and grabs no keys: it tells its owner by signals what the
 * user wants, and the owner answers with setShortcut().
 *
 * A click on the caps asks for a new shortcut; Space or Return does the same while the row has the
 * keyboard focus. Of damaged or hostile texts only the beginning is shown; the signals carry them
 * whole. A receiver of a signal may call any function of the row, or delete it. GUI thread only.
 */
class ShortcutItem : public zcc::widgets::SettingsItem
{
    Q_OBJECT

public:
    /** What a row shows. */
    struct ShortcutInfo
    {
        QString name;   ///< the title, as last given to setTitle()
        QString accels; ///< the accelerator, exactly as last given to setShortcut()
    };

    /**
     * The key names of an accelerator in the keybinding daemon's form, in the order in which they
     * are shown. Left and right modifiers are not told apart; a missing key is an empty name.
     */
    static QStringList keyNames(QString accels);

    explicit ShortcutItem(QFrame *parent = nullptr);

    /** Sets the title, a plain text. Where the row is too narrow for it, it is elided. */
    void setTitle(const QString &title);

    /**
     * Shows the accelerator @p accels, in the keybinding daemon's own form such as
     * "<Control><Alt>T", as key caps, and leaves edit mode or the wait for a new one.
     */
    void setShortcut(const QString &accels);

    /** Takes over the accelerator of @p info. The row keeps its own name: info.name is not used. */
    void setShortcutInfo(const ShortcutInfo &info);

    /** Asks the owner, by shortcutEditChanged(), to edit this shortcut. */
    void onShortcutEdit();

    /** Whether the row shows its two buttons. */
    bool isInEditMode() const;

    /**
     * Does what a click on the caps does: asks for a new shortcut, or gives up waiting for one. In
     * edit mode, or while the row is disabled, it does nothing.
     */
    void press();

    /** Elides the title to half of the width left for it if it does not fit. Shows the row. */
    void updateTitleSize();

    /** The width in which a title of usual length fits; a longer one does not widen the row. */
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public Q_SLOTS:
    /** Enters or leaves edit mode. On leaving, the focus of one of the buttons goes to the row. */
    void onEditMode(bool on);

    /** Asks the owner, by requestRemove(), to remove this shortcut. */
    void onRemoveClick();

Q_SIGNALS:
    /** The user wants to edit this shortcut. */
    void shortcutEditChanged(const ShortcutItem::ShortcutInfo &info);

    /** The user wants to type a new accelerator; the row now awaits it. */
    void requestUpdateKey(const ShortcutItem::ShortcutInfo &info);

    /** The user wants to remove this shortcut. */
    void requestRemove(const ShortcutItem::ShortcutInfo &info);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void setEditMode(bool on);
    void showShortcut();
    void activate(bool onCaps);
    int titleSpace() const;
    int titleWidth() const;
    QString shownTitle() const;
    void fitPlaceholder();

    QLineEdit *m_shortcutEdit = nullptr;
    QLabel *m_title = nullptr;
    ShortcutInfo m_info;
    Ztk::Widget::ZIconButton *m_removeButton = nullptr;
    Ztk::Widget::ZIconButton *m_editButton = nullptr;
    ShortcutKey *m_key = nullptr;
};
