#pragma once

#include "zcc/widgets/settingsitem.h"
#include "zcc/zccglobal.h"

class QLabel;

namespace zcc {
namespace widgets {

class SwitchButton;

/**
 * A settings row with a title on the leading side and a switch on the trailing side.
 *
 * The switch is operated by mouse and Space, shows focus, and is a check box to assistive
 * technologies, named by the title. A font set on the row is the title's font.
 */
class ZCC_EXPORT SwitchWidget : public SettingsItem
{
    Q_OBJECT

public:
    explicit SwitchWidget(const QString &title = QString(), QWidget *parent = nullptr);

    bool checked() const;
    QString title() const;

public Q_SLOTS:
    /** Sets the state; emits checkedChanged() when it is another one. */
    void setChecked(bool checked);
    void setTitle(const QString &title);

Q_SIGNALS:
    /** The state has changed, whether by the user or by setChecked(). */
    void checkedChanged(bool checked);

protected:
    /** A click anywhere on the row works as one on its switch. */
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void mirrorParts();

    QLabel *m_title;
    SwitchButton *m_button;
    bool m_pressed = false; ///< The left button went down on the row and is still held.
};

} // namespace widgets
} // namespace zcc
