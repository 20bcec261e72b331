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

private:
    QLabel *m_title;
    SwitchButton *m_button;
};

} // namespace widgets
} // namespace zcc
